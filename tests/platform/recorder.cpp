#include "tests/platform/recorder.h"

#include <gtest/gtest.h>

#include <future>
#include <map>

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

INT_PTR CALLBACK RecordingProcedure(HWND dialog, UINT message, WPARAM wParam, LPARAM) {
    Record& record = TheRecord();
    if (message == WM_INITDIALOG) {
        record.notifications += "init ";
        if (record.opening.act)
            record.opening.act(dialog);
        return record.opening.answer;
    }
    if (message != WM_COMMAND)
        return FALSE;
    const int id = LOWORD(wParam);
    record.notifications += std::to_string(id) + ":" + std::to_string(HIWORD(wParam)) + " ";
    if (const auto ending = record.endings.find(id); ending != record.endings.end())
        EndDialog(dialog, ending->second);
    return TRUE;
}

}  // namespace

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
    return OnUserInterface([] {
        std::string taken = std::move(TheRecord().notifications);
        TheRecord().notifications.clear();
        if (!taken.empty())
            taken.pop_back();
        return taken;
    });
}

void RecordedDialog::EndOn(int id, INT_PTR result) {
    OnUserInterface([=] { TheRecord().endings[id] = result; });
}

INT_PTR RecordedDialog::Result() {
    TheRecord().program.get();
    return TheRecord().result;
}

}  // namespace kit
