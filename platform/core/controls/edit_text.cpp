#include "platform/core/controls/edit_text.h"

#include <algorithm>

#include "platform/core/text.h"
#include "platform/win32.h"

namespace vxd {
namespace {

// Inside a UTF-8 character.
bool IsContinuation(char c) {
    return (static_cast<unsigned char>(c) & 0xC0) == 0x80;
}

}  // namespace

void EditText::SetLimit(int bytes) {
    limit_ = bytes > 0 ? bytes : kGreatestLimit;
}

std::string EditText::Converted(std::string_view text) const {
    std::string converted(text);
    if (upperCase_)
        std::transform(converted.begin(), converted.end(), converted.begin(), Upper);
    return converted;
}

void EditText::Set(std::string_view text) {
    text_ = Converted(text);
    start_ = end_ = anchor_ = 0;
}

void EditText::Select(int start, int end) {
    if (start < 0) {
        start_ = anchor_ = end_;
        return;
    }
    const int from = std::min(start, Length());
    const int to = end < 0 ? Length() : std::min(end, Length());
    start_ = std::min(from, to);
    end_ = std::max(from, to);
    anchor_ = from;
}

EditText::Replaced EditText::Replace(std::string_view text) {
    std::string inserted = Converted(text);
    const int room = std::max(0, limit_ - (Length() - (end_ - start_)));
    const bool fits = static_cast<int>(inserted.size()) <= room;
    inserted.resize(WholeCharacters(inserted, static_cast<std::size_t>(room)));
    const bool changed = start_ != end_ || !inserted.empty();
    Erase(start_, end_);
    text_.insert(static_cast<std::size_t>(start_), inserted);
    start_ = end_ = anchor_ = start_ + static_cast<int>(inserted.size());
    return {fits, changed};
}

bool EditText::FollowSame(int start, int end) {
    const bool replaced = start_ != end_ && start == end;
    Select(start, end);
    return replaced;
}

bool EditText::Follow(std::string_view edited, int start, int end) {
    if (edited.size() <= text_.size() || static_cast<int>(edited.size()) <= limit_) {
        Set(edited);
        Select(start, end);
        return text_ == edited;
    }
    const std::string_view inserted = PutIn(edited);
    const auto before = inserted.data() - edited.data();
    const auto behind = static_cast<std::ptrdiff_t>(edited.size() - inserted.size()) - before;
    Select(static_cast<int>(before), Length() - static_cast<int>(behind));
    Replace(inserted);
    return false;
}

std::string_view EditText::PutIn(std::string_view edited) const {
    // What both texts begin and end with was there before.
    const std::string_view old = text_;
    const auto before = static_cast<std::size_t>(
        std::mismatch(old.begin(), old.end(), edited.begin(), edited.end()).first - old.begin());
    const std::size_t most = std::min(old.size(), edited.size()) - before;
    std::size_t behind = 0;
    while (behind < most && old[old.size() - 1 - behind] == edited[edited.size() - 1 - behind])
        ++behind;
    return edited.substr(before, edited.size() - before - behind);
}

bool EditText::DeleteBackwards() {
    const int from = start_ != end_ ? start_ : Before(start_);
    const bool any = from != end_;
    Erase(from, end_);
    return any;
}

bool EditText::DeleteForwards() {
    const int to = start_ != end_ ? end_ : Behind(end_);
    const bool any = to != start_;
    Erase(start_, to);
    return any;
}

void EditText::MoveBy(int characters, bool extend) {
    const int caret = anchor_ == start_ ? end_ : start_;
    MoveTo(characters < 0 ? Before(caret) : Behind(caret), extend);
}

void EditText::MoveTo(int position, bool extend) {
    const int caret = std::clamp(position, 0, Length());
    if (!extend)
        anchor_ = caret;
    start_ = std::min(anchor_, caret);
    end_ = std::max(anchor_, caret);
}

bool EditText::MoveByKey(std::uintptr_t virtualKey, bool extend) {
    switch (virtualKey) {
        case VK_LEFT:
        case VK_UP:
            MoveBy(-1, extend);
            return true;
        case VK_RIGHT:
        case VK_DOWN:
            MoveBy(1, extend);
            return true;
        case VK_HOME:
            MoveTo(0, extend);
            return true;
        case VK_END:
            MoveTo(Length(), extend);
            return true;
        default:
            return false;
    }
}

int EditText::Before(int position) const {
    if (position == 0)
        return 0;
    do {
        --position;
    } while (position > 0 && (IsContinuation(text_[static_cast<std::size_t>(position)]) ||
                              IsInsideLineEnd(position)));
    return position;
}

int EditText::Behind(int position) const {
    if (position >= Length())
        return Length();
    do {
        ++position;
    } while (position < Length() && (IsContinuation(text_[static_cast<std::size_t>(position)]) ||
                                     IsInsideLineEnd(position)));
    return position;
}

bool EditText::IsInsideLineEnd(int position) const {
    return position > 0 &&
           std::string_view(text_).substr(static_cast<std::size_t>(position) - 1, 2) == "\r\n";
}

void EditText::Erase(int start, int end) {
    text_.erase(static_cast<std::size_t>(start), static_cast<std::size_t>(end - start));
    start_ = end_ = anchor_ = start;
}

}  // namespace vxd
