#include "commands/arcofi_loops.h"

#include <array>

#include "driver/papi.h"
#include "res/resource.h"
#include "services/diagnostics.h"

namespace {

constexpr uint32_t kTestLoopList = 0x91F;

// The first byte: the loop's number stands below the two bits that are left as they are.
constexpr uint8_t kKeptBits = 0xC0;
constexpr int kLoopShift = 3;
// The other two bytes, in every loop.
constexpr uint8_t kSecondByte = 0x0B;
constexpr uint8_t kThirdByte = 0x22;

// The commands stand in the order of the loops' numbers, 0 for none.
static_assert(IDM_ARCOFI_LOOP_INTERFACE - IDM_ARCOFI_LOOP_NONE == 4);

}  // namespace

void ChooseArcofiLoop(HWND window, uint32_t command) {
    const uint32_t loop = command - IDM_ARCOFI_LOOP_NONE;
    std::array<uint8_t, 4> list{};
    ReportFailure(window, CodeOf(vdapi_ARCOFI_Read(kTestLoopList, list.data())),
                  "vdapi_ARCOFI_Read : LIST");
    list[0] = static_cast<uint8_t>((list[0] & kKeptBits) | loop << kLoopShift);
    list[1] = kSecondByte;
    list[2] = kThirdByte;
    ReportFailure(window, CodeOf(vdapi_ARCOFI_Write(kTestLoopList, list.data())),
                  "vdapi_ARCOFI_Write : LIST");
}
