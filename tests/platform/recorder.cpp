#include "tests/platform/recorder.h"

#include "tests/kit/user_interface.h"

namespace kit {
namespace {

// Belongs to the user-interface thread while the dialog runs.
struct Record {
    RecordedDialog::Opening opening;
    std::string notifications;
    std::map<int, INT_PTR> endings;
    std::future<int> program;
    INT_PTR result = 0;
};

Record& TheRecord() {
    static Record record;
    return record;
}

void WriteDown(const std::string& what) {
    TheRecord().notifications += what + " ";
}

INT_PTR Initialise(HWND dialog, WPARAM first) {
    const Record& record = TheRecord();
    WriteDown("init:" + std::to_string(GetDlgCtrlID(reinterpret_cast<HWND>(first))));
    if (record.opening.act)
        record.opening.act(dialog);
    return record.opening.answer;
}

void ObeyCommand(HWND dialog, int id, int code, bool fromControl) {
    WriteDown(fromControl ? Code(id, code) : std::to_string(id));
    const auto& endings = TheRecord().endings;
    if (const auto ending = endings.find(id); ending != endings.end())
        EndDialog(dialog, ending->second);
}

void RecordLife(UINT message, WPARAM wParam) {
    if (message == WM_SETFONT)
        WriteDown("font");
    if (message == WM_SHOWWINDOW && wParam != 0)
        WriteDown("shown");
    if (message == WM_DESTROY)
        WriteDown("destroyed");
}

INT_PTR CALLBACK RecordingProcedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_INITDIALOG:
            return Initialise(dialog, wParam);
        case WM_COMMAND:
            ObeyCommand(dialog, LOWORD(wParam), HIWORD(wParam), lParam != 0);
            return TRUE;
        default:
            if (TheRecord().opening.life)
                RecordLife(message, wParam);
            return FALSE;
    }
}

std::string Take() {
    std::string taken = std::exchange(TheRecord().notifications, {});
    if (!taken.empty())
        taken.pop_back();
    return taken;
}

}  // namespace

std::string Code(int id, int code) {
    return std::to_string(id) + ":" + std::to_string(code);
}

RecordedDialog::RecordedDialog(int templateId, const std::string& caption)
    : RecordedDialog(templateId, caption, Opening()) {}

RecordedDialog::RecordedDialog(int templateId, const std::string& caption, Opening opening) {
    TheRecord().opening = std::move(opening);
    TheRecord().program = StartProgram([templateId] {
        TheRecord().result =
            DialogBoxParamA(GetModuleHandleA(nullptr), MAKEINTRESOURCEA(templateId), nullptr,
                            RecordingProcedure, 0);
        return 0;
    });
    dialog_ = WaitForDialog(caption);
}

RecordedDialog::~RecordedDialog() {
    if (!TheRecord().program.valid())
        return;
    OnUserInterface([this] { EndDialog(dialog_.Handle(), 0); });
    Result();
}

std::string RecordedDialog::TakeNotifications() {
    // After its end nobody else looks at the record.
    return TheRecord().program.valid() ? OnUserInterface(Take) : Take();
}

void RecordedDialog::EndOn(int id, INT_PTR result) {
    OnUserInterface([=] { TheRecord().endings[id] = result; });
}

INT_PTR RecordedDialog::Result() {
    TheRecord().program.get();
    return TheRecord().result;
}

}  // namespace kit
