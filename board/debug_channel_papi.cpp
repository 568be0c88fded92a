// PAPI's operations on the debug channel.
#include "driver/papi.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "board/debug_channel.h"
#include "board/papi_operation.h"

using namespace board;

uint32_t WINAPI vdapi_Debug(uint32_t command, uint32_t size, void* block) {
    const DebugCommand* known = FindDebugCommand(command);
    // Of a block no more is looked at than both sides agree on.
    const size_t bytes = known ? std::min<size_t>(size, known->blockSize) : 0;
    return OnBoard(
        {"vdapi_Debug", {command, size, block}, BytesAt(block, bytes), known ? known->name : ""},
        [=](State& state) {
            if (!known) {
                return VXD_INVALID_DEBUG_COMMAND_ID;
            }
            if (size != known->blockSize || (size != 0 && !block)) {
                return VXD_INVALID_PARAMETER;
            }
            return known->handle ? known->handle(state, block) : NotYetSimulated(state);
        });
}
