// The rules of edits.
#include "tests/kit/person.h"
#include "tests/kit/user_interface.h"
#include "tests/platform/dialogs.h"
#include "tests/platform/difference.h"
#include "tests/platform/recorder.h"

namespace {

using kit::Code;
using kit::OnUserInterface;

std::string Changed(int id) {
    return Code(id, EN_UPDATE) + " " + Code(id, EN_CHANGE);
}

class Edits : public kit::RecordedTest {
  protected:
    Edits() : RecordedTest(IDD_KEYS, "Keys") {}

    void SetText(int id, const char* text) { dialog_->SetText(id, text); }
    // Typed where the caret is.
    void Type(int id, const std::string& text) {
        for (const char character : text)
            PostMessageA(dialog_->Control(id), WM_CHAR, static_cast<unsigned char>(character), 0);
    }
};

TEST_F(Edits, ProgramTextIgnoresTheLimitAndTypingObeysIt) {
    Send(IDC_LINE, EM_LIMITTEXT, 3);
    SetText(IDC_LINE, "abcdef");
    EXPECT_EQ(dialog_->Text(IDC_LINE), "abcdef");
    dialog_.TakeNotifications();
    dialog_->Type(IDC_LINE, "wxyz");
    EXPECT_EQ(dialog_->Text(IDC_LINE), "wxy");
    const std::string changed = Changed(IDC_LINE);
    const std::string threeTimes = changed + " " + changed + " " + changed + " ";
    const std::string full = Code(IDC_LINE, EN_MAXTEXT);
    EXPECT_EQ(dialog_.TakeNotifications(),
              kit::ExceptOn(WindowSystem::kWine, threeTimes + full + " " + changed,
                            "tells of a change also when nothing fits", threeTimes + full));
}

TEST_F(Edits, WhatIsPastedIsCutAtTheLimitAndToldOnce) {
    Send(IDC_LINE, EM_LIMITTEXT, 6);
    SetText(IDC_LINE, "abcdef");
    Send(IDC_LINE, EM_SETSEL, 1, 3);
    Focus(IDC_LINE);
    kit::Paste(dialog_->Control(IDC_LINE), "UVWXYZ");
    EXPECT_EQ(dialog_->Text(IDC_LINE), "aUVdef");
    EXPECT_EQ(Send(IDC_LINE, EM_GETSEL), MAKELONG(3, 3));
    EXPECT_EQ(dialog_.TakeNotifications(), Code(IDC_LINE, EN_MAXTEXT) + " " + Changed(IDC_LINE));
}

TEST_F(Edits, OnlyASingleLineTellsOfTextThatTheProgramSets) {
    dialog_.TakeNotifications();
    SetText(IDC_PLAIN_LINES, "x");
    EXPECT_EQ(dialog_.TakeNotifications(), "");
    SetText(IDC_NAME, "x");
    EXPECT_EQ(dialog_.TakeNotifications(), Changed(IDC_NAME));
    Type(IDC_PLAIN_LINES, "y");
    EXPECT_EQ(dialog_.TakeNotifications(), Changed(IDC_PLAIN_LINES)) << "typing is always told";
}

TEST_F(Edits, TypingGoesInPlaceOfTheSelection) {
    Focus(IDC_LINE);
    SetText(IDC_LINE, "abcdef");
    Send(IDC_LINE, EM_SETSEL, 2, 4);
    Type(IDC_LINE, "XYZ");
    EXPECT_EQ(dialog_->Text(IDC_LINE), "abXYZef");
    EXPECT_EQ(Send(IDC_LINE, EM_GETSEL), MAKELONG(5, 5));
    SetText(IDC_LINE, "new");
    EXPECT_EQ(Send(IDC_LINE, EM_GETSEL), 0) << "the caret stands before new text";
}

TEST_F(Edits, ALineEndIsOneCharacterForKeys) {
    Focus(IDC_RETURN_LINES);
    for (const auto& [key, left, caret] : {std::tuple{VK_BACK, "ab", 1},
                                           {VK_DELETE, "ab", 1},
                                           {VK_LEFT, "a\r\nb", 1},
                                           {VK_RIGHT, "a\r\nb", 3}}) {
        const bool behind = key == VK_BACK || key == VK_LEFT;
        SetText(IDC_RETURN_LINES, "a\r\nb");
        Send(IDC_RETURN_LINES, EM_SETSEL, behind ? 3 : 1, behind ? 3 : 1);
        dialog_->Key(static_cast<WPARAM>(key));
        EXPECT_EQ(dialog_->Text(IDC_RETURN_LINES), left) << "key " << key;
        EXPECT_EQ(Send(IDC_RETURN_LINES, EM_GETSEL), MAKELONG(caret, caret)) << "key " << key;
    }
}

TEST_F(Edits, KeysMoveTheCaretAndDelete) {
    Focus(IDC_LINE);
    SetText(IDC_LINE, "abc");
    const struct {
        WPARAM key;
        const char* text;
        int caret;
    } steps[] = {{VK_END, "abc", 3},   {VK_LEFT, "abc", 2}, {VK_DELETE, "ab", 2},
                 {VK_DELETE, "ab", 2}, {VK_HOME, "ab", 0},  {VK_LEFT, "ab", 0},
                 {VK_RIGHT, "ab", 1},  {VK_DELETE, "a", 1}};
    for (const auto& step : steps) {
        dialog_->Key(step.key);
        EXPECT_EQ(dialog_->Text(IDC_LINE), step.text) << step.key;
        EXPECT_EQ(Send(IDC_LINE, EM_GETSEL), MAKELONG(step.caret, step.caret)) << step.key;
    }
    dialog_.TakeNotifications();
    Type(IDC_LINE, "\b");
    EXPECT_EQ(dialog_->Text(IDC_LINE), "");
    EXPECT_EQ(dialog_.TakeNotifications(), Changed(IDC_LINE));
    Type(IDC_LINE, "\b");
    EXPECT_EQ(dialog_.TakeNotifications(), "") << "nothing to delete";
}

TEST_F(Edits, StylesRefuseTyping) {
    struct Case {
        DWORD style;
        const char* left;
    };
    constexpr int kId = 900;
    for (const Case& each : {Case{0, "a1b2"}, Case{ES_READONLY, "before"}, Case{ES_NUMBER, "12"}}) {
        const HWND edit = OnUserInterface([&] {
            return CreateWindowExA(0, "Edit", "before", each.style | WS_CHILD | WS_VISIBLE, 0, 0,
                                   50, 20, dialog_->Handle(), reinterpret_cast<HMENU>(INT_PTR{kId}),
                                   nullptr, nullptr);
        });
        dialog_->Type(kId, "a1b2");
        EXPECT_EQ(dialog_->Text(kId), each.left) << "style " << each.style;
        OnUserInterface([edit] { DestroyWindow(edit); });
    }
}

TEST_F(Edits, DisablingTheFocusedOneTakesTheFocusFromIt) {
    Focus(IDC_NAME);
    dialog_->Enable(IDC_NAME, false);
    EXPECT_EQ(dialog_.TakeNotifications(), Code(IDC_NAME, EN_KILLFOCUS));
    EXPECT_EQ(dialog_->FocusedId(), 0);
    SetText(IDC_NAME, "grey");
    EXPECT_EQ(dialog_->Text(IDC_NAME), "grey") << "the program's text it takes";
}

TEST_F(Edits, LineEndsStayAsTheProgramSetThem) {
    for (const char* text : {"one\r\ntwo", "one\ntwo"}) {
        SetText(IDC_RETURN_LINES, text);
        EXPECT_EQ(dialog_->Text(IDC_RETURN_LINES), text);
    }
}

TEST_F(Edits, ReadingGivesAtMostWhatFits) {
    SetText(IDC_LINE, "abcdef");
    std::array<char, 8> text;
    text.fill('~');
    const UINT length = OnUserInterface(
        [&] { return GetDlgItemTextA(dialog_->Handle(), IDC_LINE, text.data(), 5); });
    EXPECT_EQ(length, 4u);
    EXPECT_EQ(std::string(text.data(), 6), std::string("abcd\0~", 6));
    EXPECT_EQ(Send(IDC_LINE, WM_GETTEXTLENGTH), 6);
}

TEST(UpperCaseEdits, ConvertTypingAndProgramText) {
    const kit::RecordedDialog dialog(IDD_LISTS, "Lists");
    dialog->Type(IDC_CAPITALS, "c:/vcp");
    EXPECT_EQ(dialog->Text(IDC_CAPITALS), "C:/VCP");
    dialog->SetText(IDC_CAPITALS, "code.bin");
    EXPECT_EQ(dialog->Text(IDC_CAPITALS), "CODE.BIN");
}

}  // namespace
