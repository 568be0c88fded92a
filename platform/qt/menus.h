// Menus as the core describes them.
#pragma once

#include <QMenu>
#include <functional>
#include <vector>

#include "platform/screen.h"

namespace vxd::qt {

using MenuChoice = std::function<void(std::uint32_t command)>;

// Gives `menu` the items, in place of what it had; `chosen` hears of every choice in it.
void FillMenu(QMenu& menu, const std::vector<MenuView>& items, const MenuChoice& chosen);
// Shows the marks and texts of `items` in a menu that was filled with items of the same shape.
void RefreshMenu(QMenu& menu, const std::vector<MenuView>& items);

// A window's menu bar. It breaks into as many rows as the window's width asks for.
class MenuRows {
  public:
    MenuRows(QWidget& window, std::function<void(int)> opened, MenuChoice chosen);
    ~MenuRows();
    MenuRows(const MenuRows&) = delete;
    MenuRows& operator=(const MenuRows&) = delete;

    void Set(const std::vector<MenuView>& menu);
    int HeightFor(int width) const;
    // Puts the rows to the top of a window of that width and gives their height.
    int LayOut(int width);
    // Gives the keyboard to the first entry, as the Alt key does; false without any.
    bool Enter();
    // Opens the menu, or runs the command of the bar, that the letter stands for, as the letter
    // together with Alt does. Where several share it the first of them gets the keyboard,
    // whichever has it now. False where there is none; the keyboard then is the window's again.
    bool Open(char32_t letter);

  private:
    class Row;

    // The row after or before another one; the first follows the last.
    Row& Neighbour(const Row& row, int step) const;
    // A letter while a row has the keyboard: as with Alt, but from an entry that shares it to the
    // next.
    void Follow(Row& from, char32_t letter);
    // The entries that a letter stands for.
    std::vector<std::size_t> MarkedBy(char32_t letter) const;
    Row& RowOf(std::size_t entry) const;
    // Both while no row has the keyboard: gives it to an entry, or opens or runs that one.
    void MoveTo(std::size_t entry);
    void Choose(std::size_t entry, char32_t letter);
    struct Entry {
        std::unique_ptr<QMenu> popup;      // null for a command on the bar
        std::unique_ptr<QAction> command;  // null for a popup
        int width = 0;

        QAction* Action() const { return popup ? popup->menuAction() : command.get(); }
    };

    void Build();
    // The entries of a row, from the first to the one behind the last.
    std::pair<std::size_t, std::size_t> EntriesOf(std::size_t row) const;
    void Measure();
    Entry MakeEntry(int position);
    // The first entry of each row.
    std::vector<std::size_t> RowStarts(int width) const;
    void Fill(int position);

    QWidget& window_;
    std::function<void(int)> opened_;
    MenuChoice chosen_;
    std::vector<MenuView> menu_;
    std::vector<Entry> entries_;
    std::vector<std::unique_ptr<Row>> rows_;
    std::vector<std::size_t> starts_;
    int rowHeight_ = 0;
    int margins_ = 0;
};

}  // namespace vxd::qt
