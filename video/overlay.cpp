// "Overlay Dialog": the colours of the encoder's overlay. The first of the 16, which lets the
// picture through, is not offered.
#include "video/overlay.h"

#include <array>
#include <cstdint>

#include "driver/papi.h"
#include "res/resource.h"
#include "video/colour_table.h"

namespace {

constexpr uint32_t kConstant = 1;  // what the driver wants there

// Kept for the whole run.
std::array<uint32_t, 16> colours{};

const ColourTable kTable{
    .dialog = IDD_OVERLAY,
    .colours = colours,
    .firstEntry = 1,
    .readsAllAtOpening = true,
    .readEntry = {[](uint32_t entry, uint32_t* colour) {
                      return CodeOf(vdapi_BT85X_ReadFromOverlay(kConstant, entry, colour));
                  },
                  "vdapi_BT85X_ReadFromOverlay"},
    .writeEntry = {[](uint32_t entry, uint32_t colour) {
                       return CodeOf(vdapi_BT85X_WriteToOverlay(kConstant, entry, colour));
                   },
                   "vdapi_BT85X_WriteToOverlay"},
    .readAll = {[](uint32_t* table) {
                    return CodeOf(vdapi_BT85X_RetrieveOverlay(kConstant, table));
                },
                "vdapi_BT85X_RetrieveOverlay"},
    .writeAll = {[](const uint32_t* table) {
                     return CodeOf(vdapi_BT85X_DownloadOverlay(kConstant, table));
                 },
                 "vdapi_BT85X_DownloadOverlay"},
    .initialEntry = setting::kOverlayInitialEntry,
    .red = setting::kOverlayRed,
    .green = setting::kOverlayGreen,
    .blue = setting::kOverlayBlue,
};

}  // namespace

INT_PTR OpenOverlay(HINSTANCE instance, HWND owner) {
    return RunColourTable(instance, owner, kTable);
}
