// Asking for a file: the screen shows the dialog, here is what goes on around it.
#include "platform/core/file_dialog.h"

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/core/activation.h"
#include "platform/core/queue.h"
#include "platform/core/window.h"
#include "platform/win32.h"

namespace vxd {
namespace {

struct OpenQuestion {
    FileQuestion asked;
    std::optional<std::string> answer;
};

OpenQuestion* theQuestion = nullptr;
DWORD theError = 0;

std::string_view Trimmed(std::string_view text) {
    const std::size_t start = std::min(text.find_first_not_of(' '), text.size());
    return text.substr(start, text.find_last_not_of(' ') + 1 - start);
}

// Names without a dot match *.* too.
std::vector<std::string> PatternsOf(std::string_view list) {
    std::vector<std::string> patterns;
    while (!list.empty()) {
        const std::string_view pattern = Trimmed(list.substr(0, list.find(';')));
        list.remove_prefix(std::min(list.find(';'), list.size() - 1) + 1);
        if (!pattern.empty()) {
            patterns.emplace_back(pattern == "*.*" ? "*" : pattern);
        }
    }
    return patterns;
}

std::vector<FileQuestion::Type> TypesOf(LPCSTR filter) {
    std::vector<FileQuestion::Type> types;
    while (filter != nullptr && *filter != '\0') {
        const std::string name = filter;
        filter += name.size() + 1;
        const std::string_view patterns = filter;
        filter += patterns.size() + 1;
        types.push_back({name, PatternsOf(patterns)});
    }
    return types;
}

std::string TextOr(LPCSTR text, const char* otherwise) {
    return text != nullptr ? text : otherwise;
}

bool IsFile(const std::string& path) {
    WIN32_FILE_ATTRIBUTE_DATA attributes;
    return GetFileAttributesExA(path.c_str(), GetFileExInfoStandard, &attributes) &&
           (attributes.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

// Serves the program's other windows and its timers until the person has answered; an empty path
// when none was chosen, when the owner is gone or when the program is to end.
std::string WaitForAnswer(const OpenQuestion& question, HWND owner) {
    while (!question.answer && (owner == nullptr || IsLiveWindow(owner))) {
        MSG message;
        if (!GetMessageA(&message, nullptr, 0, 0)) {
            PostQuitMessage(static_cast<int>(message.wParam));
            break;
        }
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
    return question.answer.value_or("");
}

std::string AskOnce(const FileQuestion& asked, HWND owner) {
    OpenQuestion question{asked, std::nullopt};
    theQuestion = &question;
    CurrentScreen().AskForFile(asked);
    const std::string path = WaitForAnswer(question, owner);
    theQuestion = nullptr;
    CurrentScreen().CloseFileDialog();
    return path;
}

std::string Ask(FileQuestion asked, HWND owner, bool mustExist) {
    for (;;) {
        const std::string path = AskOnce(asked, owner);
        if (path.empty() || !mustExist || IsFile(path)) {
            return path;
        }
        const std::string text = path + "\nThere is no such file.";
        MessageBoxA(owner, text.c_str(), asked.title.c_str(), MB_ICONEXCLAMATION);
        asked.folder = path.substr(0, path.rfind('/') + 1);
    }
}

// The owner takes no input and has not got the focus while a file is asked for.
class SetAside {
  public:
    explicit SetAside(HWND owner) : owner_(owner), wasEnabled_(IsWindowEnabled(owner) != 0) {
        EnableWindow(owner_, FALSE);
        Activate(nullptr);
    }
    ~SetAside() {
        if (wasEnabled_) {
            EnableWindow(owner_, TRUE);
        }
        if (Window* owner = FindWindowOf(owner_);
            owner != nullptr && owner->IsEnabled() && owner->IsVisible()) {
            Activate(owner);
        }
    }
    SetAside(const SetAside&) = delete;
    SetAside& operator=(const SetAside&) = delete;

  private:
    HWND owner_;
    bool wasEnabled_;
};

BOOL Give(const std::string& path, OPENFILENAMEA& question) {
    const std::size_t name = path.rfind('/') + 1;
    const std::size_t dot = path.rfind('.');
    if (path.size() >= question.nMaxFile) {
        theError = FNERR_BUFFERTOOSMALL;
        return FALSE;
    }
    CopyText(path, question.lpstrFile, static_cast<int>(question.nMaxFile));
    if (question.lpstrFileTitle != nullptr) {
        CopyText(path.substr(name), question.lpstrFileTitle,
                 static_cast<int>(question.nMaxFileTitle));
    }
    question.nFileOffset = static_cast<WORD>(name);
    question.nFileExtension =
        dot != std::string::npos && dot > name ? static_cast<WORD>(dot + 1) : WORD{0};
    return TRUE;
}

}  // namespace

const FileQuestion* OpenFileQuestion() {
    return theQuestion != nullptr ? &theQuestion->asked : nullptr;
}

void FileAnswered(const std::string& path) {
    if (theQuestion != nullptr) {
        theQuestion->answer = path;
    }
}

}  // namespace vxd

BOOL WINAPI GetOpenFileNameA(LPOPENFILENAMEA question) {
    vxd::theError = 0;
    if (question == nullptr || question->lpstrFile == nullptr || vxd::theQuestion != nullptr ||
        !vxd::ClaimUserInterfaceThread()) {
        return FALSE;
    }
    vxd::Window* given = vxd::FindWindowOf(question->hwndOwner);
    const HWND owner = given != nullptr ? vxd::TopLevelOf(*given).handle : nullptr;
    const vxd::FileQuestion asked{
        vxd::TextOr(question->lpstrTitle, "Open"), vxd::HandleNumber(owner),
        vxd::TextOr(question->lpstrInitialDir, ""), vxd::TypesOf(question->lpstrFilter)};
    std::string path;
    {
        const vxd::SetAside aside(owner);
        path = vxd::Ask(asked, owner, (question->Flags & OFN_FILEMUSTEXIST) != 0);
    }
    return !path.empty() && vxd::Give(path, *question);
}

DWORD WINAPI CommDlgExtendedError() {
    return vxd::theError;
}
