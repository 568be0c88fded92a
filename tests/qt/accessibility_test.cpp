// Assistive tools on the screen for people: they act on the widgets without mouse or keys, and what
// they change is the program's to decide like a click.
#include <QAccessible>
#include <QCheckBox>
#include <QComboBox>
#include <QListWidget>

#include "tests/qt/form_test.h"

namespace {

using kit::OnUserInterface;

// User-interface thread.
QAccessibleInterface& ToolsView(HWND window) {
    return *QAccessible::queryAccessibleInterface(native::WidgetOf(window));
}

void DoToggle(QAccessibleInterface& thing) {
    thing.actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
}

class ToolsOnForm : public form::FormTest {
  protected:
    // A tool's toggle of a button, and of a row in a list or in the one that a combo box has.
    void Toggle(int id) const {
        native::Do([window = Control(id)] { DoToggle(ToolsView(window)); });
    }
    void ToggleRow(int id, int row) const {
        native::Do([row, window = Control(id)] {
            QAccessibleInterface* rows = &ToolsView(window);
            for (int part = 0; rows->role() != QAccessible::List; ++part)
                rows = ToolsView(window).child(part);
            DoToggle(*rows->child(row));
        });
        // A list that drops down looks behind what is going on who has selected there.
        native::Do([] {});
    }

    // The controls that have told of a click or a choice, one number each time.
    static std::vector<int> TakeChoices() {
        return OnUserInterface([] {
            std::vector<int> choices;
            for (const auto& [control, code] : std::exchange(form::Notices(), {})) {
                if (code == BN_CLICKED || code == LBN_SELCHANGE)
                    choices.push_back(control);
            }
            return choices;
        });
    }

    // What the widgets show: the marks of the buttons, and the selected rows.
    std::string Marks() const {
        std::string marks;
        for (const int id : {IDC_RED, IDC_GREEN, IDC_BLUE, IDC_MANUAL})
            marks += Shown<QAbstractButton>(id, &QAbstractButton::isChecked) ? '1' : '0';
        return marks + std::to_string(Shown<QCheckBox>(IDC_THREE, &QCheckBox::checkState));
    }
    std::string Rows() const {
        std::string rows;
        for (const int id : {IDC_PLACE, IDC_WORD})
            rows += std::to_string(Shown<QComboBox>(id, &QComboBox::currentIndex)) + " ";
        for (const int id : {IDC_LIST, IDC_SIMPLE}) {
            rows += Shown<QWidget>(id, [](QWidget& widget) {
                auto* list = qobject_cast<QAbstractItemView*>(&widget);
                list = list != nullptr ? list : widget.findChild<QAbstractItemView*>();
                return std::to_string(list->selectionModel()->selectedRows().value(0).row()) + " ";
            });
        }
        return rows;
    }
};

TEST_F(ToolsOnForm, AToggleIsAClickAndAFormShowsWhatTheProgramMakesOfIt) {
    EXPECT_EQ(Marks(), "10000");
    for (const auto& [toggled, marks] :
         std::vector<std::pair<int, const char*>>{{IDC_MANUAL, "10000"},
                                                  {IDC_THREE, "10002"},
                                                  {IDC_THREE, "10001"},
                                                  {IDC_GREEN, "01001"},
                                                  {IDC_GREEN, "01001"},
                                                  {IDC_RED, "10001"}}) {
        Toggle(toggled);
        EXPECT_EQ(Marks(), marks) << toggled;
        EXPECT_EQ(TakeChoices(), std::vector<int>{toggled});
    }
}

TEST_F(ToolsOnForm, ARowThatIsSelectedIsChosen) {
    EXPECT_EQ(Rows(), "-1 -1 -1 -1 ");
    // One selected row goes only where another comes.
    for (const bool again : {false, true}) {
        ToggleRow(IDC_LIST, 2);
        ToggleRow(IDC_PLACE, 1);
        ToggleRow(IDC_WORD, 3);
        ToggleRow(IDC_SIMPLE, 0);
        EXPECT_EQ(Rows(), "1 3 2 0 ");
        EXPECT_EQ(TakeChoices(),
                  again ? std::vector<int>{}
                        : std::vector<int>({IDC_LIST, IDC_PLACE, IDC_WORD, IDC_SIMPLE}));
    }
    EXPECT_EQ(form_.SelectedRow(IDC_LIST), 2);
    EXPECT_EQ(form_.Text(IDC_WORD), "delta");
    ToggleRow(IDC_LIST, 0);
    EXPECT_EQ(form_.SelectedRow(IDC_LIST), 0);
}

TEST_F(ToolsOnForm, AListThatAToolDropsClosesWithTheChoiceAndKeysChooseAsEver) {
    const HWND place = Control(IDC_PLACE);
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
    ToggleRow(IDC_PLACE, 2);
    EXPECT_FALSE(isDropped());
    EXPECT_EQ(form_.SelectedRow(IDC_PLACE), 2);
    drop();
    native::Press(Qt::Key_Down);
    EXPECT_TRUE(isDropped()) << "an arrow key was taken for a choice";
    native::Press(Qt::Key_Return);
    EXPECT_EQ(form_.SelectedRow(IDC_PLACE), 3);
}

TEST_F(ToolsOnForm, NothingChangesInAFormThatTakesNoInput) {
    OnUserInterface([this] { EnableWindow(form_.Handle(), FALSE); });
    Toggle(IDC_GREEN);
    Toggle(IDC_THREE);
    ToggleRow(IDC_LIST, 2);
    ToggleRow(IDC_PLACE, 2);
    EXPECT_EQ(Marks() + Rows(), "10000-1 -1 -1 -1 ");
    EXPECT_EQ(TakeChoices(), std::vector<int>{});
}

TEST_F(ToolsOnForm, ControlsHaveNamesAndSayWhatTheyAre) {
    const auto expect = [](HWND window, const char* name, QAccessible::Role role) {
        EXPECT_EQ(ToolsView(window).text(QAccessible::Name).toStdString(), name);
        EXPECT_EQ(ToolsView(window).role(), role) << name;
    };
    OnUserInterface([&] {
        const auto at = [this](int id) { return GetDlgItem(form_.Handle(), id); };
        expect(form_.Handle(), "Form", QAccessible::Dialog);
        EXPECT_FALSE(ToolsView(form_.Handle()).state().modal) << "there is nothing behind it";
        expect(at(IDC_NAME), "Name:", QAccessible::EditableText);
        expect(at(IDC_NOTE), "Name:", QAccessible::EditableText);
        expect(at(IDC_RED), "Red", QAccessible::RadioButton);
        expect(at(IDC_THREE), "Three", QAccessible::CheckBox);
        expect(at(IDC_SIMPLE), "", QAccessible::ComboBox);
        expect(at(IDC_LIST), "", QAccessible::List);
        expect(at(IDC_APPLY), "Apply", QAccessible::Button);
        EXPECT_FALSE(ToolsView(at(IDC_NOTE)).state().readOnly);
        SendMessageA(at(IDC_NOTE), EM_SETREADONLY, TRUE, 0);
        EXPECT_TRUE(ToolsView(at(IDC_NOTE)).state().readOnly);
        // A label that is called otherwise names its field so.
        SetWindowTextA(GetWindow(form_.Handle(), GW_CHILD), "N&ew name:");
        expect(at(IDC_NAME), "New name:", QAccessible::EditableText);
    });
}

TEST_F(ToolsOnForm, AFieldIsReadSelectedAndWrittenAndOneThatOnlyShowsItsTextSaysSo) {
    const HWND name = Control(IDC_NAME);
    const auto text = [&] { return ToolsView(name).textInterface(); };
    const auto write = [&](const std::function<void(QAccessibleEditableTextInterface&)>& action) {
        native::Do([&] { action(*ToolsView(name).editableTextInterface()); });
        return form_.Text(IDC_NAME);
    };
    SetText(IDC_NAME, "0x98 gr\xC3\xBCn");
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
    Send(IDC_NAME, EM_SETREADONLY, TRUE);
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
