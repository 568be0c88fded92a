// Assistive tools on the screen for people: they act on the widgets without mouse or keys, and what
// they change is the program's to decide like a click.
#include <gtest/gtest.h>

#include <QAccessible>
#include <QCheckBox>
#include <QComboBox>
#include <QListWidget>
#include <functional>
#include <future>
#include <string>
#include <vector>

#include "platform/win32.h"
#include "tests/kit/dialog.h"
#include "tests/kit/user_interface.h"
#include "tests/qt/form.h"
#include "tests/qt/native.h"

namespace {

using kit::OnUserInterface;

// The controls that have told of something, one number each time. User-interface thread.
std::vector<int> theNotices;

INT_PTR CALLBACK FormProcedure(HWND dialog, UINT message, WPARAM wParam, LPARAM) {
    switch (message) {
        case WM_INITDIALOG:
            for (const char* row : {"alpha", "beta", "gamma", "delta"}) {
                const auto text = reinterpret_cast<LPARAM>(row);
                for (const int combo : {IDC_PLACE, IDC_WORD, IDC_SIMPLE})
                    SendDlgItemMessageA(dialog, combo, CB_ADDSTRING, 0, text);
                SendDlgItemMessageA(dialog, IDC_LIST, LB_ADDSTRING, 0, text);
            }
            CheckRadioButton(dialog, IDC_RED, IDC_BLUE, IDC_RED);
            SendDlgItemMessageA(dialog, IDC_NOTE, EM_SETREADONLY, TRUE, 0);
            return TRUE;
        case WM_COMMAND:
            if (HIWORD(wParam) == BN_CLICKED || HIWORD(wParam) == LBN_SELCHANGE)
                theNotices.push_back(LOWORD(wParam));
            return TRUE;
        default:
            return FALSE;
    }
}

// User-interface thread.
QAccessibleInterface& ToolsView(HWND window) {
    return *QAccessible::queryAccessibleInterface(native::WidgetOf(window));
}

class ToolsOnForm : public testing::Test {
  protected:
    ToolsOnForm()
        : result_(kit::StartProgram([] {
              return static_cast<int>(DialogBoxParamA(GetModuleHandleA(nullptr),
                                                      MAKEINTRESOURCEA(IDD_FORM), nullptr,
                                                      FormProcedure, 0));
          })),
          form_(kit::WaitForDialog("Form")) {
        native::Do([] {});
    }
    ~ToolsOnForm() override {
        OnUserInterface([this] { EndDialog(form_.Handle(), 0); });
        result_.wait();
    }

    // A tool's toggle of a button, and of a row in the list that is the `list`th part of a control.
    void Toggle(int id) const {
        native::Do([window = form_.Control(id)] { DoToggle(ToolsView(window)); });
    }
    void ToggleRow(int id, int list, int row) const {
        native::Do([=, window = form_.Control(id)] {
            QAccessibleInterface* rows = &ToolsView(window);
            if (list >= 0)
                rows = rows->child(list);
            DoToggle(*rows->child(row));
        });
        // A list that drops down looks behind what is going on who has selected there.
        native::Do([] {});
    }
    static void DoToggle(QAccessibleInterface& thing) {
        thing.actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    }

    static std::vector<int> TakeNotices() {
        return OnUserInterface([] { return std::exchange(theNotices, {}); });
    }

    // What the widgets show, as one text.
    std::string Shown() const {
        return OnUserInterface([this] {
            const auto at = [this](int id) { return GetDlgItem(form_.Handle(), id); };
            std::string shown;
            for (const int id : {IDC_RED, IDC_GREEN, IDC_BLUE, IDC_MANUAL})
                shown += native::As<QAbstractButton>(at(id))->isChecked() ? '1' : '0';
            shown += std::to_string(native::As<QCheckBox>(at(IDC_THREE))->checkState());
            for (const int id : {IDC_PLACE, IDC_WORD})
                shown += " " + std::to_string(native::As<QComboBox>(at(id))->currentIndex());
            for (const QAbstractItemView* list :
                 {native::As<QAbstractItemView>(at(IDC_LIST)),
                  native::WidgetOf(at(IDC_SIMPLE))->findChild<QAbstractItemView*>()}) {
                shown += " ";
                for (const QModelIndex& index : list->selectionModel()->selectedIndexes())
                    shown += std::to_string(index.row());
            }
            return shown;
        });
    }

    std::future<int> result_;
    kit::Dialog form_;
};

TEST_F(ToolsOnForm, AToggleIsAClickAndAFormShowsWhatTheProgramMakesOfIt) {
    EXPECT_EQ(Shown(), "10000 -1 -1  ");
    struct Case {
        int toggled;
        const char* shown;
    };
    for (const Case& each : {Case{IDC_MANUAL, "10000 -1 -1  "}, Case{IDC_THREE, "10002 -1 -1  "},
                             Case{IDC_THREE, "10001 -1 -1  "}, Case{IDC_GREEN, "01001 -1 -1  "},
                             Case{IDC_GREEN, "01001 -1 -1  "}, Case{IDC_RED, "10001 -1 -1  "}}) {
        Toggle(each.toggled);
        EXPECT_EQ(Shown(), each.shown) << each.toggled;
        EXPECT_EQ(TakeNotices(), std::vector<int>{each.toggled});
    }
}

TEST_F(ToolsOnForm, ARowThatIsSelectedIsChosen) {
    constexpr int kItself = -1;
    constexpr int kSimplesList = 1;
    ToggleRow(IDC_LIST, kItself, 2);
    ToggleRow(IDC_PLACE, 0, 1);
    ToggleRow(IDC_WORD, 0, 3);
    ToggleRow(IDC_SIMPLE, kSimplesList, 0);
    EXPECT_EQ(Shown(), "10000 1 3 2 0");
    EXPECT_EQ(TakeNotices(), (std::vector<int>{IDC_LIST, IDC_PLACE, IDC_WORD, IDC_SIMPLE}));
    EXPECT_EQ(form_.SelectedRow(IDC_LIST), 2);
    EXPECT_EQ(form_.Text(IDC_WORD), "delta");
    // One selected row goes only where another comes.
    ToggleRow(IDC_LIST, kItself, 2);
    ToggleRow(IDC_PLACE, 0, 1);
    EXPECT_EQ(Shown(), "10000 1 3 2 0");
    EXPECT_EQ(TakeNotices(), std::vector<int>{});
    ToggleRow(IDC_LIST, kItself, 0);
    EXPECT_EQ(form_.SelectedRow(IDC_LIST), 0);
}

TEST_F(ToolsOnForm, AListThatAToolDropsClosesWithTheChoiceAndKeysChooseAsEver) {
    const HWND place = form_.Control(IDC_PLACE);
    const auto isDropped = [place] {
        return OnUserInterface([place] { return ToolsView(place).state().expanded == 1; });
    };
    const auto drop = [place] {
        native::Do([place] {
            ToolsView(place).actionInterface()->doAction(
                QAccessibleActionInterface::showMenuAction());
        });
    };
    drop();
    EXPECT_TRUE(isDropped());
    ToggleRow(IDC_PLACE, 0, 2);
    EXPECT_FALSE(isDropped());
    EXPECT_EQ(form_.SelectedRow(IDC_PLACE), 2);
    drop();
    native::Press(Qt::Key_Down);
    EXPECT_TRUE(isDropped()) << "an arrow key was taken for a choice";
    native::Press(Qt::Key_Return);
    EXPECT_EQ(form_.SelectedRow(IDC_PLACE), 3);
    EXPECT_EQ(TakeNotices(), (std::vector<int>{IDC_PLACE, IDC_PLACE}));
}

TEST_F(ToolsOnForm, NothingChangesInAFormThatTakesNoInput) {
    OnUserInterface([this] { EnableWindow(form_.Handle(), FALSE); });
    const std::string before = Shown();
    Toggle(IDC_GREEN);
    Toggle(IDC_THREE);
    ToggleRow(IDC_LIST, -1, 2);
    ToggleRow(IDC_PLACE, 0, 2);
    EXPECT_EQ(Shown(), before);
    EXPECT_EQ(TakeNotices(), std::vector<int>{});
}

TEST_F(ToolsOnForm, ControlsHaveNamesAndSayWhatTheyAre) {
    struct Case {
        int id;
        const char* name;
        QAccessible::Role role;
    };
    const auto expect = [](QAccessibleInterface& view, const char* name, QAccessible::Role role) {
        EXPECT_EQ(view.text(QAccessible::Name).toStdString(), name);
        EXPECT_EQ(view.role(), role) << name;
    };
    OnUserInterface([&] {
        expect(ToolsView(form_.Handle()), "Form", QAccessible::Dialog);
        for (const Case& each :
             {Case{IDC_NAME, "Name:", QAccessible::EditableText},
              Case{IDC_RED, "Red", QAccessible::RadioButton},
              Case{IDC_THREE, "Three", QAccessible::CheckBox},
              Case{IDC_NOTE, "Name:", QAccessible::EditableText},
              Case{IDC_PLACE, "", QAccessible::ComboBox},
              Case{IDC_SIMPLE, "", QAccessible::ComboBox}, Case{IDC_LIST, "", QAccessible::List},
              Case{IDC_APPLY, "Apply", QAccessible::Button}})
            expect(ToolsView(GetDlgItem(form_.Handle(), each.id)), each.name, each.role);
        EXPECT_TRUE(ToolsView(GetDlgItem(form_.Handle(), IDC_NOTE)).state().readOnly);
        EXPECT_FALSE(ToolsView(GetDlgItem(form_.Handle(), IDC_NAME)).state().readOnly);
        EXPECT_FALSE(ToolsView(form_.Handle()).state().modal) << "there is nothing behind it";
        // A label that is called otherwise names its field so.
        SetWindowTextA(GetWindow(form_.Handle(), GW_CHILD), "N&ew name:");
        expect(ToolsView(GetDlgItem(form_.Handle(), IDC_NAME)),
               "New name:", QAccessible::EditableText);
    });
}

TEST_F(ToolsOnForm, AFieldIsReadSelectedAndWrittenAndOneThatOnlyShowsItsTextSaysSo) {
    const HWND name = form_.Control(IDC_NAME);
    const auto text = [&] { return ToolsView(name).textInterface(); };
    const auto write = [&](const std::function<void(QAccessibleEditableTextInterface&)>& action) {
        native::Do([&] { action(*ToolsView(name).editableTextInterface()); });
        return form_.Text(IDC_NAME);
    };
    OnUserInterface([&] { SetWindowTextA(name, "0x98 gr\xC3\xBCn"); });
    native::Do([&] { text()->setSelection(0, 2, 7); });
    OnUserInterface([&] {
        EXPECT_EQ(text()->characterCount(), 9);
        EXPECT_EQ(text()->text(6, 9).toStdString(), "r\xC3\xBCn");
        EXPECT_EQ(ToolsView(name).text(QAccessible::Value).toStdString(), "0x98 gr\xC3\xBCn");
        EXPECT_EQ(SendMessageA(name, EM_GETSEL, 0, 0), MAKELONG(2, 7));
        for (const int offset : {0, 3, 8}) {
            const QRect place = text()->characterRect(offset);
            EXPECT_TRUE(place.isValid());
            EXPECT_EQ(text()->offsetAtPoint(QPoint(place.left() + 1, place.center().y())), offset);
        }
        EXPECT_EQ(text()->offsetAtPoint(QPoint(-1, -1)), -1);
    });
    EXPECT_EQ(write([](auto& field) { field.replaceText(2, 4, "0A"); }), "0x0A gr\xC3\xBCn");
    EXPECT_EQ(write([](auto& field) { field.deleteText(4, 9); }), "0x0A");
    EXPECT_EQ(write([](auto& field) { field.insertText(4, "F"); }), "0x0AF");
    OnUserInterface([&] { EXPECT_TRUE(ToolsView(name).state().editable); });
    OnUserInterface([&] { SendMessageA(name, EM_SETREADONLY, TRUE, 0); });
    native::Do([&] { ToolsView(name).setText(QAccessible::Value, "0x77"); });
    OnUserInterface([&] {
        EXPECT_TRUE(ToolsView(name).state().readOnly);
        EXPECT_FALSE(ToolsView(name).state().editable);
        EXPECT_EQ(ToolsView(name).editableTextInterface(), nullptr);
    });
    EXPECT_EQ(form_.Text(IDC_NAME), "0x0AF");
}

TEST_F(ToolsOnForm, AMessageBoxSaysThatItIsOneAndModal) {
    kit::BeginStep([this] { MessageBoxA(form_.Handle(), "R&D", "Warning", MB_OK); });
    const kit::Dialog box = kit::WaitForDialog("Warning");
    OnUserInterface([&box] {
        const QAccessibleInterface& view = ToolsView(box.Handle());
        EXPECT_EQ(view.role(), QAccessible::AlertMessage);
        EXPECT_EQ(view.text(QAccessible::Name), "Warning");
        EXPECT_TRUE(view.state().modal);
        EXPECT_EQ(view.child(0)->text(QAccessible::Name), "R&D") << "this text has no keys";
    });
    kit::MeetBox("Warning", "R&D");
}

}  // namespace
