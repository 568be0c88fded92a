// "VCP Download": four files, each typed or browsed for, and the sections of the VCP.INI that are
// meant, one a line.
#include "codec/download.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "driver/papi.h"
#include "res/resource.h"
#include "services/diagnostics.h"
#include "services/dialog_kit.h"
#include "services/settings.h"

namespace {

constexpr char kCaption[] = "VCP Download";
constexpr char kOperation[] = "vdapi_VcpCode_Download";

// Sizes of texts with their terminator.
constexpr std::size_t kStoredText = 512;
constexpr std::size_t kPathText = 128;
constexpr std::size_t kSectionsText = 1024;
constexpr std::size_t kFolderText = 256;
constexpr std::size_t kFileTitle = 256;

// A type's name and its patterns; the last character is what separates the two.
constexpr char kAllFiles[] = "All files (*.*) | *.* ||";

struct PathField {
    int id;
    const char* name;
    const char* browseTitle;
    const TextSetting& setting;
};

enum File { kMonitor, kCodec, kVcpIni, kVpCode };

// In the order of the files.
constexpr auto kPathFields = std::to_array<PathField>({
    {IDC_DOWNLOAD_MONITOR, "Monitor", "Select Monitor File", setting::kDownloadMonitor},
    {IDC_DOWNLOAD_CODEC, "Codec", "Select Codec File", setting::kDownloadCodec},
    {IDC_DOWNLOAD_VCP_INI, "VCP.INI", "Select VCP.INI File", setting::kDownloadVcpIni},
    {IDC_DOWNLOAD_VP_CODE, "VpCode", "Select VpCode File", setting::kDownloadVpCode},
});

struct Download {
    std::array<std::string, kPathFields.size()> paths;
    std::string sections;  // on one line
};

// --- The sections' two forms ---

// Puts two characters in the place of each `mark` and the character behind it, whatever that is.
std::string ReplacePairs(const std::string& text, char mark, const char* pair) {
    std::string replaced;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] == mark) {
            replaced += pair;
            ++at;
        } else {
            replaced += text[at];
        }
    }
    return replaced;
}

std::string LinesOf(const std::string& oneLine) {
    return ReplacePairs(oneLine, ';', "\r\n");
}

std::string OneLineOf(const std::string& lines) {
    return ReplacePairs(lines, '\r', "; ");
}

// A line's form that comes back whole: LinesOf takes a blank with each semicolon, so one that was
// typed without gets it.
std::string StoredForm(const std::string& oneLine) {
    std::string stored;
    for (std::size_t at = 0; at < oneLine.size(); ++at) {
        stored += oneLine[at];
        if (oneLine[at] == ';' && oneLine.compare(at + 1, 1, " ") != 0) {
            stored += ' ';
        }
    }
    return stored;
}

// The names in their brackets. What stands outside of brackets is none, nor is one that is left
// open.
std::vector<std::string> SectionsIn(const std::string& text) {
    std::vector<std::string> sections;
    std::size_t end = 0;
    for (;;) {
        const std::size_t start = text.find('[', end);
        end = start != std::string::npos ? text.find(']', start) : start;
        if (end == std::string::npos) {
            return sections;
        }
        ++end;
        sections.push_back(text.substr(start, end - start));
    }
}

// --- Browsing ---

std::string FolderToBeginIn() {
    std::string folder = ReadSetting(setting::kDownloadDirectory, kFolderText);
    if (folder.empty()) {
        char system[MAX_PATH] = "";
        GetSystemDirectoryA(system, sizeof system);
        folder = system;
    }
    return folder;
}

// As the dialog wants it: each text with a zero behind it, and one more at the end.
std::string FilterList(std::string filter) {
    std::ranges::replace(filter, filter.back(), '\0');
    return filter;
}

// Asks for a file and remembers its folder. Whether one was chosen, whose path is then in `path`.
bool BrowseForFile(HWND owner, const char* title, std::string& path, const char* filter) {
    char file[kPathText] = "";
    char fileTitle[kFileTitle] = "";
    const std::string filters = FilterList(filter);
    const std::string folder = FolderToBeginIn();
    OPENFILENAMEA question{};
    question.lStructSize = sizeof question;
    question.hwndOwner = owner;
    question.lpstrFilter = filters.c_str();
    question.nFilterIndex = 1;
    question.lpstrFile = file;
    question.nMaxFile = sizeof file;
    question.lpstrFileTitle = fileTitle;
    question.nMaxFileTitle = sizeof fileTitle;
    question.lpstrInitialDir = folder.c_str();
    question.lpstrTitle = title;
    question.Flags = OFN_FILEMUSTEXIST | OFN_PATHMUSTEXIST | OFN_SHOWHELP | OFN_HIDEREADONLY;
    if (!GetOpenFileNameA(&question)) {
        if (CommDlgExtendedError() == FNERR_BUFFERTOOSMALL) {
            ShowMessage(owner, MessageKind::kWarning,
                        "The path of this file is too long: it may have 127 characters.", nullptr);
        }
        return false;
    }
    path = file;
    if (question.nFileOffset > 0) {
        WriteSetting(setting::kDownloadDirectory, path.substr(0, question.nFileOffset));
    }
    return true;
}

template <File kFile>
void Browse(HWND dialog) {
    const PathField& field = kPathFields[kFile];
    std::string path;
    if (BrowseForFile(dialog, field.browseTitle, path, kAllFiles)) {
        SetDlgItemTextA(dialog, field.id, path.c_str());
    }
}

// --- Downloading ---

// Whether a field holds no more than can be handed over. More is told, not cut: another file would
// be meant.
bool IsShortEnough(HWND dialog, int id, const char* name, std::size_t capacity) {
    const auto length = static_cast<std::size_t>(GetWindowTextLengthA(GetDlgItem(dialog, id)));
    if (length < capacity) {
        return true;
    }
    const std::string text = std::string(name) + ": no more than " + std::to_string(capacity - 1) +
                             " characters can be sent, and here are " + std::to_string(length) +
                             ".";
    ShowMessage(dialog, MessageKind::kWarning, text.c_str(), nullptr);
    return false;
}

// Takes the fields; whether they are fit for a download. What is not has been told.
bool Take(HWND dialog, Download& download) {
    for (std::size_t file = 0; file < kPathFields.size(); ++file) {
        download.paths[file] = FieldText(dialog, kPathFields[file].id, kPathText);
    }
    download.sections = OneLineOf(FieldText(dialog, IDC_DOWNLOAD_SECTIONS, kSectionsText));
    for (const File needed : {kCodec, kVcpIni}) {
        if (download.paths[needed].empty()) {
            ShowBox(nullptr, "Empty FileName", kCaption, MB_ICONHAND | MB_TASKMODAL);
            return false;
        }
    }
    return std::ranges::all_of(kPathFields,
                               [dialog](const PathField& field) {
                                   return IsShortEnough(dialog, field.id, field.name, kPathText);
                               }) &&
           IsShortEnough(dialog, IDC_DOWNLOAD_SECTIONS, "Sections", kSectionsText);
}

void Remember(const Download& download) {
    std::vector<SettingText> values;
    for (std::size_t file = 0; file < kPathFields.size(); ++file) {
        values.push_back({kPathFields[file].setting, download.paths[file]});
    }
    values.push_back({setting::kDownloadSections, StoredForm(download.sections)});
    WriteSettings(values);
}

ResultCode Send(const Download& download) {
    const std::vector<std::string> sections = SectionsIn(download.sections);
    std::vector<const char*> names;
    for (const std::string& section : sections) {
        names.push_back(section.c_str());
    }
    const auto& paths = download.paths;
    return CodeOf(vdapi_VcpCode_Download(paths[kMonitor].c_str(), paths[kCodec].c_str(),
                                         paths[kVcpIni].c_str(), paths[kVpCode].c_str(),
                                         static_cast<uint32_t>(names.size()), names.data()));
}

void RunDownload(HWND dialog) {
    Download download;
    if (Take(dialog, download)) {
        Remember(download);
        ReportFailure(dialog, Send(download), kOperation);
    }
}

void Open(HWND dialog) {
    for (const PathField& field : kPathFields) {
        SetDlgItemTextA(dialog, field.id, ReadSetting(field.setting, kStoredText).c_str());
    }
    const std::string sections = ReadSetting(setting::kDownloadSections, kStoredText);
    SetDlgItemTextA(dialog, IDC_DOWNLOAD_SECTIONS, LinesOf(sections).c_str());
}

constexpr auto kActions = std::to_array<DialogAction>({
    {IDC_DOWNLOAD_BROWSE_MONITOR, Browse<kMonitor>},
    {IDC_DOWNLOAD_BROWSE_CODEC, Browse<kCodec>},
    {IDC_DOWNLOAD_BROWSE_VCP_INI, Browse<kVcpIni>},
    {IDC_DOWNLOAD_BROWSE_VP_CODE, Browse<kVpCode>},
    {IDOK, RunDownload},
    {IDCANCEL, EndWith<2>},
});

}  // namespace

INT_PTR OpenDownload(HINSTANCE instance, HWND owner) {
    return RunDialog(instance, IDD_DOWNLOAD, owner, {Open, kActions});
}
