// The settings files that the program under test reads and writes. Engineer's thread, before the
// program starts or while it waits.
#pragma once

#include "tests/kit/test.h"

namespace kit {

inline constexpr char kOwnFile[] = "kora_tst.ini";
inline constexpr char kSharedFile[] = "TALVERO.INI";
inline constexpr char kBoardFile[] = "board.ini";
inline constexpr char kEepromFile[] = "board.eeprom";

// Where the system keeps the settings file of this name.
std::filesystem::path SettingsPath(const char* file);

// A settings folder with none of the files in it, for this process. Where the system has only one
// folder for all, the files are taken out of it. Debug output, too, goes to monitors of this
// process alone where the system allows that.
class SettingsFolder {
  public:
    SettingsFolder();
    ~SettingsFolder();
    SettingsFolder(const SettingsFolder&) = delete;
    SettingsFolder& operator=(const SettingsFolder&) = delete;

    void Write(const char* file, const char* section, const char* key, const char* text) const;
    // What stands in the file; "(none)" where the key is not there.
    std::string Read(const char* file, const char* section, const char* key) const;

  private:
    std::filesystem::path folder_;
};

}  // namespace kit
