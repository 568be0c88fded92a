// "Palette Dialog": the colours of the encoder's palette. What was not read yet in this run is
// black.
#include "video/palette.h"

#include <array>
#include <cstdint>

#include "driver/papi.h"
#include "res/resource.h"
#include "video/colour_table.h"

namespace {

// Kept for the whole run.
std::array<uint32_t, 256> colours{};

const ColourTable kTable{
    .dialog = IDD_PALETTE,
    .colours = colours,
    .firstEntry = 0,
    .readsAllAtOpening = false,
    .readEntry = {[](uint32_t entry, uint32_t* colour) {
                      return CodeOf(vdapi_BT85X_ReadFromPalette(entry, colour));
                  },
                  "vdapi_BT85X_ReadFromPalette"},
    .writeEntry = {[](uint32_t entry, uint32_t colour) {
                       return CodeOf(vdapi_BT85X_WriteToPalette(entry, colour));
                   },
                   "vdapi_BT85X_WriteToPalette"},
    .readAll = {[](uint32_t* table) { return CodeOf(vdapi_BT85X_RetrievePalette(table)); },
                "vdapi_BT85X_RetrievePalette"},
    .writeAll = {[](const uint32_t* table) { return CodeOf(vdapi_BT85X_DownloadPalette(table)); },
                 "vdapi_BT85X_DownloadPalette"},
    .initialEntry = setting::kPaletteInitialEntry,
    .red = setting::kPaletteRed,
    .green = setting::kPaletteGreen,
    .blue = setting::kPaletteBlue,
};

}  // namespace

INT_PTR OpenPalette(HINSTANCE instance, HWND owner) {
    return RunColourTable(instance, owner, kTable);
}
