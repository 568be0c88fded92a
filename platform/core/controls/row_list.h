// The rows of a list box or combo box: texts, item data and the selected row. Shows its changes on
// the control's widget; notifies nobody.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/core/window.h"

namespace vxd {

class RowList {
  public:
    // What the LB_ and CB_ messages answer for a row that is not there, or for no selection.
    static constexpr LRESULT kError = -1;

    RowList(Window& window, bool sorted) : window_(window), sorted_(sorted) {}

    int Count() const { return static_cast<int>(rows_.size()); }
    int Selected() const { return selected_; }
    bool HasRow(LRESULT row) const { return row >= 0 && row < Count(); }
    const std::string& Text(int row) const { return rows_[static_cast<std::size_t>(row)].text; }

    // Appends, or puts the row in its place where the list is sorted; gives the row's number.
    LRESULT Add(std::string_view text);
    // -1 stands for the end.
    LRESULT Insert(LRESULT row, std::string_view text);
    // Gives the number of rows left. Deleting the selected row leaves no selection.
    LRESULT Delete(LRESULT row);
    void Clear();
    // Row -1 takes the selection away and, as Win32 has it, answers with the error value.
    LRESULT Select(LRESULT row);
    // Shows the selection again.
    void ShowSelected() const;
    LRESULT CopyRowText(LRESULT row, LPSTR destination) const;
    LRESULT Data(LRESULT row) const;
    LRESULT SetData(LRESULT row, LPARAM data);
    // The next row behind `after` whose text begins with, or is, the given one, ignoring case;
    // the search goes on from the top and -1 starts it there.
    LRESULT FindPrefix(LRESULT after, std::string_view text) const;
    LRESULT FindExact(LRESULT after, std::string_view text) const;

    // The row that a movement key leads to; -1 for any other key and in an empty list.
    int RowForKey(WPARAM key) const;
    // Takes in a typed character and gives the row it leads to, -1 for none. Letters typed soon
    // after each other are looked for together; the same letter again leads to the next such row.
    int RowForCharacter(char character);
    // The next letter is looked for alone.
    void ForgetTyped() { typed_.clear(); }

  private:
    struct Row {
        std::string text;
        LPARAM data = 0;
    };

    template <typename Matches>
    LRESULT FindFrom(LRESULT after, Matches matches) const;

    Window& window_;
    bool sorted_;
    std::vector<Row> rows_;
    int selected_ = -1;
    std::string typed_;
    DWORD typedAt_ = 0;
};

}  // namespace vxd
