// The screen for people: what a person does with the native widgets reaches the program, and what
// the program sets is what the widgets show.
#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QTemporaryDir>
#include <QTest>
#include <QWindow>
#include <algorithm>
#include <chrono>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "platform/qt/snapshot.h"
#include "platform/win32.h"
#include "tests/kit/dialog.h"
#include "tests/kit/user_interface.h"
#include "tests/qt/form.h"
#include "tests/qt/native.h"

namespace {

using kit::OnUserInterface;

// Control and notification code, as WM_COMMAND tells them.
struct Notice {
    int id;
    int code;

    friend bool operator==(const Notice&, const Notice&) = default;
};

std::ostream& operator<<(std::ostream& out, const Notice& notice) {
    return out << notice.id << ':' << notice.code;
}

// Touched by the user-interface thread alone.
std::vector<Notice> theNotices;

std::vector<Notice> TakeNotices() {
    return OnUserInterface([] { return std::exchange(theNotices, {}); });
}

std::vector<Notice> TakeNoticesOf(int id) {
    std::vector<Notice> notices = TakeNotices();
    std::erase_if(notices, [id](const Notice& notice) { return notice.id != id; });
    return notices;
}

void AddRows(HWND dialog, int id, UINT message) {
    for (const char* row : {"alpha", "beta", "gamma", "delta"})
        SendDlgItemMessageA(dialog, id, message, 0, reinterpret_cast<LPARAM>(row));
}

INT_PTR CALLBACK FormProcedure(HWND dialog, UINT message, WPARAM wParam, LPARAM) {
    switch (message) {
        case WM_INITDIALOG:
            AddRows(dialog, IDC_PLACE, CB_ADDSTRING);
            AddRows(dialog, IDC_WORD, CB_ADDSTRING);
            AddRows(dialog, IDC_SIMPLE, CB_ADDSTRING);
            AddRows(dialog, IDC_LIST, LB_ADDSTRING);
            CheckRadioButton(dialog, IDC_RED, IDC_BLUE, IDC_RED);
            return TRUE;
        case WM_COMMAND:
            theNotices.push_back({LOWORD(wParam), HIWORD(wParam)});
            if (LOWORD(wParam) == IDOK || LOWORD(wParam) == IDCANCEL)
                EndDialog(dialog, LOWORD(wParam));
            return TRUE;
        default:
            return FALSE;
    }
}

int RunForm(HWND owner) {
    return static_cast<int>(DialogBoxParamA(GetModuleHandleA(nullptr), MAKEINTRESOURCEA(IDD_FORM),
                                            owner, FormProcedure, 0));
}

class FormTest : public testing::Test {
  protected:
    FormTest()
        : result_(kit::StartProgram([] { return RunForm(nullptr); })),
          form_(kit::WaitForDialog("Form")) {
        native::Do([] {});
        TakeNotices();
    }

    ~FormTest() override {
        if (!result_.valid())
            return;
        OnUserInterface([this] { EndDialog(form_.Handle(), 0); });
        result_.wait();
    }

    HWND Control(int id) const { return form_.Control(id); }

    template <typename Widget, typename Question>
    auto Shown(int id, Question question) const {
        const HWND control = Control(id);
        return OnUserInterface([=] { return question(*native::As<Widget>(control)); });
    }

    std::string ShownText(int id) const {
        return Shown<QLineEdit>(id, [](QLineEdit& edit) { return edit.text().toStdString(); });
    }

    std::future<int> result_;
    kit::Dialog form_;
};

TEST_F(FormTest, WhatIsTypedIntoAnEditReachesTheProgramLetterByLetter) {
    native::Type("4F");
    EXPECT_EQ(form_.Text(IDC_NAME), "4F");
    EXPECT_EQ(ShownText(IDC_NAME), "4F");
    const auto changes = TakeNoticesOf(IDC_NAME);
    EXPECT_EQ(std::count(changes.begin(), changes.end(), Notice{IDC_NAME, EN_CHANGE}), 2);
}

TEST_F(FormTest, TextSetByTheProgramIsShownAndTheSelectionCountsBytes) {
    const HWND name = Control(IDC_NAME);
    OnUserInterface([name] {
        SetWindowTextA(name, "gr\xC3\xBCn");
        SendMessageA(name, EM_SETSEL, 2, 4);
    });
    EXPECT_EQ(ShownText(IDC_NAME), "gr\xC3\xBCn");
    EXPECT_EQ(Shown<QLineEdit>(IDC_NAME, [](QLineEdit& edit) { return edit.selectedText(); }),
              QString::fromUtf8("\xC3\xBC"));
    native::Press(Qt::Key_Home);
    native::Press(Qt::Key_Right);
    native::Press(Qt::Key_Right, Qt::ShiftModifier);
    native::Press(Qt::Key_Right, Qt::ShiftModifier);
    DWORD start = 0;
    DWORD end = 0;
    OnUserInterface([&] {
        SendMessageA(name, EM_GETSEL, reinterpret_cast<WPARAM>(&start),
                     reinterpret_cast<LPARAM>(&end));
    });
    EXPECT_EQ(start, 1u);
    EXPECT_EQ(end, 4u);
}

TEST_F(FormTest, TheLimitBindsTypingButNotTheProgram) {
    const HWND name = Control(IDC_NAME);
    OnUserInterface([name] {
        SendMessageA(name, EM_LIMITTEXT, 3, 0);
        SetWindowTextA(name, "12345");
    });
    EXPECT_EQ(ShownText(IDC_NAME), "12345");
    native::Press(Qt::Key_End);
    native::Type("6");
    EXPECT_EQ(form_.Text(IDC_NAME), "12345");
    OnUserInterface([name] { SetWindowTextA(name, ""); });
    native::Type("7890");
    EXPECT_EQ(form_.Text(IDC_NAME), "789");
    EXPECT_EQ(ShownText(IDC_NAME), "789");
}

TEST_F(FormTest, TypingPastTheLimitIsTakenBackAndLeavesTheCaretWhereItWas) {
    for (const int id : {IDC_NAME, IDC_NOTE}) {
        const HWND edit = Control(id);
        OnUserInterface([edit] {
            SetWindowTextA(edit, "g\xC3\xBCnstig");
            SendMessageA(edit, EM_LIMITTEXT, 8, 0);
            SetFocus(edit);
            SendMessageA(edit, EM_SETSEL, 3, 3);
        });
        TakeNotices();
        native::Type("X");
        EXPECT_EQ(form_.Text(id), "g\xC3\xBCnstig");
        EXPECT_EQ(TakeNoticesOf(id), (std::vector<Notice>{{id, EN_MAXTEXT}}));
        native::Press(Qt::Key_Backspace);
        native::Type("uY");
        EXPECT_EQ(form_.Text(id), "guYnstig");
        const std::string shown = Shown<QWidget>(id, [](QWidget& widget) {
            const char* property = widget.inherits("QLineEdit") ? "text" : "plainText";
            return widget.property(property).toString().toStdString();
        });
        EXPECT_EQ(shown, "guYnstig");
    }
}

TEST_F(FormTest, AMultiLineEditShowsLinesAndGivesThemBackWithCarriageReturns) {
    const HWND note = Control(IDC_NOTE);
    OnUserInterface([note] {
        SetWindowTextA(note, "one\r\ntwo");
        SetFocus(note);
        SendMessageA(note, EM_SETSEL, 8, 8);
    });
    EXPECT_EQ(Shown<QPlainTextEdit>(
                  IDC_NOTE, [](QPlainTextEdit& edit) { return edit.toPlainText().toStdString(); }),
              "one\ntwo");
    native::Press(Qt::Key_Return);
    native::Type("3");
    EXPECT_EQ(form_.Text(IDC_NOTE), "one\r\ntwo\r\n3");
}

TEST_F(FormTest, ReadOnlyAndDisabledEditsTakeNoTyping) {
    const HWND name = Control(IDC_NAME);
    OnUserInterface([name] { SendMessageA(name, EM_SETREADONLY, TRUE, 0); });
    native::Type("1");
    EXPECT_EQ(form_.Text(IDC_NAME), "");
    OnUserInterface([name] { EnableWindow(name, FALSE); });
    EXPECT_FALSE(Shown<QLineEdit>(IDC_NAME, [](QLineEdit& edit) { return edit.isEnabled(); }));
}

TEST_F(FormTest, TabAndAltLettersMoveTheFocusOfBothSides) {
    const auto expectFocus = [this](int id) {
        EXPECT_EQ(form_.FocusedId(), id);
        EXPECT_TRUE(Shown<QWidget>(id, [](QWidget& widget) { return widget.hasFocus(); })) << id;
    };
    expectFocus(IDC_NAME);
    native::Press(Qt::Key_Tab);
    native::Press(Qt::Key_Tab);
    expectFocus(IDC_RED);
    native::Press(Qt::Key_Backtab, Qt::ShiftModifier);
    native::Press(Qt::Key_Backtab, Qt::ShiftModifier);
    expectFocus(IDC_NAME);
    native::Press(Qt::Key_P, Qt::AltModifier);
    expectFocus(IDC_APPLY);
    EXPECT_EQ(form_.Text(IDC_NAME), "") << "the letter was taken as text";
    native::Press(Qt::Key_N, Qt::AltModifier);
    expectFocus(IDC_NAME);
}

TEST_F(FormTest, TheFocusIsSeenOnButtonsAndComboBoxes) {
    for (const int id : {IDC_PLACE, IDC_APPLY, IDC_MANUAL}) {
        const auto look = [&](int focused) {
            const HWND control = Control(focused);
            OnUserInterface([control] { SetFocus(control); });
            return Shown<QWidget>(id, [](QWidget& widget) { return widget.grab().toImage(); });
        };
        // The focus comes and goes between controls that are no default buttons.
        const QImage without = look(IDC_LIST);
        EXPECT_NE(look(id), without) << id;
    }
}

TEST_F(FormTest, ADialogsFrameHasACloseBoxAndNoOthers) {
    const HWND form = form_.Handle();
    const Qt::WindowFlags flags =
        OnUserInterface([form] { return native::WidgetOf(form)->windowFlags(); });
    EXPECT_TRUE(flags.testFlag(Qt::WindowTitleHint));
    EXPECT_TRUE(flags.testFlag(Qt::WindowCloseButtonHint));
    EXPECT_FALSE(flags.testFlag(Qt::WindowMinimizeButtonHint));
    EXPECT_FALSE(flags.testFlag(Qt::WindowMaximizeButtonHint));
}

TEST_F(FormTest, KeysTypedAheadGoWhereTheFocusIsByThen) {
    const HWND manual = Control(IDC_MANUAL);
    OnUserInterface([manual] { SetFocus(manual); });
    native::Do([] {
        native::PressKey(Qt::Key_N, Qt::AltModifier);
        for (const char letter : {'1', '2', '3'})
            native::TypeLetter(letter);
        native::PressKey(Qt::Key_Tab);
        native::TypeLetter('4');
    });
    for (int turn = 0; turn < 6; ++turn)
        native::Do([] {});
    EXPECT_EQ(form_.Text(IDC_NAME), "123");
    EXPECT_EQ(form_.Text(IDC_NOTE), "4");
}

TEST_F(FormTest, OneRadioButtonOfAGroupIsCheckedAfterAClick) {
    native::Click(Control(IDC_GREEN));
    EXPECT_TRUE(form_.IsChecked(IDC_GREEN));
    EXPECT_FALSE(form_.IsChecked(IDC_RED));
    for (const int id : {IDC_RED, IDC_GREEN, IDC_BLUE})
        EXPECT_EQ(Shown<QRadioButton>(id, [](QRadioButton& radio) { return radio.isChecked(); }),
                  id == IDC_GREEN)
            << id;
    EXPECT_EQ(TakeNoticesOf(IDC_GREEN), (std::vector<Notice>{{IDC_GREEN, BN_CLICKED}}));
}

TEST_F(FormTest, ACheckBoxShowsWhatTheProgramMakesOfAClick) {
    const auto shown = [this](int id) {
        return Shown<QCheckBox>(id, [](QCheckBox& box) { return box.checkState(); });
    };
    native::Click(Control(IDC_MANUAL));
    EXPECT_EQ(TakeNoticesOf(IDC_MANUAL), (std::vector<Notice>{{IDC_MANUAL, BN_CLICKED}}));
    EXPECT_EQ(shown(IDC_MANUAL), Qt::Unchecked) << "this box changes by the program alone";
    for (const auto state : {Qt::Checked, Qt::PartiallyChecked, Qt::Unchecked}) {
        native::Click(Control(IDC_THREE));
        EXPECT_EQ(shown(IDC_THREE), state);
    }
}

TEST_F(FormTest, AChoiceFromADropDownListNotifiesAndOneByTheProgramDoesNot) {
    const HWND place = Control(IDC_PLACE);
    OnUserInterface([place] { SendMessageA(place, CB_SETCURSEL, 2, 0); });
    EXPECT_EQ(Shown<QComboBox>(IDC_PLACE, [](QComboBox& box) { return box.currentIndex(); }), 2);
    EXPECT_EQ(TakeNoticesOf(IDC_PLACE), std::vector<Notice>{});

    native::Click(place);
    native::Press(Qt::Key_Down);
    native::Press(Qt::Key_Return);
    EXPECT_EQ(form_.SelectedRow(IDC_PLACE), 3);
    EXPECT_TRUE(form_.IsOpen()) << "the list's Enter was taken for the dialog's";
    const auto notices = TakeNoticesOf(IDC_PLACE);
    for (const int code : {CBN_DROPDOWN, CBN_SELENDOK, CBN_SELCHANGE, CBN_CLOSEUP})
        EXPECT_EQ(std::count(notices.begin(), notices.end(), Notice{IDC_PLACE, code}), 1) << code;
}

TEST_F(FormTest, RowsComeAndGoWithoutTouchingSelectionOrEdit) {
    const HWND word = Control(IDC_WORD);
    OnUserInterface([word] {
        SendMessageA(word, CB_RESETCONTENT, 0, 0);
        SetWindowTextA(word, "own");
        AddRows(GetParent(word), IDC_WORD, CB_ADDSTRING);
        SendMessageA(word, CB_DELETESTRING, 0, 0);
    });
    EXPECT_EQ(Shown<QComboBox>(IDC_WORD, [](QComboBox& box) { return box.currentText(); }),
              QStringLiteral("own"));
    EXPECT_EQ(form_.SelectedRow(IDC_WORD), -1);

    const HWND list = Control(IDC_LIST);
    OnUserInterface([list] {
        SendMessageA(list, LB_SETCURSEL, 1, 0);
        SendMessageA(list, LB_DELETESTRING, 1, 0);
    });
    EXPECT_TRUE(Shown<QListWidget>(
        IDC_LIST, [](QListWidget& rows) { return rows.selectedItems().isEmpty(); }));
}

TEST_F(FormTest, AListBoxTellsClicksAndDoubleClicks) {
    const QPoint third = Shown<QListWidget>(IDC_LIST, [](QListWidget& list) {
        return list.visualItemRect(list.item(2)).center() + list.viewport()->mapTo(&list, QPoint());
    });
    native::ClickAt(Control(IDC_LIST), third);
    EXPECT_EQ(form_.SelectedRow(IDC_LIST), 2);
    auto notices = TakeNoticesOf(IDC_LIST);
    EXPECT_EQ(std::count(notices.begin(), notices.end(), Notice{IDC_LIST, LBN_SELCHANGE}), 1);
    const HWND list = Control(IDC_LIST);
    native::Do([=] {
        QWidget* widget = native::WidgetOf(list);
        QTest::mouseDClick(widget->window()->windowHandle(), Qt::LeftButton, Qt::NoModifier,
                           widget->mapTo(widget->window(), third));
    });
    notices = TakeNoticesOf(IDC_LIST);
    EXPECT_EQ(std::count(notices.begin(), notices.end(), Notice{IDC_LIST, LBN_DBLCLK}), 1);
}

TEST_F(FormTest, LettersTypedIntoAListBoxChooseTheRowThatBeginsWithThem) {
    const HWND list = Control(IDC_LIST);
    OnUserInterface([list] {
        SendMessageA(list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>("demand"));
        SetFocus(list);
        SendMessageA(list, LB_SETCURSEL, 0, 0);
    });
    TakeNotices();
    native::Type("DEM");
    EXPECT_EQ(form_.SelectedRow(IDC_LIST), 4);
    const auto notices = TakeNoticesOf(IDC_LIST);
    EXPECT_GE(std::count(notices.begin(), notices.end(), Notice{IDC_LIST, LBN_SELCHANGE}), 1);
}

TEST_F(FormTest, ArrowKeysInTheEditOfASimpleComboBoxChooseFromItsList) {
    const HWND simple = Control(IDC_SIMPLE);
    OnUserInterface([simple] {
        SetFocus(simple);
        SendMessageA(simple, CB_SETCURSEL, 0, 0);
    });
    native::Press(Qt::Key_Down);
    EXPECT_EQ(form_.SelectedRow(IDC_SIMPLE), 1);
    EXPECT_EQ(form_.Text(IDC_SIMPLE), "beta");
}

TEST_F(FormTest, EnterPressesTheDefaultButton) {
    native::DoLast([] { native::PressKey(Qt::Key_Return); });
    EXPECT_EQ(result_.get(), IDOK);
}

TEST_F(FormTest, EscapeCancels) {
    native::DoLast([] { native::PressKey(Qt::Key_Escape); });
    EXPECT_EQ(result_.get(), IDCANCEL);
}

TEST_F(FormTest, TheCloseBoxCancels) {
    const HWND form = form_.Handle();
    native::DoLast([form] { native::WidgetOf(form)->close(); });
    EXPECT_EQ(result_.get(), IDCANCEL);
}

// The program of the window tests: a window with a menu bar, filled with one colour.

constexpr COLORREF kColour = RGB(0x20, 0x60, 0xA0);

// Touched by the user-interface thread alone.
std::vector<UINT> theCommands;
std::vector<UINT> theMessages;
std::vector<QRect> thePainted;
HWND theWindow = nullptr;

void Paint(HWND window) {
    PAINTSTRUCT paint;
    const HDC dc = BeginPaint(window, &paint);
    thePainted.emplace_back(QPoint(paint.rcPaint.left, paint.rcPaint.top),
                            QPoint(paint.rcPaint.right - 1, paint.rcPaint.bottom - 1));
    const HBRUSH brush = CreateSolidBrush(kColour);
    FillRect(dc, &paint.rcPaint, brush);
    DeleteObject(brush);
    EndPaint(window, &paint);
}

void Offer(HWND window, LPARAM where) {
    const HMENU menu = CreatePopupMenu();
    AppendMenuA(menu, MF_STRING | MF_CHECKED, IDM_MORE, "&More");
    AppendMenuA(menu, MF_STRING, IDM_LESS, "&Less");
    TrackPopupMenu(menu, TPM_LEFTALIGN | TPM_RIGHTBUTTON, static_cast<SHORT>(LOWORD(where)),
                   static_cast<SHORT>(HIWORD(where)), 0, window, nullptr);
    DestroyMenu(menu);
}

LRESULT CALLBACK WindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    theMessages.push_back(message);
    switch (message) {
        case WM_PAINT:
            Paint(window);
            return 0;
        case WM_COMMAND:
            theCommands.push_back(static_cast<UINT>(wParam));
            if (wParam == IDM_FORM)
                RunForm(window);
            return 0;
        case WM_CONTEXTMENU:
            Offer(window, lParam);
            return 0;
        case WM_CLOSE:
            PostQuitMessage(7);
            return 0;
        default:
            return DefWindowProcA(window, message, wParam, lParam);
    }
}

int RunWindow() {
    WNDCLASSA windowClass{};
    windowClass.lpfnWndProc = WindowProcedure;
    windowClass.hInstance = GetModuleHandleA(nullptr);
    windowClass.lpszClassName = "Wide";
    windowClass.lpszMenuName = MAKEINTRESOURCEA(IDR_BAR);
    RegisterClassA(&windowClass);
    theWindow = CreateWindowExA(0, "Wide", "Wide", WS_OVERLAPPEDWINDOW, 50, 60, 700, 200, nullptr,
                                nullptr, windowClass.hInstance, nullptr);
    ShowWindow(theWindow, SW_SHOWNORMAL);
    UpdateWindow(theWindow);
    MSG message;
    while (GetMessageA(&message, nullptr, 0, 0)) {
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
    return static_cast<int>(message.wParam);
}

class WindowTest : public testing::Test {
  protected:
    WindowTest() : result_(kit::StartProgram(RunWindow)) {
        native::Do([] {});
        window_ = OnUserInterface([] { return theWindow; });
    }

    ~WindowTest() override {
        native::DoLast([this] { native::WidgetOf(window_)->close(); });
        EXPECT_EQ(result_.get(), 7);
    }

    static std::vector<UINT> TakeCommands() {
        return OnUserInterface([] { return std::exchange(theCommands, {}); });
    }

    static std::ptrdiff_t CountMessages(UINT message) {
        return OnUserInterface(
            [message] { return std::count(theMessages.begin(), theMessages.end(), message); });
    }

    // The areas that the program painted since it was last asked.
    std::vector<QRect> TakePainted() const {
        return OnUserInterface([this] {
            UpdateWindow(window_);
            return std::exchange(thePainted, {});
        });
    }

    // The desktop has lost a part of the window.
    void Expose(QRect area) const {
        native::Do([=, this] {
            QExposeEvent exposure(area);
            QCoreApplication::sendEvent(native::WidgetOf(window_)->windowHandle(), &exposure);
        });
    }

    QImage MenuBarLook() const {
        return OnUserInterface(
            [this] { return native::WidgetOf(window_)->findChild<QMenuBar*>()->grab().toImage(); });
    }

    // The entry of the menu bar that the keyboard is on; empty for none.
    std::string ActiveEntry() const {
        return OnUserInterface([this] {
            for (const QMenuBar* row : native::WidgetOf(window_)->findChildren<QMenuBar*>()) {
                if (row->hasFocus() && row->activeAction() != nullptr)
                    return row->activeAction()->text().toStdString();
            }
            return std::string();
        });
    }

    RECT ClientRect() const {
        return OnUserInterface([this] {
            RECT rect{};
            GetClientRect(window_, &rect);
            return rect;
        });
    }

    // What the person sees at a place of the client area.
    QColor SeenAt(int x, int y) const {
        return OnUserInterface([=, this] {
            UpdateWindow(window_);
            POINT point{x, y};
            ClientToScreen(window_, &point);
            QWidget* widget = native::WidgetOf(window_);
            const QPoint inside = QPoint(point.x, point.y) - widget->geometry().topLeft();
            return widget->grab().toImage().pixelColor(inside);
        });
    }

    std::future<int> result_;
    HWND window_ = nullptr;
};

TEST_F(WindowTest, TheProgramsPixelsFillTheClientAreaBelowAllRowsOfTheMenuBar) {
    const RECT client = ClientRect();
    const QColor colour(GetRValue(kColour), GetGValue(kColour), GetBValue(kColour));
    EXPECT_EQ(SeenAt(0, 0), colour);
    EXPECT_EQ(SeenAt(client.right - 1, client.bottom - 1), colour);
    EXPECT_NE(SeenAt(0, -1), colour);
}

TEST_F(WindowTest, EveryEntryOfALongMenuBarIsInSightAtEveryWidth) {
    int previousHeight = 0;
    for (const int width : {900, 600, 300}) {
        OnUserInterface([=, this] {
            SetWindowPos(window_, nullptr, 0, 0, width, 300, SWP_NOMOVE | SWP_NOZORDER);
        });
        int entries = 0;
        int rowsHeight = 0;
        OnUserInterface([&] {
            for (const QMenuBar* row : native::WidgetOf(window_)->findChildren<QMenuBar*>()) {
                for (QAction* entry : row->actions()) {
                    EXPECT_TRUE(row->rect().contains(row->actionGeometry(entry)))
                        << entry->text().toStdString() << " at " << width;
                    EXPECT_FALSE(row->actionGeometry(entry).isEmpty());
                    ++entries;
                }
                rowsHeight += row->height();
            }
        });
        EXPECT_EQ(entries, 24);
        EXPECT_EQ(ClientRect().bottom, 300 - rowsHeight);
        EXPECT_GT(rowsHeight, previousHeight);
        previousHeight = rowsHeight;
    }
}

TEST_F(WindowTest, AMenuOpensByItsKeyTellsTheProgramAndGivesTheCommand) {
    native::Press(Qt::Key_F, Qt::AltModifier);
    EXPECT_EQ(CountMessages(WM_INITMENUPOPUP), 1);
    OnUserInterface([this] { CheckMenuItem(GetMenu(window_), IDM_MARKED, MF_CHECKED); });
    native::Do([] {});
    OnUserInterface([] {
        const auto* menu = dynamic_cast<QMenu*>(QApplication::activePopupWidget());
        ASSERT_NE(menu, nullptr);
        ASSERT_EQ(menu->actions().size(), 4);
        EXPECT_TRUE(menu->actions()[1]->isChecked()) << "an open menu shows a new mark";
        EXPECT_FALSE(menu->actions()[2]->isEnabled());
    });
    native::Press(Qt::Key_M);
    EXPECT_EQ(TakeCommands(), std::vector<UINT>{IDM_MARKED});
    // The mark is the program's, not the click's.
    native::Press(Qt::Key_F, Qt::AltModifier);
    OnUserInterface([] {
        const auto* menu = dynamic_cast<QMenu*>(QApplication::activePopupWidget());
        ASSERT_NE(menu, nullptr);
        EXPECT_TRUE(menu->actions()[1]->isChecked());
    });
    native::Press(Qt::Key_Escape);
    native::Press(Qt::Key_Escape);
    EXPECT_EQ(TakeCommands(), std::vector<UINT>{});
}

TEST_F(WindowTest, F10AndAltAloneGiveTheMenuBarTheKeyboardAndTakeItBack) {
    const QImage idle = MenuBarLook();
    for (const Qt::Key enter : {Qt::Key_F10, Qt::Key_Alt}) {
        for (const Qt::Key leave : {Qt::Key_Escape, enter}) {
            native::Press(enter);
            EXPECT_EQ(ActiveEntry(), "&File");
            EXPECT_NE(MenuBarLook(), idle) << "the keyboard's entry is not seen";
            native::Press(leave);
            EXPECT_EQ(ActiveEntry(), "");
        }
        native::Press(enter);
        native::Press(Qt::Key_Right);
        native::Press(Qt::Key_Return);
        EXPECT_EQ(TakeCommands(), std::vector<UINT>{IDM_BARE});
        const auto keys = CountMessages(WM_KEYDOWN);
        native::Type("x");
        EXPECT_EQ(CountMessages(WM_KEYDOWN), keys + 1) << "the window has no keyboard";
    }
}

TEST_F(WindowTest, AMenuBarWithTheKeyboardLosesItWithTheWindow) {
    native::Press(Qt::Key_F10);
    std::unique_ptr<QWindow> other;
    native::Do([&] {
        other = std::make_unique<QWindow>();
        other->show();
        other->requestActivate();
    });
    EXPECT_EQ(OnUserInterface([] { return GetActiveWindow(); }), nullptr);
    native::Do([&] {
        other.reset();
        native::WidgetOf(window_)->activateWindow();
    });
    EXPECT_EQ(ActiveEntry(), "");
    const auto keys = CountMessages(WM_KEYDOWN);
    native::Type("x");
    EXPECT_EQ(CountMessages(WM_KEYDOWN), keys + 1);
}

TEST_F(WindowTest, TheArrowKeysRunThroughAllRowsOfTheMenuBarAsThroughOne) {
    std::vector<std::string> entries = OnUserInterface([this] {
        std::vector<std::string> texts;
        for (const QMenuBar* row : native::WidgetOf(window_)->findChildren<QMenuBar*>()) {
            for (const QAction* entry : row->actions())
                texts.push_back(entry->text().toStdString());
        }
        return texts;
    });
    native::Press(Qt::Key_F10);
    const auto expectRound = [&](Qt::Key key) {
        for (const std::string& entry : entries) {
            EXPECT_EQ(ActiveEntry(), entry);
            native::Press(key);
        }
        EXPECT_EQ(ActiveEntry(), entries.front());
    };
    expectRound(Qt::Key_Right);
    std::reverse(entries.begin() + 1, entries.end());
    expectRound(Qt::Key_Left);
    // An open menu takes the way along: the last entry's menu is one to the left of the first.
    native::Press(Qt::Key_Down);
    native::Press(Qt::Key_Left);
    EXPECT_EQ(CountMessages(WM_INITMENUPOPUP), 2);
    native::Press(Qt::Key_Return);
    EXPECT_EQ(TakeCommands(), std::vector<UINT>{IDM_OTHER});
    const auto keys = CountMessages(WM_KEYDOWN);
    native::Type("x");
    EXPECT_EQ(CountMessages(WM_KEYDOWN), keys + 1) << "the window has no keyboard";
}

TEST_F(WindowTest, WhatIsUncoveredIsPaintedAnewAndNothingElse) {
    const RECT client = ClientRect();
    EXPECT_EQ(TakePainted(), (std::vector<QRect>{QRect(0, 0, client.right, client.bottom)}))
        << "the first showing paints once";
    const int menuHeight =
        OnUserInterface([this] { return native::WidgetOf(window_)->height(); }) - client.bottom;
    const QRect inside(10, menuHeight + 5, 30, 20);
    // At first the desktop may still be about the showing itself.
    std::vector<QRect> painted;
    for (int turn = 0; painted.empty() && turn < 50; ++turn) {
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
        Expose(inside);
        painted = TakePainted();
    }
    EXPECT_EQ(painted, (std::vector<QRect>{QRect(10, 5, 30, 20)}));
    Expose(QRect(10, menuHeight - 5, 30, 20));
    EXPECT_EQ(TakePainted(), (std::vector<QRect>{QRect(10, 0, 30, 15)}));
    Expose(QRect(0, 0, 50, menuHeight));
    EXPECT_EQ(TakePainted(), (std::vector<QRect>{})) << "the menu bar is not the program's";
}

TEST_F(WindowTest, AResizePaintsWhatIsNewAlone) {
    const RECT before = ClientRect();
    TakePainted();
    native::Do([this] {
        QWidget* widget = native::WidgetOf(window_);
        widget->resize(widget->width(), widget->height() + 40);
    });
    EXPECT_EQ(TakePainted(), (std::vector<QRect>{QRect(0, before.bottom, before.right, 40)}));
}

TEST_F(WindowTest, ACommandOnTheBarItselfAndOneInAnInnerMenuAreGiven) {
    native::Press(Qt::Key_B, Qt::AltModifier);
    EXPECT_EQ(TakeCommands(), std::vector<UINT>{IDM_BARE});
    native::Press(Qt::Key_F, Qt::AltModifier);
    native::Press(Qt::Key_I);
    native::Press(Qt::Key_D);
    EXPECT_EQ(TakeCommands(), std::vector<UINT>{IDM_DEEP});
}

TEST_F(WindowTest, AChoiceInTheContextMenuIsACommandAndLeavingItIsNone) {
    const auto click = [this] {
        native::Do([this] {
            QWidget* widget = native::WidgetOf(window_);
            native::ClickWidget(*widget, QPoint(200, widget->height() - 10), Qt::RightButton);
        });
    };
    click();
    OnUserInterface([] {
        const auto* menu = dynamic_cast<QMenu*>(QApplication::activePopupWidget());
        ASSERT_NE(menu, nullptr);
        EXPECT_TRUE(menu->actions()[0]->isChecked());
    });
    native::Press(Qt::Key_L);
    EXPECT_EQ(TakeCommands(), std::vector<UINT>{IDM_LESS});
    click();
    native::Press(Qt::Key_Escape);
    EXPECT_EQ(TakeCommands(), std::vector<UINT>{});
    click();
    native::Press(Qt::Key_M);
    EXPECT_EQ(TakeCommands(), std::vector<UINT>{IDM_MORE});
}

TEST_F(WindowTest, AMoveOrResizeByTheDesktopReachesTheProgram) {
    const auto moves = CountMessages(WM_MOVE);
    const auto sizes = CountMessages(WM_SIZE);
    native::Do([this] { native::WidgetOf(window_)->setGeometry(120, 130, 640, 240); });
    EXPECT_EQ(CountMessages(WM_MOVE), moves + 1);
    EXPECT_EQ(CountMessages(WM_SIZE), sizes + 1);
    const RECT rect = OnUserInterface([this] {
        RECT window{};
        GetWindowRect(window_, &window);
        return window;
    });
    EXPECT_EQ(rect.left, 120);
    EXPECT_EQ(rect.top, 130);
    EXPECT_EQ(rect.right, 760);
    EXPECT_EQ(rect.bottom, 370);
    const RECT client = ClientRect();
    EXPECT_EQ(SeenAt(client.right - 1, client.bottom - 1).blue(), GetBValue(kColour));
}

TEST_F(WindowTest, StayingOnTopKeepsPlaceAndKeyboard) {
    const QRect before = OnUserInterface([this] { return native::WidgetOf(window_)->geometry(); });
    for (const bool topmost : {true, false}) {
        OnUserInterface([=, this] {
            SetWindowPos(window_, topmost ? HWND_TOPMOST : HWND_NOTOPMOST, 0, 0, 0, 0,
                         SWP_NOSIZE | SWP_NOMOVE);
        });
        native::Do([] {});
        OnUserInterface([&] {
            const QWidget* widget = native::WidgetOf(window_);
            EXPECT_TRUE(widget->isVisible());
            EXPECT_EQ(widget->geometry(), before);
            EXPECT_EQ(widget->windowFlags().testFlag(Qt::WindowStaysOnTopHint), topmost);
        });
        native::Press(Qt::Key_B, Qt::AltModifier);
        EXPECT_EQ(TakeCommands(), std::vector<UINT>{IDM_BARE});
    }
}

TEST_F(WindowTest, AnOwnerOfADialogTakesNoInputAndLooksAsBefore) {
    native::Press(Qt::Key_F, Qt::AltModifier);
    native::Press(Qt::Key_O);
    const kit::Dialog form = kit::WaitForDialog("Form");
    const auto clicks = CountMessages(WM_LBUTTONDOWN);
    native::Do([this] {
        QWidget* widget = native::WidgetOf(window_);
        native::ClickWidget(*widget, QPoint(5, widget->height() - 5));
        widget->windowHandle()->requestActivate();
    });
    EXPECT_EQ(CountMessages(WM_LBUTTONDOWN), clicks);
    EXPECT_TRUE(OnUserInterface([this] { return native::WidgetOf(window_)->isEnabled(); }));
    native::Press(Qt::Key_Escape);
    EXPECT_FALSE(form.IsOpen());
    EXPECT_EQ(OnUserInterface([] { return GetActiveWindow(); }), window_);
    native::Do([this] {
        QWidget* widget = native::WidgetOf(window_);
        native::ClickWidget(*widget, QPoint(5, widget->height() - 5));
    });
    EXPECT_EQ(CountMessages(WM_LBUTTONDOWN), clicks + 1);
}

TEST_F(WindowTest, APictureOfTheDesktopShowsTheWindowAndItsOpenMenu) {
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("desktop.png"));
    native::Press(Qt::Key_F, Qt::AltModifier);
    QImage picture;
    QRect window;
    QRect menu;
    native::Do([&] {
        ASSERT_TRUE(vxd::qt::SaveDesktopPicture(path.toStdString()));
        picture.load(path);
        window = native::WidgetOf(window_)->geometry();
        menu = QApplication::activePopupWidget()->geometry();
    });
    EXPECT_GT(picture.width(), window.width());
    EXPECT_GT(picture.height(), window.height());
    // Where the menu hangs over the client area the picture shows the menu.
    const QPoint origin(
        (picture.width() - window.width()) / 2,
        picture.height() - (picture.width() - window.width()) / 2 - window.height());
    const auto seen = [&](QPoint onDesktop) {
        return picture.pixelColor(onDesktop - window.topLeft() + origin);
    };
    EXPECT_EQ(seen(window.bottomRight()).blue(), GetBValue(kColour));
    EXPECT_NE(seen(menu.center()).blue(), GetBValue(kColour));
    native::Press(Qt::Key_Escape);
    native::Press(Qt::Key_Escape);
}

}  // namespace
