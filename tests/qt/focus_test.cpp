// Where the keyboard is can be seen, in the style that a desktop without one of its own shows.
#include <QApplication>
#include <QStyleFactory>

#include "tests/qt/form_test.h"

namespace {

using form::FormTest;

// How many pixels differ so much that the eye finds them.
int PlainlyDifferent(const QImage& one, const QImage& other) {
    constexpr int kPlain = 60;  // of all three colours together
    int count = 0;
    for (int at = 0; at < one.width() * one.height(); ++at) {
        const QColor a = one.pixelColor(at % one.width(), at / one.width());
        const QColor b = other.pixelColor(at % one.width(), at / one.width());
        if (std::abs(a.red() - b.red()) + std::abs(a.green() - b.green()) +
                std::abs(a.blue() - b.blue()) >=
            kPlain)
            ++count;
    }
    return count;
}

TEST_F(FormTest, TheFocusIsSeenOnEveryKindOfControlWhetherKeysOrTheMouseBroughtIt) {
    kit::OnUserInterface([] { QApplication::setStyle(QStyleFactory::create("Fusion")); });
    Send(IDC_LIST, LB_SETCURSEL, 0);
    const auto look = [this](int id, int focused) {
        Focus(focused);
        // The caret and a selection are no marks of the field: they may be missing.
        Send(id, EM_SETSEL, 0, 0);
        return Look(id);
    };
    for (const bool afterClick : {false, true}) {
        if (afterClick)
            native::Click(Control(IDC_MANUAL));
        for (const int id : {IDC_NAME, IDC_NOTE, IDC_RED, IDC_MANUAL, IDC_PLACE, IDC_WORD, IDC_LIST,
                             IDC_SIMPLE, IDC_APPLY, IDOK}) {
            // Between push buttons the look of the default one goes with the focus.
            const QImage without = look(id, id == IDC_NAME ? IDC_PLACE : IDC_NAME);
            // A mark takes as many pixels as a line along the control's shorter side, and more.
            EXPECT_GT(PlainlyDifferent(look(id, id), without), 2 * without.height())
                << id << (afterClick ? " after a click" : "");
        }
    }
}

}  // namespace
