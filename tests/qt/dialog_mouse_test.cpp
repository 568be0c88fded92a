// The mouse on a dialog's own area: where no control lies that has a use for it.
#include <QTest>
#include <QWindow>

#include "tests/qt/form_test.h"

namespace {

using form::FormTest;

TEST_F(FormTest, TheMouseReachesTheDialogThroughWhateverTakesNoInput) {
    form_.Enable(IDC_APPLY, false);
    for (const int id : {IDC_LEVEL_LABEL, IDC_APPLY, IDOK, IDC_NAME, IDC_RED}) {
        const HWND control = Control(id);
        native::Do([control] {
            QWidget* widget = native::WidgetOf(control);
            QTest::mouseDClick(widget->window()->windowHandle(), Qt::RightButton, {},
                               widget->mapTo(widget->window(), widget->rect().center()));
        });
        EXPECT_EQ(TakeHeard(), id == IDC_LEVEL_LABEL || id == IDC_APPLY ? "double" : "") << id;
    }
    for (const int id : {IDC_LEVEL_LABEL, IDC_LEVEL, IDOK}) {
        const HWND control = Control(id);
        QPoint at;
        native::Do([&] {
            QWidget* widget = native::WidgetOf(control);
            at = widget->mapToGlobal(QPoint(9, 9));
            native::TurnWheel(*widget, QPoint(9, 9), -120);
        });
        EXPECT_EQ(TakeHeard(),
                  "wheel=-120 at " + std::to_string(at.x()) + "," + std::to_string(at.y()));
    }
}

}  // namespace
