#include "platform/core/controls/row_list.h"

#include <algorithm>

#include "platform/core/input.h"
#include "platform/core/text.h"

namespace vxd {
namespace {

// Letters typed within this time of the last one belong to the same search.
constexpr DWORD kTypingPauseMilliseconds = 1000;
constexpr int kRowsOfAPage = 8;

bool ComesBefore(std::string_view a, std::string_view b) {
    return std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(),
                                        [](char x, char y) { return Lower(x) < Lower(y); });
}

}  // namespace

LRESULT RowList::Add(std::string_view text) {
    if (!sorted_)
        return Insert(-1, text);
    const auto place = std::upper_bound(
        rows_.begin(), rows_.end(), text,
        [](std::string_view added, const Row& row) { return ComesBefore(added, row.text); });
    return Insert(place - rows_.begin(), text);
}

LRESULT RowList::Insert(LRESULT row, std::string_view text) {
    if (row == -1)
        row = Count();
    if (row < 0 || row > Count())
        return kError;
    rows_.insert(rows_.begin() + row, Row{std::string(text), 0});
    if (selected_ >= row)
        ++selected_;
    window_.widget->InsertRow(static_cast<int>(row), rows_[static_cast<std::size_t>(row)].text);
    FollowInsertedRow(window_.Number(), static_cast<int>(row));
    return row;
}

LRESULT RowList::Delete(LRESULT row) {
    if (!HasRow(row))
        return kError;
    rows_.erase(rows_.begin() + row);
    if (selected_ == row) {
        selected_ = -1;
    } else if (selected_ > row) {
        --selected_;
    }
    window_.widget->RemoveRow(static_cast<int>(row));
    FollowRemovedRow(window_.Number(), static_cast<int>(row));
    window_.widget->SelectRow(selected_);
    return Count();
}

void RowList::Clear() {
    rows_.clear();
    selected_ = -1;
    window_.widget->ClearRows();
    FollowClearedRows(window_.Number());
}

LRESULT RowList::Select(LRESULT row) {
    selected_ = HasRow(row) ? static_cast<int>(row) : -1;
    ShowSelected();
    return selected_ < 0 ? kError : selected_;
}

void RowList::ShowSelected() const {
    window_.widget->SelectRow(selected_);
}

LRESULT RowList::CopyRowText(LRESULT row, LPSTR destination) const {
    if (!HasRow(row))
        return kError;
    const std::string& text = Text(static_cast<int>(row));
    return CopyText(text, destination, static_cast<int>(text.size()) + 1);
}

LRESULT RowList::Data(LRESULT row) const {
    return HasRow(row) ? rows_[static_cast<std::size_t>(row)].data : kError;
}

LRESULT RowList::SetData(LRESULT row, LPARAM data) {
    if (!HasRow(row))
        return kError;
    rows_[static_cast<std::size_t>(row)].data = data;
    return 0;
}

template <typename Matches>
LRESULT RowList::FindFrom(LRESULT after, Matches matches) const {
    const LRESULT start = HasRow(after) ? after : -1;
    for (LRESULT step = 1; step <= Count(); ++step) {
        const LRESULT row = (start + step) % Count();
        if (matches(Text(static_cast<int>(row))))
            return row;
    }
    return kError;
}

LRESULT RowList::FindPrefix(LRESULT after, std::string_view text) const {
    if (text.empty())
        return kError;
    return FindFrom(after, [text](std::string_view row) { return BeginsIgnoringCase(row, text); });
}

LRESULT RowList::FindExact(LRESULT after, std::string_view text) const {
    if (text.empty())
        return kError;
    return FindFrom(after, [text](std::string_view row) { return EqualIgnoringCase(row, text); });
}

int RowList::RowForKey(WPARAM key) const {
    const int last = Count() - 1;
    switch (key) {
        case VK_UP:
        case VK_LEFT:
            return std::min(last, std::max(0, selected_ - 1));
        case VK_DOWN:
        case VK_RIGHT:
            return std::min(last, selected_ + 1);
        case VK_HOME:
            return std::min(last, 0);
        case VK_END:
            return last;
        case VK_PRIOR:
            return std::min(last, std::max(0, selected_ - kRowsOfAPage));
        case VK_NEXT:
            return std::min(last, selected_ + kRowsOfAPage);
        default:
            return -1;
    }
}

int RowList::RowForCharacter(char character) {
    if (static_cast<unsigned char>(character) < ' ')
        return -1;
    const DWORD now = GetTickCount();
    if (now - typedAt_ > kTypingPauseMilliseconds)
        typed_.clear();
    typedAt_ = now;
    typed_ += character;
    const bool sameAgain = typed_.find_first_not_of(typed_.front()) == typed_.npos;
    if (sameAgain && FindPrefix(-1, typed_) == kError)
        typed_.resize(1);
    // A search that grows stays on the row it has found; a new one starts behind it.
    const LRESULT from = typed_.size() > 1 ? selected_ - 1 : selected_;
    return static_cast<int>(FindPrefix(from, typed_));
}

}  // namespace vxd
