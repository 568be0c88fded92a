// Combo boxes: a list with a field that shows or takes the choice.
#include "platform/core/controls/control.h"
#include "platform/core/controls/edit_text.h"
#include "platform/core/controls/row_list.h"
#include "platform/core/input.h"
#include "platform/core/keyboard.h"

namespace vxd {
namespace {

class ComboBox : public BasicControl {
  public:
    explicit ComboBox(Window& window) : BasicControl(window), rows_(window, false) {
        edit_.Set(window.text);
    }

    WidgetKind Kind() const override {
        switch (window_.style & CBS_DROPDOWNLIST) {
            case CBS_SIMPLE:
                return WidgetKind::kSimpleCombo;
            case CBS_DROPDOWN:
                return WidgetKind::kComboBox;
            default:
                return WidgetKind::kDropDownList;
        }
    }

    LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam) override {
        const auto row = static_cast<LRESULT>(static_cast<int>(wParam));
        const auto* text = lParam != 0 ? reinterpret_cast<LPCSTR>(lParam) : "";
        switch (message) {
            case WM_GETDLGCODE:
                return HasEdit() ? DLGC_WANTARROWS | DLGC_WANTCHARS | DLGC_HASSETSEL
                                 : DLGC_WANTARROWS | DLGC_WANTCHARS;
            case WM_SETTEXT:
                return SetText(text);
            case WM_GETTEXT:
                return CopyText(FieldText(), reinterpret_cast<LPSTR>(lParam),
                                static_cast<int>(wParam));
            case WM_GETTEXTLENGTH:
                return static_cast<LRESULT>(FieldText().size());
            case WM_SETFOCUS:
                if (HasEdit())
                    SelectText(0, -1);
                Notify(window_, CBN_SETFOCUS);
                return 0;
            case WM_KILLFOCUS:
                rows_.ForgetTyped();
                if (CloseList())
                    Tell(CBN_KILLFOCUS);
                return 0;
            case WM_KEYDOWN:
                KeyDown(wParam);
                return 0;
            case WM_CHAR:
                Type(static_cast<char>(wParam));
                return 0;
            case EM_SETSEL:
                if (HasEdit())
                    SelectText(static_cast<int>(wParam), static_cast<int>(lParam));
                return TRUE;
            case CB_LIMITTEXT:
                edit_.SetLimit(static_cast<int>(wParam));
                return TRUE;
            case CB_GETEDITSEL:
                return HasEdit() ? MAKELONG(edit_.Start(), edit_.End()) : CB_ERR;
            case CB_ADDSTRING:
                return rows_.Add(text);
            case CB_INSERTSTRING:
                return rows_.Insert(row, text);
            case CB_DELETESTRING:
                return rows_.Delete(row);
            case CB_RESETCONTENT:
                rows_.Clear();
                ShowText("");
                return CB_OKAY;
            case CB_SETCURSEL:
                return Select(row);
            case CB_GETCURSEL:
                return rows_.Selected();
            case CB_GETCOUNT:
                return rows_.Count();
            case CB_GETLBTEXT:
                return rows_.CopyRowText(row, reinterpret_cast<LPSTR>(lParam));
            case CB_GETLBTEXTLEN:
                return rows_.HasRow(row)
                           ? static_cast<LRESULT>(rows_.Text(static_cast<int>(row)).size())
                           : CB_ERR;
            case CB_GETITEMDATA:
                return rows_.Data(row);
            case CB_SETITEMDATA:
                return rows_.SetData(row, lParam);
            case CB_FINDSTRING:
                return rows_.FindPrefix(row, text);
            case CB_FINDSTRINGEXACT:
                return rows_.FindExact(row, text);
            case CB_SELECTSTRING: {
                const LRESULT found = rows_.FindPrefix(row, text);
                return found == CB_ERR ? CB_ERR : Select(found);
            }
            case CB_SHOWDROPDOWN:
                SetDropped(wParam != 0);
                return TRUE;
            case CB_GETDROPPEDSTATE:
                return dropped_;
            default:
                return Default(message, wParam, lParam);
        }
    }

    std::string EditedText() const override { return edit_.Text(); }

    void ShowState() override {
        window_.widget->SetDropped(dropped_);
        rows_.ShowSelected();
        if (HasEdit()) {
            ShowEdit();
        }
    }

    void OnEdited(const std::string& text, int start, int end) override {
        if (!HasEdit()) {
            return;
        }
        if (text == edit_.Text()) {
            if (edit_.FollowSame(start, end)) {
                TellEdited();
            }
            return;
        }
        const std::string before = edit_.Text();
        if (!edit_.Follow(text, start, end))
            ShowEdit();
        if (edit_.Text() != before)
            TellEdited();
    }

    void OnSelectionMoved(int start, int end) override { edit_.Select(start, end); }

    void OnRowChosen(int row) override { Choose(row); }

    void OnRowDoubleClicked(int row) override {
        if (Choose(row))
            Tell(CBN_DBLCLK);
    }

    void OnDropped(bool dropped) override {
        if (dropped_ != dropped)
            TellDropped(dropped);
    }

  private:
    bool HasEdit() const { return Kind() != WidgetKind::kDropDownList; }

    std::string FieldText() const {
        if (HasEdit())
            return edit_.Text();
        return rows_.Selected() >= 0 ? rows_.Text(rows_.Selected()) : std::string();
    }

    void ShowText(const std::string& text) {
        if (!HasEdit())
            return;
        edit_.Set(text);
        ShowEdit();
    }

    // A row's text stands ready to be typed over; no row leaves the edit empty.
    void ShowRow(int row) {
        ShowText(rows_.HasRow(row) ? rows_.Text(row) : std::string());
        if (HasEdit() && IsFocused())
            SelectText(0, -1);
    }

    LRESULT SetText(LPCSTR text) {
        if (!HasEdit())
            return CB_ERR;
        ShowText(text != nullptr ? text : "");
        return TRUE;
    }

    void SelectText(int start, int end) {
        edit_.Select(start, end);
        ShowSelection();
    }

    LRESULT Select(LRESULT row) {
        const LRESULT selected = rows_.Select(row);
        ShowRow(static_cast<int>(selected));
        return selected;
    }

    // A person's choice, even of the row that is selected already. The program hears of it while
    // the edit still shows the old text. False when the program destroyed the control in answer.
    bool Choose(int row) {
        if (!rows_.HasRow(row))
            return true;
        rows_.Select(row);
        if (!CloseList() || !Tell(CBN_SELENDOK) || !Tell(CBN_SELCHANGE))
            return false;
        if (rows_.Selected() == row)
            ShowRow(row);
        return true;
    }

    bool TellDropped(bool dropped) {
        dropped_ = dropped;
        return Tell(dropped ? CBN_DROPDOWN : CBN_CLOSEUP);
    }

    bool SetDropped(bool dropped) {
        if (Kind() == WidgetKind::kSimpleCombo || dropped_ == dropped)
            return true;
        window_.widget->SetDropped(dropped);
        return TellDropped(dropped);
    }

    bool CloseList() { return SetDropped(false); }

    void KeyDown(WPARAM key) {
        const bool sideways = key == VK_LEFT || key == VK_RIGHT || key == VK_HOME || key == VK_END;
        if (HasEdit() && sideways) {
            edit_.MoveByKey(key, IsShiftDown());
            window_.widget->SetTextSelection(edit_.Start(), edit_.End());
        } else if (HasEdit() && key == VK_DELETE) {
            if (edit_.DeleteForwards())
                ShowAndTellEdited();
        } else {
            Choose(rows_.RowForKey(key));
        }
    }

    void Type(char character) {
        if (!HasEdit()) {
            Choose(rows_.RowForCharacter(character));
            return;
        }
        bool changed = false;
        if (character == VK_BACK) {
            changed = edit_.DeleteBackwards();
        } else if (static_cast<unsigned char>(character) >= ' ') {
            changed = edit_.Replace({&character, 1}).changed;
        }
        if (changed)
            ShowAndTellEdited();
    }

    void ShowAndTellEdited() {
        ShowEdit();
        TellEdited();
    }

    void ShowSelection() {
        window_.widget->SetTextSelection(edit_.Start(), edit_.End());
        FollowShownSelection(window_.Number());
    }

    void ShowEdit() {
        window_.widget->SetText(edit_.Text());
        FollowShownText(window_.Number());
        ShowSelection();
    }

    // Typed text stands for no row, even where it is one's.
    void TellEdited() {
        rows_.Select(-1);
        if (Tell(CBN_EDITUPDATE))
            Tell(CBN_EDITCHANGE);
    }

    RowList rows_;
    EditText edit_;
    bool dropped_ = false;
};

}  // namespace

std::unique_ptr<BuiltInControl> MakeComboBox(Window& window) {
    return std::make_unique<ComboBox>(window);
}

}  // namespace vxd
