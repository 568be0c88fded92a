#include "tests/kit/settings.h"

#include <random>

#include "platform/win32.h"

namespace kit {
namespace {

void RemoveFiles() {
    for (const char* file : {kOwnFile, kSharedFile, kBoardFile, kEepromFile}) {
        std::error_code ignored;
        std::filesystem::remove(SettingsPath(file), ignored);
    }
}

}  // namespace

std::filesystem::path SettingsPath(const char* file) {
    std::string folder(GetWindowsDirectoryA(nullptr, 0), '\0');
    folder.resize(GetWindowsDirectoryA(folder.data(), static_cast<UINT>(folder.size())));
    return std::filesystem::path(folder) / file;
}

SettingsFolder::SettingsFolder() {
    std::random_device random;
    folder_ = std::filesystem::temp_directory_path() /
              ("vxdtest-" + std::to_string(random()) + std::to_string(random()));
    std::filesystem::create_directories(folder_);
    SetEnvironmentVariableA("XDG_CONFIG_HOME", folder_.string().c_str());
    SetEnvironmentVariableA("XDG_RUNTIME_DIR", folder_.string().c_str());
    RemoveFiles();
}

SettingsFolder::~SettingsFolder() {
    RemoveFiles();
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
}

void SettingsFolder::Write(const char* file, const char* section, const char* key,
                           const char* text) const {
    WritePrivateProfileStringA(section, key, text, file);
}

std::string SettingsFolder::Read(const char* file, const char* section, const char* key) const {
    char text[512];
    GetPrivateProfileStringA(section, key, "(none)", text, sizeof text, file);
    return text;
}

}  // namespace kit
