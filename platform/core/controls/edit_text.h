// The text of an edit, its selection and the rules for changing it. Used by edits and by the edit
// part of combo boxes; shows nothing and notifies nobody.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace vxd {

class EditText {
  public:
    const std::string& Text() const { return text_; }
    int Start() const { return start_; }
    int End() const { return end_; }

    void SetUpperCase(bool upperCase) { upperCase_ = upperCase; }
    // 0 stands for the greatest length there is.
    void SetLimit(int bytes);
    // Replaces the whole text, whatever the limit; the selection goes to the start.
    void Set(std::string_view text);
    // -1 as end stands for the end of the text, -1 as start for no selection.
    void Select(int start, int end);
    struct Replaced {
        bool fitted = true;    // all of the text
        bool changed = false;  // something was put in or taken out, be it by its like
    };
    // Puts a text in place of the selection as far as the limit allows.
    Replaced Replace(std::string_view text);
    // Takes over a text that a widget has made of this one by an edit of its own, with the
    // selection in it; what was put in has to obey the limit. Whether the widget shows it right.
    bool Follow(std::string_view edited, int start, int end);
    // The same for an edit that has left the text as it was. Whether something was put in place of
    // its like.
    bool FollowSame(int start, int end);
    // The part of such a text that was put in.
    std::string_view PutIn(std::string_view edited) const;
    // Deletes the selection, or without one the character before or behind, a whole line end as
    // one; whether anything went.
    bool DeleteBackwards();
    bool DeleteForwards();
    // Moves the caret by one character, or to the beginning or end; keeps the selection's start
    // when `extend`.
    void MoveBy(int characters, bool extend);
    void MoveTo(int position, bool extend);
    // The same for a movement key; whether it is one. Up and Down go along the line, as in an edit
    // of one line.
    bool MoveByKey(std::uintptr_t virtualKey, bool extend);

    static constexpr int kDefaultLimit = 30000;
    static constexpr int kGreatestLimit = 0x7FFFFFFE;

  private:
    std::string Converted(std::string_view text) const;
    int Length() const { return static_cast<int>(text_.size()); }
    int Before(int position) const;
    int Behind(int position) const;
    bool IsInsideLineEnd(int position) const;
    void Erase(int start, int end);

    std::string text_;
    int start_ = 0;
    int end_ = 0;
    int anchor_ = 0;
    int limit_ = kDefaultLimit;
    bool upperCase_ = false;
};

}  // namespace vxd
