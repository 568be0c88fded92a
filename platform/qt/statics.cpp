// Controls that only show: labels, pictures, frames, group boxes.
#include <QFrame>
#include <QGroupBox>
#include <QLabel>
#include <QPainter>
#include <QStyle>

#include "platform/qt/accessibility.h"
#include "platform/qt/control.h"
#include "platform/qt/image.h"
#include "platform/qt/text.h"
#include "platform/win32.h"

namespace vxd::qt {
namespace {

// QLabel would take the key in its text for its buddy, the field that it names; here the core knows
// what a key reaches. So the text is not QLabel's.
class LabelWidget : public QLabel {
  public:
    LabelWidget(QWidget* parent, std::uint32_t style) : QLabel(parent), style_(style) {}

    void SetText(const QString& text) {
        text_ = text;
        NameLabel(*this, (style_ & SS_NOPREFIX) != 0 ? text : WithoutKeyMarks(text));
        update();
    }

  protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        style()->drawItemText(&painter, rect(), TextFlags(), palette(), isEnabled(), text_,
                              foregroundRole());
    }

  private:
    int TextFlags() const {
        const std::uint32_t type = style_ & SS_TYPEMASK;
        int flags = Qt::TextExpandTabs;
        flags |= type == SS_CENTER  ? Qt::AlignHCenter
                 : type == SS_RIGHT ? Qt::AlignRight
                                    : Qt::AlignLeft;
        if ((style_ & SS_NOPREFIX) == 0)
            flags |= Qt::TextShowMnemonic;
        // A label with room for one line keeps its last word even where the font is wider than
        // planned, and stands level with the text of the field beside it.
        if (height() < 2 * fontMetrics().height())
            return flags | Qt::AlignVCenter;
        flags |= Qt::AlignTop;
        if (type != SS_SIMPLE && type != SS_LEFTNOWORDWRAP)
            flags |= Qt::TextWordWrap;
        return flags;
    }

    std::uint32_t style_;
    QString text_;
};

class Label : public Control {
  public:
    Label(const WidgetSetup& setup, QWidget& parent)
        : Control(setup, std::make_unique<LabelWidget>(&parent, setup.style)) {
        NativeWidget().setAttribute(Qt::WA_TransparentForMouseEvents);
    }

    void SetText(const std::string& text) override {
        static_cast<LabelWidget&>(NativeWidget()).SetText(ToQt(text));
    }
};

class Picture : public Control {
  public:
    Picture(const WidgetSetup& setup, QWidget& parent)
        : Control(setup, std::make_unique<QLabel>(&parent)) {
        static_cast<QLabel&>(NativeWidget()).setAlignment(Qt::AlignLeft | Qt::AlignTop);
    }

    void SetIcon(const Pixels& icon) override {
        static_cast<QLabel&>(NativeWidget()).setPixmap(QPixmap::fromImage(ToImage(icon)));
    }
};

class FrameLine : public Control {
  public:
    FrameLine(const WidgetSetup& setup, QWidget& parent)
        : Control(setup, std::make_unique<QFrame>(&parent)) {
        auto& frame = static_cast<QFrame&>(NativeWidget());
        const std::uint32_t type = setup.style & SS_TYPEMASK;
        frame.setFrameStyle(QFrame::Box |
                            (type == SS_ETCHEDFRAME ? QFrame::Sunken : QFrame::Plain));
        // A plain frame is drawn in the colour of texts.
        const QPalette::ColorRole role = type == SS_BLACKFRAME  ? QPalette::WindowText
                                         : type == SS_GRAYFRAME ? QPalette::Dark
                                                                : QPalette::Light;
        QPalette palette = frame.palette();
        palette.setColor(QPalette::WindowText, palette.color(role));
        frame.setPalette(palette);
    }
};

class GroupBox : public Control {
  public:
    GroupBox(const WidgetSetup& setup, QWidget& parent)
        : Control(setup, std::make_unique<QGroupBox>(&parent)) {
        NativeWidget().setAttribute(Qt::WA_TransparentForMouseEvents);
        // Its members are its siblings and lie in front of it.
        NativeWidget().lower();
    }

    void SetText(const std::string& text) override {
        static_cast<QGroupBox&>(NativeWidget()).setTitle(ToQt(text));
    }
};

}  // namespace

std::unique_ptr<Control> MakeLabel(const WidgetSetup& setup, QWidget& parent) {
    return std::make_unique<Label>(setup, parent);
}

std::unique_ptr<Control> MakePicture(const WidgetSetup& setup, QWidget& parent) {
    return std::make_unique<Picture>(setup, parent);
}

std::unique_ptr<Control> MakeFrame(const WidgetSetup& setup, QWidget& parent) {
    return std::make_unique<FrameLine>(setup, parent);
}

std::unique_ptr<Control> MakeGroupBox(const WidgetSetup& setup, QWidget& parent) {
    return std::make_unique<GroupBox>(setup, parent);
}

}  // namespace vxd::qt
