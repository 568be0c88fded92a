#include "tests/kit/dialog.h"

#include "tests/kit/user_interface.h"

namespace kit {
namespace {

constexpr std::chrono::seconds kLongestWait{10};
constexpr char kDialogClass[] = "#32770";

std::string ClassOf(HWND window) {
    char name[64];
    return {name, static_cast<std::size_t>(GetClassNameA(window, name, sizeof name))};
}

std::string TextOf(HWND window) {
    std::vector<char> text(static_cast<std::size_t>(GetWindowTextLengthA(window)) + 1);
    GetWindowTextA(window, text.data(), static_cast<int>(text.size()));
    return text.data();
}

BOOL CALLBACK FindFrontDialog(HWND window, LPARAM found) {
    if (!IsWindowVisible(window) || !IsWindowEnabled(window) || ClassOf(window) != kDialogClass)
        return TRUE;
    *reinterpret_cast<HWND*>(found) = window;
    return FALSE;
}

HWND FrontDialogHandle() {
    HWND found = nullptr;
    EnumThreadWindows(GetCurrentThreadId(), FindFrontDialog, reinterpret_cast<LPARAM>(&found));
    return found;
}

HWND FirstChild(HWND parent) {
    return GetWindow(parent, GW_CHILD);
}

// The sign of a message box as its MB_ICON flag, 0 without one, and ~0u for any other.
UINT SignOf(HWND box) {
    struct Sign {
        LPCSTR icon;
        UINT flag;
    };
    const std::array signs = {Sign{IDI_HAND, MB_ICONHAND},
                              Sign{IDI_EXCLAMATION, MB_ICONEXCLAMATION},
                              Sign{IDI_ASTERISK, MB_ICONINFORMATION}};
    for (HWND child = FirstChild(box); child != nullptr; child = GetWindow(child, GW_HWNDNEXT)) {
        if (!IsWindowVisible(child) || ClassOf(child) != "Static" ||
            (GetWindowLongPtrA(child, GWL_STYLE) & SS_TYPEMASK) != SS_ICON)
            continue;
        const LRESULT icon = SendMessageA(child, STM_GETICON, 0, 0);
        if (icon == 0)
            continue;  // the place of a sign that was not asked for
        for (const Sign& sign : signs) {
            if (icon == reinterpret_cast<LRESULT>(LoadIconA(nullptr, sign.icon)))
                return sign.flag;
        }
        return ~0u;
    }
    return 0;
}

// The buttons of a message box as the MB_ flag that asks for them, and ~0u for any others.
UINT ButtonsOf(HWND box) {
    std::set<int> ids;
    for (HWND child = FirstChild(box); child != nullptr; child = GetWindow(child, GW_HWNDNEXT)) {
        if (IsWindowVisible(child) && ClassOf(child) == "Button")
            ids.insert(GetDlgCtrlID(child));
    }
    if (ids == std::set{IDOK} || ids == std::set{IDCANCEL})
        return MB_OK;
    if (ids == std::set{IDOK, IDCANCEL})
        return MB_OKCANCEL;
    return ids == std::set{IDYES, IDNO} ? MB_YESNO : ~0u;
}

// Looks again and again until it is so; whether it became so in time.
template <typename Condition>
bool WaitUntil(Condition condition) {
    const auto start = std::chrono::steady_clock::now();
    while (!condition()) {
        if (std::chrono::steady_clock::now() - start > kLongestWait)
            return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return true;
}

void Post(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    PostMessageA(window, message, wParam, lParam);
    Settle();
}

// What is in front, for the message of a failed test.
std::string InFront() {
    const Dialog front = FrontDialog();
    return front.Handle() != nullptr ? "in front is \"" + front.Caption() + "\": " + BoxText(front)
                                     : std::string("no dialog is open");
}

}  // namespace

HWND Dialog::Control(int id) const {
    return OnUserInterface([this, id] { return GetDlgItem(window_, id); });
}

std::string Dialog::Caption() const {
    return OnUserInterface([this] { return TextOf(window_); });
}

bool Dialog::IsOpen() const {
    return OnUserInterface([this] { return window_ != nullptr && IsWindowVisible(window_) != 0; });
}

std::string Dialog::Text(int id) const {
    return OnUserInterface([this, id] { return TextOf(GetDlgItem(window_, id)); });
}

bool Dialog::IsEnabled(int id) const {
    return OnUserInterface([this, id] { return IsWindowEnabled(GetDlgItem(window_, id)) != 0; });
}

void Dialog::Focus(int id) const {
    RunStep([&] { SetFocus(GetDlgItem(window_, id)); });
}

void Dialog::Enable(int id, bool enable) const {
    RunStep([&] { EnableWindow(GetDlgItem(window_, id), enable); });
}

void Dialog::SetText(int id, const char* text) const {
    RunStep([&] { SetDlgItemTextA(window_, id, text); });
}

void Dialog::CheckRadio(int first, int last, int id) const {
    RunStep([&] { CheckRadioButton(window_, first, last, id); });
}

bool Dialog::IsChecked(int id) const {
    return Send(id, BM_GETCHECK, 0, 0) == BST_CHECKED;
}

int Dialog::FocusedId() const {
    return OnUserInterface([this] {
        HWND focus = GetFocus();
        // A combo box has its text in a control of its own on some systems.
        if (focus != nullptr && GetParent(GetParent(focus)) == window_)
            focus = GetParent(focus);
        return focus != nullptr && GetParent(focus) == window_ ? GetDlgCtrlID(focus) : 0;
    });
}

int Dialog::Rows(int id) const {
    return static_cast<int>(Send(id, IsCombo(id) ? CB_GETCOUNT : LB_GETCOUNT, 0, 0));
}

std::string Dialog::Row(int id, int row) const {
    const bool combo = IsCombo(id);
    return OnUserInterface([=, this]() -> std::string {
        const HWND list = GetDlgItem(window_, id);
        const auto number = static_cast<WPARAM>(row);
        const LRESULT length =
            SendMessageA(list, combo ? CB_GETLBTEXTLEN : LB_GETTEXTLEN, number, 0);
        if (length < 0)
            return {};
        std::vector<char> text(static_cast<std::size_t>(length) + 1);
        SendMessageA(list, combo ? CB_GETLBTEXT : LB_GETTEXT, number,
                     reinterpret_cast<LPARAM>(text.data()));
        return text.data();
    });
}

int Dialog::SelectedRow(int id) const {
    return static_cast<int>(Send(id, IsCombo(id) ? CB_GETCURSEL : LB_GETCURSEL, 0, 0));
}

void Dialog::Type(int id, const std::string& text) const {
    const HWND field = Control(id);
    ASSERT_TRUE(IsEnabled(id)) << "control " << id << " takes no typing";
    OnUserInterface([field] {
        SetFocus(field);
        // A combo box hands the focus on to the text that it has in a control of its own.
        SendMessageA(GetFocus(), EM_SETSEL, 0, -1);
    });
    if (text.empty())
        PostMessageA(field, WM_CHAR, VK_BACK, 0);
    for (const char character : text)
        PostMessageA(field, WM_CHAR, static_cast<unsigned char>(character), 0);
    Settle();
}

void Dialog::Press(int id) const {
    ASSERT_TRUE(IsEnabled(id)) << "button " << id << " cannot be pressed";
    Post(Control(id), BM_CLICK, 0, 0);
}

void Dialog::Pick(int id, int row) const {
    ASSERT_TRUE(IsEnabled(id)) << "list " << id << " takes no choice";
    ASSERT_LT(row, Rows(id)) << "list " << id << " is shorter";
    const UINT select = IsCombo(id) ? CB_SETCURSEL : LB_SETCURSEL;
    const HWND list = Control(id);
    // Selecting by message tells nobody, so the program hears only of the last step, which is a
    // person's: from the row beside it.
    const int beside = row > 0 || Rows(id) == 1 ? row - 1 : 1;
    OnUserInterface([=] {
        SetFocus(list);
        SendMessageA(list, select, static_cast<WPARAM>(beside), 0);
    });
    Key(beside < row ? VK_DOWN : VK_UP);
}

void Dialog::Pick(int id, const std::string& text) const {
    const UINT find = IsCombo(id) ? CB_FINDSTRINGEXACT : LB_FINDSTRINGEXACT;
    const LRESULT row =
        Send(id, find, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(text.c_str()));
    ASSERT_GE(row, 0) << "no row \"" << text << '"';
    Pick(id, static_cast<int>(row));
}

void Dialog::Key(WPARAM virtualKey) const {
    const HWND target = OnUserInterface([this] {
        const HWND focus = GetFocus();
        return focus != nullptr ? focus : window_;
    });
    PostMessageA(target, WM_KEYDOWN, virtualKey, 0);
    Post(target, WM_KEYUP, virtualKey, 0);
}

void Dialog::AltKey(char letter) const {
    const HWND target = OnUserInterface([this] {
        const HWND focus = GetFocus();
        return focus != nullptr ? focus : window_;
    });
    constexpr LPARAM kAltIsDown = 1 << 29;
    Post(target, WM_SYSCHAR, static_cast<WPARAM>(letter), kAltIsDown);
}

void Dialog::CloseBox() const {
    Post(window_, WM_SYSCOMMAND, SC_CLOSE, 0);
}

LRESULT Dialog::Send(int id, UINT message, WPARAM wParam, LPARAM lParam) const {
    return OnUserInterface(
        [=, this] { return SendDlgItemMessageA(window_, id, message, wParam, lParam); });
}

bool Dialog::IsCombo(int id) const {
    return OnUserInterface([this, id] { return ClassOf(GetDlgItem(window_, id)) == "ComboBox"; });
}

Dialog FrontDialog() {
    return Dialog(OnUserInterface(FrontDialogHandle));
}

Dialog WaitForDialog(const std::string& caption) {
    HWND found = nullptr;
    const bool came = WaitUntil([&] {
        return OnUserInterface([&] {
            found = FrontDialogHandle();
            return found != nullptr && TextOf(found) == caption;
        });
    });
    EXPECT_TRUE(came) << "\"" << caption << "\" does not open; " << InFront();
    return Dialog(came ? found : nullptr);
}

void MeetBox(const std::string& title, const std::string& text, int answer,
             std::optional<UINT> style) {
    const Dialog box = WaitForDialog(title);
    if (box.Handle() == nullptr)
        return;
    EXPECT_EQ(BoxText(box), text);
    EXPECT_EQ(BoxStyle(box), style.value_or(BoxStyle(box)));
    // Windows gives an OK that stands alone the number of Cancel.
    box.Press(answer == IDOK && box.Control(IDOK) == nullptr ? IDCANCEL : answer);
    const auto isGone = [&box] {
        bool there = false;
        return !TryStep([&] { there = IsWindow(box.Handle()) != 0; }) || !there;
    };
    EXPECT_TRUE(WaitUntil(isGone)) << "the box \"" << title << "\" stays open";
}

void ExpectNoBox() {
    EXPECT_EQ(FrontDialog().Handle(), nullptr) << InFront();
}

std::string BoxText(const Dialog& box) {
    return OnUserInterface([&box] {
        std::string text;
        for (HWND child = FirstChild(box.Handle()); child != nullptr;
             child = GetWindow(child, GW_HWNDNEXT)) {
            if (ClassOf(child) == "Static" && !TextOf(child).empty())
                text += (text.empty() ? "" : "\n") + TextOf(child);
        }
        return text;
    });
}

UINT BoxStyle(const Dialog& box) {
    return OnUserInterface([&box] { return SignOf(box.Handle()) | ButtonsOf(box.Handle()); });
}

}  // namespace kit
