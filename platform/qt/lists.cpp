#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QListWidget>
#include <QScopedValueRollback>
#include <QSignalBlocker>
#include <algorithm>
#include <functional>
#include <optional>
#include <utility>

#include "platform/qt/accessibility.h"
#include "platform/qt/control.h"
#include "platform/qt/focus.h"
#include "platform/qt/line_text.h"
#include "platform/qt/text.h"

namespace vxd::qt {
namespace {

// A list of which a person chooses one row: with the mouse when the button comes up, with the keys
// at once. The second click of two tells of nothing but the double click. Assistive tools select a
// row without any of these.
class ListView : public QListWidget {
  public:
    ListView(QWidget* parent, WidgetId id, Report& report)
        : QListWidget(parent), id_(id), report_(report) {
        setUniformItemSizes(true);
        setFocusPolicy(Qt::ClickFocus);
        ShowFocus(*this);
        connect(this, &QListWidget::itemDoubleClicked, this, [this](QListWidgetItem* item) {
            doubleClicked_ = true;
            report_(input::RowDoubleClicked, id_, row(item));
        });
        connect(this, &QListWidget::itemSelectionChanged, this, [this] { SelectionChanged(); });
    }

    void Insert(int at, const std::string& text) {
        insertItem(at, ToQt(text));
        Select(row_ >= at ? row_ + 1 : row_);
    }

    void Remove(int at) {
        delete takeItem(at);
        // Qt would select a neighbour of a selected row that goes.
        Select(row_ == at ? -1 : row_ > at ? row_ - 1 : row_);
    }

    void Clear() {
        clear();
        row_ = -1;
    }

    void Select(int row) {
        row_ = row;
        setCurrentRow(row);
        if (row < 0)
            clearSelection();
    }

  protected:
    bool event(QEvent* event) override {
        const QScopedValueRollback inside(inEvent_, true);
        return QListWidget::event(event);
    }

    bool viewportEvent(QEvent* event) override {
        const QScopedValueRollback inside(inEvent_, true);
        return QListWidget::viewportEvent(event);
    }

    void mousePressEvent(QMouseEvent* event) override {
        QListWidget::mousePressEvent(event);
        const QModelIndex under = indexAt(event->position().toPoint());
        const bool chooses = event->button() == Qt::LeftButton && under.isValid();
        report_(input::RowPressed, id_, chooses ? under.row() : -1);
    }

    void mouseReleaseEvent(QMouseEvent* event) override {
        QListWidget::mouseReleaseEvent(event);
        if (event->button() == Qt::LeftButton && !std::exchange(doubleClicked_, false))
            Choose(true);
    }

    void keyPressEvent(QKeyEvent* event) override {
        QListWidget::keyPressEvent(event);
        Choose(false);
    }

  private:
    // A click counts even on the row that is selected already.
    void Choose(bool again) {
        const QList<QListWidgetItem*> selected = selectedItems();
        const int chosen = selected.isEmpty() ? -1 : row(selected.front());
        if (chosen < 0) {
            // A click beside the rows takes no selection away.
            const QSignalBlocker blocker(this);
            return Select(row_);
        }
        if (chosen == row_ && !again)
            return;
        row_ = chosen;
        report_(input::RowChosen, id_, chosen);
    }

    // A tool may first take the selection away and then select besides what is selected.
    void SelectionChanged() {
        if (inEvent_ || !report_.IsOpen())
            return;
        int chosen = -1;
        for (const QListWidgetItem* item : selectedItems()) {
            if (row(item) != row_)
                chosen = row(item);
        }
        {
            const QSignalBlocker blocker(this);
            Select(row_);
        }
        if (chosen >= 0)
            report_(input::RowChosen, id_, chosen);
    }

    WidgetId id_;
    Report& report_;
    int row_ = -1;
    bool doubleClicked_ = false;
    bool inEvent_ = false;  // what changes then is the mouse's or a key's
};

class ListBox : public Control {
  public:
    ListBox(const WidgetSetup& setup, QWidget& parent, Report& report)
        : Control(setup, std::make_unique<ListView>(&parent, setup.id, report)) {
        SetScrollBars(List(), setup.style);
    }

    void InsertRow(int row, const std::string& text) override { List().Insert(row, text); }
    void RemoveRow(int row) override { List().Remove(row); }
    void ClearRows() override { List().Clear(); }
    void SelectRow(int row) override { List().Select(row); }

  private:
    ListView& List() const { return static_cast<ListView&>(NativeWidget()); }
};

// Lists drop down below their box and scroll, in every style: some of the utility's have a hundred
// rows, and a menu in the middle of the desktop would show them all.
class ListBelow : public FocusStyle {
  public:
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* result) const override {
        return hint == SH_ComboBox_Popup ? 0 : FocusStyle::styleHint(hint, option, widget, result);
    }

    static QStyle* Shared() {
        static QStyle* style = [] {
            auto* made = new ListBelow;
            made->setParent(qApp);
            return made;
        }();
        return style;
    }
};

class DropDown : public QComboBox {
  public:
    DropDown(QWidget* parent, WidgetId id, Report& report)
        : QComboBox(parent), id_(id), report_(report) {
        setStyle(ListBelow::Shared());
        setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
        connect(this, &QComboBox::activated, this,
                [this](int row) { report_(input::RowChosen, id_, row); });
        connect(
            view()->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            [this] { SelectionChanged(); }, Qt::QueuedConnection);
    }

    // The list knows the row also while it is closed: assistive tools read it there.
    void Select(int row) {
        setCurrentIndex(row);
        MarkInList();
    }

    // The room under the closed box that the list may take.
    void SetListHeight(int height) { listHeight_ = height; }

    void showPopup() override {
        // A template that leaves the list no room still gets one that can be used.
        constexpr int kFewestRows = 8;
        if (const int rowHeight = view()->sizeHintForRow(0); rowHeight > 0)
            setMaxVisibleItems(std::max(kFewestRows, listHeight_ / rowHeight));
        QComboBox::showPopup();
        view()->window()->installEventFilter(this);
        if (view()->isVisible())
            report_(input::Dropped, id_, true);
    }

    bool eventFilter(QObject* object, QEvent* event) override {
        if (event->type() == QEvent::Hide && object->isWidgetType() &&
            static_cast<QWidget*>(object)->isWindow())
            report_(input::Dropped, id_, false);
        return QComboBox::eventFilter(object, event);
    }

  private:
    void MarkInList() {
        view()->setCurrentIndex(model()->index(currentIndex(), modelColumn(), rootModelIndex()));
    }

    // Mouse and keys make the row that they lead to the current one before it is chosen. Assistive
    // tools select another, and so choose it, or none, which counts for nothing.
    void SelectionChanged() {
        int chosen = -1;
        for (const QModelIndex& index : view()->selectionModel()->selectedIndexes()) {
            if (index != view()->currentIndex())
                chosen = index.row();
        }
        if (chosen < 0 && view()->selectionModel()->hasSelection())
            return;
        MarkInList();
        if (chosen < 0)
            return;
        hidePopup();
        report_(input::RowChosen, id_, chosen);
    }

    WidgetId id_;
    Report& report_;
    int listHeight_ = 0;
};

class ComboBox : public Control {
  public:
    ComboBox(const WidgetSetup& setup, QWidget& parent, Report& report)
        : Control(setup, std::make_unique<DropDown>(&parent, setup.id, report)) {
        if (Kind() != WidgetKind::kComboBox)
            return;
        Native().setEditable(true);
        Native().setInsertPolicy(QComboBox::NoInsert);
        Native().setCompleter(nullptr);
        text_.emplace(*Native().lineEdit(), setup.id, report, [this](const QString& text) {
            return Native().currentIndex() >= 0 &&
                   text == Native().itemText(Native().currentIndex());
        });
    }

    void TakeFocus() override {
        Control::TakeFocus();
        if (text_)
            text_->RestoreSelection();
    }

    // The rectangle has the height of the dropped box.
    void SetRect(const Rect& rect) override {
        const int height = LineControlHeight();
        Native().SetListHeight(rect.height - height);
        Native().setGeometry(rect.x, rect.y, rect.width, height);
    }

    void SetText(const std::string& text) override {
        if (text_)
            text_->Set(text);
    }
    void SetTextSelection(int start, int end) override {
        if (text_)
            text_->Select(start, end);
    }

    void InsertRow(int row, const std::string& text) override {
        ChangeRows([&] {
            const bool unselected = Native().currentIndex() < 0;
            Native().insertItem(row, ToQt(text));
            if (unselected)
                Native().setCurrentIndex(-1);
        });
    }

    void RemoveRow(int row) override {
        ChangeRows([&] {
            const bool selected = row == Native().currentIndex();
            Native().removeItem(row);
            if (selected)
                Native().setCurrentIndex(-1);
        });
    }

    void ClearRows() override {
        ChangeRows([this] { Native().clear(); });
    }

    void SelectRow(int row) override {
        ChangeRows([&] { Native().Select(row); });
    }

    void SetDropped(bool dropped) override {
        if (dropped) {
            Native().showPopup();
        } else {
            Native().hidePopup();
        }
    }

  private:
    DropDown& Native() const { return static_cast<DropDown&>(NativeWidget()); }

    // Qt selects the first row that comes into an empty box and writes selected rows into the edit;
    // here both are the core's to do.
    template <typename Change>
    void ChangeRows(Change change) {
        const QString text = Native().currentText();
        change();
        if (text_ && Native().currentText() != text) {
            Native().setEditText(text);
            text_->RestoreSelection();
        }
    }

    std::optional<LineText> text_;
};

// The edit above, the list below it; arrow keys in the edit move in the list.
class EditOverList : public QWidget {
  public:
    EditOverList(QWidget* parent, WidgetId id, Report& report)
        : QWidget(parent), edit_(this), list_(this, id, report) {
        SetRole(*this, QAccessible::ComboBox);
        edit_.setFocusPolicy(Qt::ClickFocus);
        edit_.installEventFilter(this);
    }

    QLineEdit& Edit() { return edit_; }
    ListView& List() { return list_; }

    bool eventFilter(QObject* object, QEvent* event) override {
        if (object == &edit_ && event->type() == QEvent::KeyPress) {
            switch (static_cast<QKeyEvent*>(event)->key()) {
                case Qt::Key_Up:
                case Qt::Key_Down:
                case Qt::Key_PageUp:
                case Qt::Key_PageDown:
                    return QCoreApplication::sendEvent(&list_, event);
                default:
                    break;
            }
        }
        return QWidget::eventFilter(object, event);
    }

  protected:
    void resizeEvent(QResizeEvent*) override {
        const int editHeight = std::min(height(), LineControlHeight());
        edit_.setGeometry(0, 0, width(), editHeight);
        list_.setGeometry(0, editHeight, width(), height() - editHeight);
    }

  private:
    QLineEdit edit_;
    ListView list_;
};

class SimpleCombo : public Control {
  public:
    SimpleCombo(const WidgetSetup& setup, QWidget& parent, Report& report)
        : Control(setup, std::make_unique<EditOverList>(&parent, setup.id, report)),
          text_(Native().Edit(), setup.id, report) {
        SetScrollBars(Native().List(), setup.style);
    }

    void TakeFocus() override {
        Native().Edit().setFocus(Qt::OtherFocusReason);
        text_.RestoreSelection();
    }
    void SetText(const std::string& text) override { text_.Set(text); }
    void SetTextSelection(int start, int end) override { text_.Select(start, end); }
    void InsertRow(int row, const std::string& text) override { Native().List().Insert(row, text); }
    void RemoveRow(int row) override { Native().List().Remove(row); }
    void ClearRows() override { Native().List().Clear(); }
    void SelectRow(int row) override { Native().List().Select(row); }

  private:
    EditOverList& Native() const { return static_cast<EditOverList&>(NativeWidget()); }

    LineText text_;
};

}  // namespace

std::unique_ptr<Control> MakeListBox(const WidgetSetup& setup, QWidget& parent, Report& report) {
    return std::make_unique<ListBox>(setup, parent, report);
}

std::unique_ptr<Control> MakeComboBox(const WidgetSetup& setup, QWidget& parent, Report& report) {
    return std::make_unique<ComboBox>(setup, parent, report);
}

std::unique_ptr<Control> MakeSimpleCombo(const WidgetSetup& setup, QWidget& parent,
                                         Report& report) {
    return std::make_unique<SimpleCombo>(setup, parent, report);
}

}  // namespace vxd::qt
