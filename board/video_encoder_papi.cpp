// PAPI's operations on the video encoder and its palettes.
#include "driver/papi.h"

#include <cstddef>
#include <cstdint>

#include "board/life_cycle.h"
#include "board/papi_operation.h"
#include "board/services.h"

using namespace board;

namespace {

constexpr size_t kPaletteEntries = 256;
constexpr size_t kOverlayEntries = 16;

}  // namespace

uint32_t WINAPI vdapi_BT85X_Initialize() {
    return OnBoard({"vdapi_BT85X_Initialize"}, TakeStep<Service::Bt85x, kInitialize>);
}

uint32_t WINAPI vdapi_BT85X_Terminate() {
    return OnBoard({"vdapi_BT85X_Terminate"}, TakeStep<Service::Bt85x, kTerminate>);
}

uint32_t WINAPI vdapi_BT85X_Reset() {
    return OnBoard({"vdapi_BT85X_Reset"}, TakeStep<Service::Bt85x, kReset>);
}

uint32_t WINAPI vdapi_BT85X_SetDisplayType(uint32_t type) {
    return OnBoard({"vdapi_BT85X_SetDisplayType", {type}},
                   [=](State& state) { return SetDisplayType(state, type); });
}

uint32_t WINAPI vdapi_BT85X_WriteCtrlRegister(uint32_t encoder, uint32_t fieldId, uint32_t value) {
    return OnBoard({"vdapi_BT85X_WriteCtrlRegister", {encoder, fieldId, value}}, NotYetSimulated);
}

uint32_t WINAPI vdapi_BT85X_ReadCtrlRegister(uint32_t encoder, uint32_t fieldId, uint32_t* value) {
    return OnBoard({"vdapi_BT85X_ReadCtrlRegister", {encoder, fieldId, value}}, NotYetSimulated);
}

uint32_t WINAPI vdapi_BT85X_WriteToPalette(uint32_t entry, uint32_t colour) {
    return OnBoard({"vdapi_BT85X_WriteToPalette", {entry, colour}}, NotYetSimulated);
}

uint32_t WINAPI vdapi_BT85X_ReadFromPalette(uint32_t entry, uint32_t* colour) {
    return OnBoard({"vdapi_BT85X_ReadFromPalette", {entry, colour}}, NotYetSimulated);
}

uint32_t WINAPI vdapi_BT85X_DownloadPalette(const uint32_t* table) {
    return OnBoard(
        {"vdapi_BT85X_DownloadPalette", {table}, BytesAt(table, kPaletteEntries * sizeof *table)},
        NotYetSimulated);
}

uint32_t WINAPI vdapi_BT85X_RetrievePalette(uint32_t* table) {
    return OnBoard({"vdapi_BT85X_RetrievePalette", {table}}, NotYetSimulated);
}

uint32_t WINAPI vdapi_BT85X_WriteToOverlay(uint32_t constant, uint32_t entry, uint32_t colour) {
    return OnBoard({"vdapi_BT85X_WriteToOverlay", {constant, entry, colour}}, NotYetSimulated);
}

uint32_t WINAPI vdapi_BT85X_ReadFromOverlay(uint32_t constant, uint32_t entry, uint32_t* colour) {
    return OnBoard({"vdapi_BT85X_ReadFromOverlay", {constant, entry, colour}}, NotYetSimulated);
}

uint32_t WINAPI vdapi_BT85X_DownloadOverlay(uint32_t constant, const uint32_t* table) {
    return OnBoard({"vdapi_BT85X_DownloadOverlay",
                    {constant, table},
                    BytesAt(table, kOverlayEntries * sizeof *table)},
                   NotYetSimulated);
}

uint32_t WINAPI vdapi_BT85X_RetrieveOverlay(uint32_t constant, uint32_t* table) {
    return OnBoard({"vdapi_BT85X_RetrieveOverlay", {constant, table}}, NotYetSimulated);
}

uint32_t WINAPI vdapi_BT85X_WritePixelMask(uint32_t constant, uint32_t mask) {
    return OnBoard({"vdapi_BT85X_WritePixelMask", {constant, mask}}, NotYetSimulated);
}

uint32_t WINAPI vdapi_BT85X_ReadPixelMask(uint32_t constant, uint32_t* mask) {
    return OnBoard({"vdapi_BT85X_ReadPixelMask", {constant, mask}}, NotYetSimulated);
}
