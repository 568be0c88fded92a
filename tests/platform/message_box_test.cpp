// What message boxes show and answer.
#include "tests/kit/user_interface.h"
#include "tests/platform/dialogs.h"
#include "tests/platform/difference.h"
#include "tests/platform/recorder.h"

namespace {

constexpr int kStaysOpen = -1;

class MessageBoxes : public testing::Test {
  protected:
    kit::Dialog Open(UINT style) {
        kit::BeginStep([=, this] {
            answer_ = kStaysOpen;
            answer_ = MessageBoxA(owner_->Handle(), "Text", "Title", style);
        });
        return kit::WaitForDialog("Title");
    }
    int Answer() {
        return kit::OnUserInterface([this] { return answer_; });
    }
    // The answers to Escape and to the close box.
    std::array<int, 2> Dismissed(UINT style) {
        Open(style).Key(VK_ESCAPE);
        const int toEscape = Answer();
        (toEscape == kStaysOpen ? kit::FrontDialog() : Open(style)).CloseBox();
        return {toEscape, Answer()};
    }

    kit::RecordedDialog owner_{IDD_BARE, "Bare"};
    int answer_ = kStaysOpen;
};

TEST_F(MessageBoxes, ShowTheSignAndTheButtonsThatAreAskedFor) {
    for (const UINT style : {UINT{MB_OK}, UINT{MB_OK | MB_ICONHAND}, UINT{MB_OKCANCEL},
                             UINT{MB_YESNO | MB_ICONEXCLAMATION}, UINT{MB_ICONINFORMATION}}) {
        const kit::Dialog box = Open(style);
        EXPECT_EQ(kit::BoxStyle(box), style);
        EXPECT_EQ(kit::BoxText(box), "Text");
        box.Key(VK_RETURN);
        EXPECT_EQ(Answer(), (style & MB_TYPEMASK) == MB_YESNO ? IDYES : IDOK)
            << "the first button is the default one";
    }
}

TEST_F(MessageBoxes, EscapeAndTheCloseBoxAnswerCancelElseAnOkThatStandsAlone) {
    EXPECT_EQ(Dismissed(MB_OKCANCEL), (std::array{IDCANCEL, IDCANCEL}));
    EXPECT_EQ(Dismissed(MB_OK),
              kit::ExceptOn(WindowSystem::kWine, {IDCANCEL, IDCANCEL},
                            "answers with the number its OK bears, that of Cancel",
                            std::array{IDOK, IDOK}));
    const std::array answers = Dismissed(MB_YESNO);
    EXPECT_EQ(answers, kit::ExceptOn(WindowSystem::kWine, {IDCANCEL, IDCANCEL},
                                     "answers Cancel, though none is offered",
                                     std::array{kStaysOpen, kStaysOpen}));
    if (answers.back() == kStaysOpen) {
        kit::FrontDialog().Press(IDNO);
        EXPECT_EQ(Answer(), IDNO);
    }
}

TEST_F(MessageBoxes, KeysLeadToTheOtherButtonAndLettersPressOne) {
    const kit::Dialog choice = Open(MB_OKCANCEL);
    choice.Key(VK_RIGHT);
    EXPECT_EQ(choice.FocusedId(), IDCANCEL);
    choice.Key(VK_RETURN);
    EXPECT_EQ(Answer(), IDCANCEL);
    Open(MB_YESNO).AltKey('n');
    EXPECT_EQ(Answer(), IDNO);
}

TEST_F(MessageBoxes, WithoutAnOwnerLeaveOtherWindowsAloneUnlessTheyAreToShutThemOut) {
    const HWND other = owner_->Handle();
    for (const auto& [style, enabled] : {std::pair{UINT{MB_OK}, true}, {MB_TASKMODAL, false}}) {
        kit::BeginStep([style = style] { MessageBoxA(nullptr, "Text", "Title", style); });
        const kit::Dialog box = kit::WaitForDialog("Title");
        EXPECT_EQ(IsWindowEnabled(other) != 0, enabled);
        box.Key(VK_RETURN);
        EXPECT_TRUE(IsWindowEnabled(other));
        EXPECT_EQ(kit::FrontDialog().Handle(), other);
    }
}

}  // namespace
