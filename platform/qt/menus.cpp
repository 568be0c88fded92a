#include "platform/qt/menus.h"

#include <QActionGroup>
#include <QApplication>
#include <QKeyEvent>
#include <QMenuBar>
#include <QStyleOptionMenuItem>
#include <algorithm>

#include "platform/qt/text.h"

namespace vxd::qt {
namespace {

void SetMarks(QAction& action, const MenuView& item) {
    action.setText(ToQt(item.text));
    action.setEnabled(item.enabled);
    action.setCheckable(item.checked);
    action.setChecked(item.checked);
    if (item.checked && item.radioMark && action.actionGroup() == nullptr) {
        // Qt draws the mark of an exclusive group's action as a bullet.
        action.setActionGroup(new QActionGroup(&action));
    }
}

bool SameShape(const std::vector<MenuView>& a, const std::vector<MenuView>& b) {
    return std::equal(
        a.begin(), a.end(), b.begin(), b.end(), [](const MenuView& left, const MenuView& right) {
            return left.popup == right.popup && left.separator == right.separator &&
                   left.command == right.command && SameShape(left.children, right.children);
        });
}

}  // namespace

void FillMenu(QMenu& menu, const std::vector<MenuView>& items, const MenuChoice& chosen) {
    menu.clear();
    qDeleteAll(menu.findChildren<QMenu*>(Qt::FindDirectChildrenOnly));
    for (const MenuView& item : items) {
        if (item.separator) {
            menu.addSeparator();
        } else if (item.popup) {
            auto* inner = new QMenu(&menu);
            FillMenu(*inner, item.children, chosen);
            SetMarks(*menu.addMenu(inner), item);
        } else {
            QAction* action = menu.addAction(QString());
            SetMarks(*action, item);
            QObject::connect(action, &QAction::triggered, action,
                             [chosen, command = item.command] { chosen(command); });
        }
    }
}

void RefreshMenu(QMenu& menu, const std::vector<MenuView>& items) {
    const QList<QAction*> actions = menu.actions();
    for (std::size_t at = 0; at < items.size() && at < static_cast<std::size_t>(actions.size());
         ++at) {
        QAction& action = *actions[static_cast<qsizetype>(at)];
        if (items[at].separator)
            continue;
        SetMarks(action, items[at]);
        if (QMenu* inner = action.menu(); inner != nullptr)
            RefreshMenu(*inner, items[at].children);
    }
}

// One row of the bar. The arrow keys run through all rows as through one.
class MenuRows::Row : public QMenuBar {
  public:
    Row(QWidget* window, MenuRows& rows, bool isFirst)
        : QMenuBar(window), rows_(rows), isFirst_(isFirst) {
        setNativeMenuBar(false);
    }

    // Each row watches the window for the Alt key. The row that has the keyboard answers it, else
    // the first.
    bool eventFilter(QObject* object, QEvent* event) override {
        const auto* focused = dynamic_cast<const Row*>(QApplication::focusWidget());
        const bool answers = focused != nullptr ? focused == this : isFirst_;
        return answers && QMenuBar::eventFilter(object, event);
    }

    // Qt gives the keyboard to a bar, or takes it back, when Alt goes down and up alone.
    void PressAlt() {
        QKeyEvent down(QEvent::ShortcutOverride, Qt::Key_Alt, Qt::NoModifier);
        QKeyEvent up(QEvent::KeyRelease, Qt::Key_Alt, Qt::AltModifier);
        QMenuBar::eventFilter(this, &down);
        QMenuBar::eventFilter(this, &up);
    }

    void PressLetter(const QString& letter) {
        QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, letter);
        QMenuBar::keyPressEvent(&press);
    }

    // Takes the keyboard to one of the row's entries without opening it.
    void Enter(const QAction& entry) {
        PressAlt();
        for (qsizetype steps = actions().size(); steps > 1 && activeAction() != &entry; --steps) {
            Take(Qt::Key_Right);
        }
    }

    // The keyboard goes back to where it was first, so that the next row returns it there too.
    void Leave() {
        setActiveAction(nullptr);
        Take(Qt::Key_Escape);
    }

  protected:
    void keyPressEvent(QKeyEvent* event) override {
        if (event->key() == Qt::Key_F10)
            return PressAlt();
        const QAction* active = activeAction();
        const QList<QAction*> all = actions();
        if (event->key() == Qt::Key_Right && active != nullptr && active == all.last())
            return GoOn(event, 1);
        if (event->key() == Qt::Key_Left && active != nullptr && active == all.first())
            return GoOn(event, -1);
        if (const char32_t letter = LetterOf(*event); letter != 0 && !HasOpenMenu()) {
            return rows_.Follow(*this, letter);
        }
        QMenuBar::keyPressEvent(event);
    }

    // Some styles mark an entry only while its menu is open.
    void initStyleOption(QStyleOptionMenuItem* option, const QAction* action) const override {
        QMenuBar::initStyleOption(option, action);
        if (hasFocus() && option->state.testFlag(QStyle::State_Selected))
            option->state |= QStyle::State_Sunken;
    }

  private:
    static char32_t LetterOf(const QKeyEvent& event) {
        const auto text = event.text().toUcs4();
        return !text.isEmpty() && QChar::isLetterOrNumber(text.front()) ? text.front() : 0;
    }

    bool HasOpenMenu() const {
        const QMenu* popup = activeAction() != nullptr ? activeAction()->menu() : nullptr;
        return popup != nullptr && popup->isVisible();
    }

    void GoOn(QKeyEvent* event, int step) {
        Row& next = rows_.Neighbour(*this, step);
        if (&next == this)
            return QMenuBar::keyPressEvent(event);
        const bool isOpen = HasOpenMenu();
        Leave();
        next.PressAlt();
        if (step < 0)
            next.Take(Qt::Key_Left);
        if (isOpen)
            next.Take(Qt::Key_Down);
    }

    void Take(Qt::Key key) {
        QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
        QMenuBar::keyPressEvent(&press);
    }

    MenuRows& rows_;
    bool isFirst_;
};

MenuRows::MenuRows(QWidget& window, std::function<void(int)> opened, MenuChoice chosen)
    : window_(window), opened_(std::move(opened)), chosen_(std::move(chosen)) {}

MenuRows::~MenuRows() = default;

void MenuRows::Set(const std::vector<MenuView>& menu) {
    const bool sameShape = SameShape(menu_, menu);
    menu_ = menu;
    if (!sameShape)
        return Build();
    for (std::size_t at = 0; at < menu_.size(); ++at) {
        SetMarks(*entries_[at].Action(), menu_[at]);
        // A closed menu is filled anew when it opens.
        if (QMenu* popup = entries_[at].popup.get(); popup != nullptr && popup->isVisible())
            RefreshMenu(*popup, menu_[at].children);
    }
}

void MenuRows::Build() {
    rows_.clear();
    starts_.clear();
    entries_.clear();
    for (std::size_t at = 0; at < menu_.size(); ++at)
        entries_.push_back(MakeEntry(static_cast<int>(at)));
    if (!entries_.empty())
        Measure();
}

MenuRows::Entry MenuRows::MakeEntry(int position) {
    const MenuView& item = menu_[static_cast<std::size_t>(position)];
    Entry entry;
    if (item.popup) {
        entry.popup = std::make_unique<QMenu>(&window_);
        QObject::connect(entry.popup.get(), &QMenu::aboutToShow, [this, position] {
            Fill(position);
            opened_(position);
        });
    } else {
        entry.command = std::make_unique<QAction>();
        QObject::connect(entry.command.get(), &QAction::triggered,
                         [this, command = item.command] { chosen_(command); });
    }
    SetMarks(*entry.Action(), item);
    return entry;
}

void MenuRows::Fill(int position) {
    const auto at = static_cast<std::size_t>(position);
    FillMenu(*entries_[at].popup, menu_[at].children, chosen_);
}

// Lets Qt lay out all entries in one row that is wide enough and notes what each of them takes.
void MenuRows::Measure() {
    constexpr int kWide = 1 << 14;
    rows_.push_back(std::make_unique<Row>(&window_, *this, true));
    QMenuBar& row = *rows_.front();
    for (const Entry& entry : entries_)
        row.addAction(entry.Action());
    rowHeight_ = row.sizeHint().height();
    row.resize(kWide, rowHeight_);
    int left = row.actionGeometry(entries_.front().Action()).left();
    margins_ = 2 * left;
    for (std::size_t at = 0; at < entries_.size(); ++at) {
        const bool isLast = at + 1 == entries_.size();
        const int next = isLast ? row.actionGeometry(entries_[at].Action()).right() + 1
                                : row.actionGeometry(entries_[at + 1].Action()).left();
        entries_[at].width = next - left;
        left = next;
    }
    starts_ = {0};
}

std::vector<std::size_t> MenuRows::RowStarts(int width) const {
    std::vector<std::size_t> starts;
    int used = 0;
    for (std::size_t at = 0; at < entries_.size(); ++at) {
        if (starts.empty() || used + entries_[at].width > width) {
            starts.push_back(at);
            used = margins_;
        }
        used += entries_[at].width;
    }
    return starts;
}

int MenuRows::HeightFor(int width) const {
    return static_cast<int>(RowStarts(width).size()) * rowHeight_;
}

int MenuRows::LayOut(int width) {
    if (auto starts = RowStarts(width); starts != starts_) {
        starts_ = std::move(starts);
        rows_.resize(std::min(rows_.size(), starts_.size()));
        while (rows_.size() < starts_.size())
            rows_.push_back(std::make_unique<Row>(&window_, *this, false));
        for (std::size_t row = 0; row < rows_.size(); ++row) {
            rows_[row]->clear();
            const auto [begin, end] = EntriesOf(row);
            for (std::size_t at = begin; at < end; ++at)
                rows_[row]->addAction(entries_[at].Action());
        }
    }
    int top = 0;
    for (std::size_t row = 0; row < rows_.size(); ++row) {
        // A bar with less room than its entries take would put a list of its own in their place,
        // which runs a loop of Qt's.
        const auto [begin, end] = EntriesOf(row);
        int needed = margins_;
        for (std::size_t at = begin; at < end; ++at)
            needed += entries_[at].width;
        rows_[row]->setGeometry(0, top, std::max(width, needed), rowHeight_);
        rows_[row]->show();
        top += rowHeight_;
    }
    return top;
}

bool MenuRows::Enter() {
    if (rows_.empty())
        return false;
    rows_.front()->PressAlt();
    return true;
}

bool MenuRows::Open(char32_t letter) {
    if (auto* row = dynamic_cast<Row*>(window_.focusWidget()); row != nullptr) {
        row->Leave();
    }
    const std::vector<std::size_t> marked = MarkedBy(letter);
    if (marked.empty()) {
        return false;
    }
    if (marked.size() > 1) {
        MoveTo(marked.front());
    } else {
        Choose(marked.front(), letter);
    }
    return true;
}

void MenuRows::Follow(Row& from, char32_t letter) {
    const std::vector<std::size_t> marked = MarkedBy(letter);
    if (marked.empty()) {
        return;
    }
    const auto current =
        std::find_if(entries_.begin(), entries_.end(),
                     [&from](const Entry& entry) { return entry.Action() == from.activeAction(); });
    const auto at = static_cast<std::size_t>(current - entries_.begin());
    from.Leave();
    if (marked.size() == 1) {
        return Choose(marked.front(), letter);
    }
    const auto next = std::upper_bound(marked.begin(), marked.end(), at);
    MoveTo(next != marked.end() ? *next : marked.front());
}

std::vector<std::size_t> MenuRows::MarkedBy(char32_t letter) const {
    const QKeySequence wanted(QLatin1String("Alt+") + QString::fromUcs4(&letter, 1).toUpper());
    std::vector<std::size_t> marked;
    for (std::size_t at = 0; at < entries_.size(); ++at) {
        const QKeySequence mark = QKeySequence::mnemonic(entries_[at].Action()->text());
        if (!mark.isEmpty() && mark == wanted) {
            marked.push_back(at);
        }
    }
    return marked;
}

MenuRows::Row& MenuRows::RowOf(std::size_t entry) const {
    const auto behind = std::upper_bound(starts_.begin(), starts_.end(), entry);
    return *rows_[static_cast<std::size_t>(behind - starts_.begin()) - 1];
}

void MenuRows::MoveTo(std::size_t entry) {
    RowOf(entry).Enter(*entries_[entry].Action());
}

void MenuRows::Choose(std::size_t entry, char32_t letter) {
    if (QAction* command = entries_[entry].command.get(); command != nullptr) {
        return command->trigger();
    }
    Row& row = RowOf(entry);
    row.PressAlt();
    row.PressLetter(QString::fromUcs4(&letter, 1));
}

std::pair<std::size_t, std::size_t> MenuRows::EntriesOf(std::size_t row) const {
    return {starts_[row], row + 1 < starts_.size() ? starts_[row + 1] : entries_.size()};
}

MenuRows::Row& MenuRows::Neighbour(const Row& row, int step) const {
    const auto at = std::find_if(rows_.begin(), rows_.end(),
                                 [&row](const auto& each) { return each.get() == &row; });
    const auto count = std::ssize(rows_);
    const auto next = (at - rows_.begin() + step + count) % count;
    return *rows_[static_cast<std::size_t>(next)];
}

}  // namespace vxd::qt
