#include "board/bas.h"

#include "board/state.h"

namespace board {
namespace {

constexpr int32_t kMostBytes = 6;
constexpr size_t kMostKept = 16;

}  // namespace

ResultCode SendBas(State& state, int32_t commandCount, int32_t repeatCount, const uint8_t* data,
                   int32_t length) {
    if (!data || commandCount < 1 || repeatCount < 1 || length < 1 || length > kMostBytes) {
        return VXD_INVALID_PARAMETER;
    }
    Bas& bas = state.services.bas;
    if (bas.last.size() == kMostKept) {
        bas.last.pop_front();
    }
    bas.last.push_back({static_cast<uint32_t>(commandCount),
                        static_cast<uint32_t>(repeatCount),
                        {data, data + length}});
    ++bas.sendings;
    return VXD_SUCCESS;
}

ResultCode TerminateBas(State& state) {
    state.services.bas = {};
    return TakeStep(state, Service::kBas, kTerminate);
}

}  // namespace board
