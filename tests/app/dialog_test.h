// The running utility's dialogs, with what their tests share.
#pragma once

#include <initializer_list>

#include "board/control.h"
#include "tests/app/received_calls.h"
#include "tests/kit/user_interface.h"
#include "tests/kit/utility.h"

using Texts = std::vector<std::string>;

// Dialogs that the test opens and closes.
class CommandTest : public testing::Test {
  protected:
    // Gives a command and gives the dialog that asks back.
    kit::Dialog Ask(UINT command, const char* caption) const {
        board::ForgetCalls();
        utility_.Command(command);
        return kit::WaitForDialog(caption);
    }

    // What the board receives when a button is pressed.
    static Texts ReceivedOn(const kit::Dialog& dialog, int button) {
        board::ForgetCalls();
        dialog.Press(button);
        return ReceivedCalls();
    }

    static Texts Shown(const kit::Dialog& dialog, const std::vector<int>& fields) {
        Texts texts;
        for (const int field : fields)
            texts.push_back(dialog.Text(field));
        return texts;
    }

    // Leaves a list or combo box without a selection, by its message for selecting.
    static void SelectNothing(const kit::Dialog& dialog, int list, UINT message) {
        kit::RunStep([&] {
            SendDlgItemMessageA(dialog.Handle(), list, message, static_cast<WPARAM>(-1), 0);
        });
    }

    kit::SettingsFolder settings_;
    kit::Utility utility_{settings_};
};

// A dialog that is open when the test begins, and is closed by one of its buttons behind the test.
class DialogTest : public CommandTest {
  protected:
    DialogTest(UINT command, const char* caption, int close)
        : command_(command), caption_(caption), close_(close) {
        Open();
    }
    ~DialogTest() override { dialog_.Press(close_); }

    // Opens it again.
    void Open() { dialog_ = Ask(command_, caption_); }

    void Type(std::initializer_list<std::pair<int, const char*>> fields) const {
        for (const auto& [field, text] : fields)
            dialog_.Type(field, text);
    }

    Texts Shown(const std::vector<int>& fields) const {
        return CommandTest::Shown(dialog_, fields);
    }

    Texts ReceivedOn(int button) const { return CommandTest::ReceivedOn(dialog_, button); }

    // The dialog is in front: no box reports anything.
    bool IsInFront() const { return kit::FrontDialog().Handle() == dialog_.Handle(); }

    // What a settings file has of the utility's own.
    std::string Stored(const char* section, const char* key) const {
        return settings_.Read(kit::kOwnFile, section, key);
    }

    kit::Dialog dialog_{nullptr};

  private:
    UINT command_;
    const char* caption_;
    int close_;
};
