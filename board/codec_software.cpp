#include "board/codec_software.h"

#include <algorithm>
#include <cctype>
#include <fstream>
#include <initializer_list>
#include <string_view>
#include <utility>

#include "board/state.h"
#include "platform/win32.h"

namespace board {
namespace {

using File = CodecSoftware::File;

// The path in the letters that the file can be opened by: programs write paths in capitals, which
// only some file systems take for the same. As given where there is no such file.
std::string Spelled(const std::string& path) {
    std::string spelled(GetLongPathNameA(path.c_str(), nullptr, 0), '\0');
    spelled.resize(
        GetLongPathNameA(path.c_str(), spelled.data(), static_cast<DWORD>(spelled.size())));
    return spelled.empty() ? path : spelled;
}

bool IsFolder(const std::string& path) {
    WIN32_FILE_ATTRIBUTE_DATA attributes;
    return GetFileAttributesExA(path.c_str(), GetFileExInfoStandard, &attributes) &&
           (attributes.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

ResultCode Load(File& file) {
    file.path = Spelled(file.path);
    std::ifstream stream(file.path, std::ios::binary | std::ios::ate);
    if (!stream || IsFolder(file.path)) {
        return VXD_FILE_OPEN_FAILURE;
    }
    file.bytes = static_cast<uint64_t>(stream.tellg());
    return VXD_SUCCESS;
}

// What stands between the brackets that a line begins with, without the blanks around it, in
// capitals; empty for any other line.
std::string SectionName(std::string_view line) {
    constexpr std::string_view kBlanks = " \t\r";
    const size_t start = line.find_first_not_of(kBlanks);
    const size_t end = line.find(']');
    if (start == std::string_view::npos || line[start] != '[' || end == std::string_view::npos) {
        return {};
    }
    std::string name(line.substr(start + 1, end - start - 1));
    name.erase(0, name.find_first_not_of(kBlanks));
    name.erase(name.find_last_not_of(kBlanks) + 1);
    std::ranges::transform(name, name.begin(), [](unsigned char letter) {
        return static_cast<char>(std::toupper(letter));
    });
    return name;
}

std::vector<std::string> SectionsIn(const std::string& path) {
    std::vector<std::string> names;
    std::ifstream stream(path, std::ios::binary);
    for (std::string line; std::getline(stream, line);) {
        if (std::string name = SectionName(line); !name.empty()) {
            names.push_back(std::move(name));
        }
    }
    return names;
}

}  // namespace

ResultCode LoadCodecSoftware(State& state, const CodecSoftware& wanted) {
    const auto hasName = [](const std::string& section) { return !SectionName(section).empty(); };
    if (wanted.codec.path.empty() || wanted.vcpIni.path.empty() ||
        !std::ranges::all_of(wanted.sections, hasName)) {
        return VXD_INVALID_PARAMETER;
    }
    CodecSoftware loaded = wanted;
    for (File* file : {&loaded.monitor, &loaded.codec, &loaded.vcpIni, &loaded.vpCode}) {
        const ResultCode code = file->path.empty() ? VXD_SUCCESS : Load(*file);
        if (code != VXD_SUCCESS) {
            return code;
        }
    }
    const std::vector<std::string> present = SectionsIn(loaded.vcpIni.path);
    const auto isPresent = [&present](const std::string& section) {
        return std::ranges::find(present, SectionName(section)) != present.end();
    };
    if (!std::ranges::all_of(loaded.sections, isPresent)) {
        return VXD_CORRUPT_FILE;
    }
    state.hardware.codecSoftware = loaded;
    return VXD_SUCCESS;
}

}  // namespace board
