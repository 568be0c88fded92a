// What message boxes show and answer.
#include <gtest/gtest.h>

#include <functional>

#include "tests/kit/user_interface.h"
#include "tests/platform/dialogs.h"
#include "tests/platform/recorder.h"

namespace {

constexpr int kStaysOpen = -1;

class MessageBoxes : public testing::Test {
  protected:
    kit::Dialog Open(UINT style) {
        kit::BeginStep([=, this] {
            answer_ = kStaysOpen;
            answer_ = MessageBoxA(owner_.Shown().Handle(), "Text", "Title", style);
        });
        return kit::WaitForDialog("Title");
    }
    int Answer() {
        return kit::OnUserInterface([this] { return answer_; });
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
    struct Case {
        UINT style;
        int answer;
    };
    for (const Case& each :
         {Case{MB_OK, IDOK}, Case{MB_OKCANCEL, IDCANCEL}, Case{MB_YESNO, kStaysOpen}}) {
        for (const bool byKey : {true, false}) {
            const kit::Dialog box = Open(each.style);
            if (byKey)
                box.Key(VK_ESCAPE);
            else
                box.CloseBox();
            EXPECT_EQ(Answer(), each.answer)
                << "style " << each.style << (byKey ? ", Escape" : ", close box");
            if (each.answer != kStaysOpen)
                continue;
            box.Press(IDNO);
            EXPECT_EQ(Answer(), IDNO);
        }
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

TEST_F(MessageBoxes, WithoutATitleSayError) {
    kit::BeginStep([this] { answer_ = MessageBoxA(owner_.Shown().Handle(), "Text", nullptr, 0); });
    kit::WaitForDialog("Error").Key(VK_RETURN);
    EXPECT_EQ(Answer(), IDOK);
}

}  // namespace
