// The software of the video codec processor (VCPXi), loaded from files of the workstation.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "driver/result_code.h"

namespace board {

struct State;

// What was loaded last; nothing at power-on.
struct CodecSoftware {
    struct File {
        std::string
            path{};  // in the letters that the file was found by; empty where none was given
        uint64_t bytes = 0;
    };

    File monitor{};
    File codec{};
    File vcpIni{};
    File vpCode{};
    std::vector<std::string> sections{};  // each in its brackets
};

// Loads the files of these paths and takes note of the sections, each a name in its brackets. The
// codec and the VCP.INI are needed, the other two paths may be empty: else VXD_INVALID_PARAMETER,
// as for a section without brackets. A file that can't be opened, in whatever case its name and its
// folders' names are written, answers VXD_FILE_OPEN_FAILURE; a VCP.INI that lacks one of the
// sections, whose names ignore case, VXD_CORRUPT_FILE. Then what was loaded before stays.
ResultCode LoadCodecSoftware(State& state, const CodecSoftware& wanted);

}  // namespace board
