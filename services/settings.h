// The settings that the utility keeps between runs: every key in one table, and the profile
// functions behind it. Nothing is held in memory: a value is read where it is needed and is in its
// file when the write returns. A failed write is not noticed. User-interface thread.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

// A value that stands as text under a key of a section of a file. Files named without a folder
// live where the system keeps its profile files. A key with "%d" in it is a series: one value for
// each number, which stands in that place, as in kEpromData[3].
template <typename Value>
struct Setting {
    const char* file;
    const char* section;
    const char* key;
    Value defaultValue;
    int number = 0;

    constexpr Setting operator[](int which) const {
        return {file, section, key, defaultValue, which};
    }
};
using IntegerSetting = Setting<int>;
using TextSetting = Setting<const char*>;

namespace setting {

// The utility's own file, and the one that the board's other programs share.
inline constexpr char kOwnFile[] = "kora_tst.ini";
inline constexpr char kSharedFile[] = "TALVERO.INI";

inline constexpr IntegerSetting kDebugLevel{kSharedFile, "KORA_TST", "DebugLevel", 1};
// Read from the utility's own file; the shared one is told too, for the board's other programs.
inline constexpr IntegerSetting kAlwaysOnTop{kOwnFile, "KORA_TST", "AlwaysOnTop", 0};
inline constexpr IntegerSetting kAlwaysOnTopShared{kSharedFile, "KORA_TST", "AlwaysOnTop", 0};
// The menu resource that the main window shows: 3 the older board's, 4 the newer one's.
inline constexpr IntegerSetting kMenu{kOwnFile, "KORA_TST", "Menu", 4};

// The I2C transfers. The operation: 0 reads a register, 1 writes an address, 2 writes a register.
inline constexpr IntegerSetting kI2cAddress{kOwnFile, "I2CAccess", "Address", 0};
inline constexpr IntegerSetting kI2cData1{kOwnFile, "I2CAccess", "Data1", 0};
inline constexpr IntegerSetting kI2cData2{kOwnFile, "I2CAccess", "Data2", 0};
inline constexpr IntegerSetting kI2cOperation{kOwnFile, "I2CAccess", "Operation", 0};

// The download of the codec processor's software: its four files, its sections on one line, and the
// folder of the file that was chosen last, with the separator behind it.
inline constexpr TextSetting kDownloadMonitor{kOwnFile, "VCP Download", "Monitor", ""};
inline constexpr TextSetting kDownloadCodec{kOwnFile, "VCP Download", "Codec", ""};
inline constexpr TextSetting kDownloadVcpIni{kOwnFile, "VCP Download", "VCP.INI", ""};
inline constexpr TextSetting kDownloadVpCode{kOwnFile, "VCP Download", "VPCODE", ""};
inline constexpr TextSetting kDownloadSections{kOwnFile, "VCP Download", "Sections", ""};
inline constexpr TextSetting kDownloadDirectory{kOwnFile, "VCP Download", "LastDirectory", ""};

// The EEPROM transfers. The operation is its button's number: 1070 reads, 1071 writes.
inline constexpr IntegerSetting kEpromAddress{kOwnFile, "EPROM DLG", "Address", 0};
inline constexpr IntegerSetting kEpromData{kOwnFile, "EPROM DLG", "Data%d", 0};  // 1 to 8
inline constexpr IntegerSetting kEpromLength{kOwnFile, "EPROM DLG", "Length", 1};
inline constexpr IntegerSetting kEpromOperation{kOwnFile, "EPROM DLG", "Operation", 1070};

// The user-data channels: the row last chosen in each one's list of rates, and how many bytes were
// sent last.
inline constexpr IntegerSetting kLsdRate{kOwnFile, "KORA_TST", "LSDRate", 0};
inline constexpr IntegerSetting kHsdRate{kOwnFile, "KORA_TST", "HSDRate", 0};
inline constexpr IntegerSetting kMlpRate{kOwnFile, "KORA_TST", "MLPRate", 0};
inline constexpr IntegerSetting kUserDataLength{kOwnFile, "KORA_TST", "UserData_LastLength", 1};

// The codec processor's variables: the names used last, the latest first, each with a hexadecimal
// number that holds its unit's row (high 16 bits) and its count; how often the last test accessed
// one, and the name that was last tested without being in the list.
inline constexpr TextSetting kVariableName{kOwnFile, "VCP", "LastVar%d", ""};
inline constexpr TextSetting kVariableShape{kOwnFile, "VCP", "LastParam%d", "20001"};
inline constexpr IntegerSetting kVariableTestLoops{kOwnFile, "VCP", "TestLoops", 512};
inline constexpr TextSetting kVariableTested{kOwnFile, "VCP", "LastVar", ""};

// The BAS commands.
inline constexpr IntegerSetting kBasCommandCount{kOwnFile, "BAS DLG", "NumberOfCommands", 1};
inline constexpr IntegerSetting kBasRepeatCount{kOwnFile, "BAS DLG", "RepeatCount", 1};
inline constexpr IntegerSetting kBasLength{kOwnFile, "BAS DLG", "Length", 1};
inline constexpr IntegerSetting kBasData{kOwnFile, "BAS DLG", "Data%d", 0};  // 1 to 6

// The video encoder: its mode and port, which of the encoders (0 BT855, 1 BT858), the entry that
// each table of colours opens on, and the tables themselves for other programs. Overlay 1 to 15,
// palette 0 to 255.
inline constexpr IntegerSetting kBasicsEncoder{kOwnFile, "BTbasics", "Encoder", 0};
inline constexpr IntegerSetting kEncoderMode{kOwnFile, "BTbasics", "Mode", 0};
inline constexpr IntegerSetting kEncoderPort{kOwnFile, "BTbasics", "Data", 0};
inline constexpr IntegerSetting kFieldsEncoder{kOwnFile, "BTfield", "Encoder", 0};
inline constexpr IntegerSetting kOverlayInitialEntry{kOwnFile, "BTOverlay", "InitialEntry", 1};
inline constexpr IntegerSetting kOverlayRed{kOwnFile, "BTOverlay", "Red_%d", 0};
inline constexpr IntegerSetting kOverlayGreen{kOwnFile, "BTOverlay", "Green_%d", 0};
inline constexpr IntegerSetting kOverlayBlue{kOwnFile, "BTOverlay", "Blue_%d", 0};
inline constexpr IntegerSetting kPaletteInitialEntry{kOwnFile, "BTPalette", "InitialEntry", 1};
inline constexpr IntegerSetting kPaletteRed{kOwnFile, "BTPalette", "Red_%d", 0};
inline constexpr IntegerSetting kPaletteGreen{kOwnFile, "BTPalette", "Green_%d", 0};
inline constexpr IntegerSetting kPaletteBlue{kOwnFile, "BTPalette", "Blue_%d", 0};

// The video post-processing. The mode word stands in unsigned decimal.
inline constexpr TextSetting kVppMode{kOwnFile, "VPP", "VPP_Mode", ""};
inline constexpr IntegerSetting kVppFrameRate{kOwnFile, "VPP", "FI_FrameRate", 20};
inline constexpr IntegerSetting kVppThresholdMin{kOwnFile, "VPP", "MVEC_ThresholdMin", 20};
inline constexpr IntegerSetting kVppThresholdMax{kOwnFile, "VPP", "MVEC_ThresholdMax", 20};

}  // namespace setting

// The leading digits of what stands there, the default where the key is absent.
int ReadSetting(const IntegerSetting& setting);
void WriteSetting(const IntegerSetting& setting, int value);

// The text that stands there, cut to `capacity` - 1 characters; the default where the key is
// absent.
std::string ReadSetting(const TextSetting& setting, std::size_t capacity);
void WriteSetting(const TextSetting& setting, const std::string& text);

// Writes values of one section together, in their order: a list that is cut short by the end of the
// program would hold the names of one time and the numbers of another.
struct SettingText {
    TextSetting setting;
    std::string text;
};
void WriteSettings(std::span<const SettingText> values);
// An integer, with or without a sign, as one of them.
SettingText TextOf(const IntegerSetting& setting, int64_t value);
