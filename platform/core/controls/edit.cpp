// Edits, of one line and of several.
#include "platform/core/controls/edit_text.h"

#include "platform/core/controls/control.h"
#include "platform/core/input.h"
#include "platform/core/keyboard.h"

namespace vxd {
namespace {

class Edit : public BasicControl {
  public:
    explicit Edit(Window& window) : BasicControl(window) {
        text_.SetUpperCase(Has(ES_UPPERCASE));
        text_.Set(window.text);
    }

    WidgetKind Kind() const override {
        return IsMultiLine() ? WidgetKind::kTextEdit : WidgetKind::kLineEdit;
    }

    void Shown() override {
        if (Has(ES_READONLY))
            window_.widget->SetReadOnly(true);
    }

    LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam) override {
        switch (message) {
            case WM_GETDLGCODE:
                return DialogCode(reinterpret_cast<const MSG*>(lParam));
            case WM_SETTEXT:
                SetText(lParam != 0 ? reinterpret_cast<LPCSTR>(lParam) : "");
                return TRUE;
            case WM_GETTEXT:
                return CopyText(text_.Text(), reinterpret_cast<LPSTR>(lParam),
                                static_cast<int>(wParam));
            case WM_GETTEXTLENGTH:
                return static_cast<LRESULT>(text_.Text().size());
            case WM_SETFOCUS:
                Notify(window_, EN_SETFOCUS);
                return 0;
            case WM_KILLFOCUS:
                Notify(window_, EN_KILLFOCUS);
                return 0;
            case WM_CHAR:
                Type(static_cast<char>(wParam));
                return 0;
            case WM_KEYDOWN:
                KeyDown(wParam);
                return 0;
            case EM_LIMITTEXT:
                text_.SetLimit(static_cast<int>(wParam));
                return 0;
            case EM_SETSEL:
                text_.Select(static_cast<int>(wParam), static_cast<int>(lParam));
                ShowSelection();
                return 0;
            case EM_GETSEL:
                return GetSelection(reinterpret_cast<DWORD*>(wParam),
                                    reinterpret_cast<DWORD*>(lParam));
            case EM_SETREADONLY:
                SetReadOnly(wParam != 0);
                return TRUE;
            default:
                return Default(message, wParam, lParam);
        }
    }

    std::string EditedText() const override { return text_.Text(); }
    void ShowState() override { Show(); }

    void OnEdited(const std::string& text, int start, int end) override {
        // Assistive tools write into any field.
        if (Has(ES_READONLY)) {
            Show();
            return;
        }
        if (text == text_.Text()) {
            if (text_.FollowSame(start, end)) {
                TellChange();
            }
            return;
        }
        if (Has(ES_NUMBER) &&
            text_.PutIn(text).find_first_not_of("0123456789") != std::string_view::npos) {
            Show();
            return;
        }
        const std::string before = text_.Text();
        const bool shownRight = text_.Follow(text, start, end);
        const bool cut = text_.Text().size() < text.size();
        if (!shownRight)
            Show();
        TellInserted(text_.Text() != before, !cut);
    }

    void OnSelectionMoved(int start, int end) override { text_.Select(start, end); }

  private:
    bool IsMultiLine() const { return Has(ES_MULTILINE); }

    LRESULT DialogCode(const MSG* message) const {
        LRESULT code = DLGC_HASSETSEL | DLGC_WANTCHARS | DLGC_WANTARROWS;
        if (!IsMultiLine())
            return code;
        // A multi-line edit asks for all keys but leaves the dialog's own to the dialog: Tab and
        // Escape always, Enter unless it makes lines.
        if (message == nullptr)
            return code | DLGC_WANTALLKEYS;
        const bool dialogs = message->wParam == VK_TAB || message->wParam == VK_ESCAPE ||
                             (message->wParam == VK_RETURN && !Has(ES_WANTRETURN));
        return message->message == WM_KEYDOWN && dialogs ? code : code | DLGC_WANTALLKEYS;
    }

    void Show() {
        window_.widget->SetText(text_.Text());
        FollowShownText(window_.Number());
        ShowSelection();
    }

    void ShowSelection() {
        window_.widget->SetTextSelection(text_.Start(), text_.End());
        FollowShownSelection(window_.Number());
    }

    void TellChange() {
        if (Tell(EN_UPDATE))
            Tell(EN_CHANGE);
    }

    void SetText(LPCSTR text) {
        text_.Set(text);
        Show();
        if (!IsMultiLine())
            TellChange();
    }

    void Insert(std::string_view text) {
        const auto [fitted, changed] = text_.Replace(text);
        if (changed)
            Show();
        TellInserted(changed, fitted);
    }

    void TellInserted(bool changed, bool fitted) {
        if ((fitted || Tell(EN_MAXTEXT)) && changed)
            TellChange();
    }

    void Type(char character) {
        if (Has(ES_READONLY))
            return;
        if (character == VK_BACK) {
            if (text_.DeleteBackwards()) {
                Show();
                TellChange();
            }
        } else if (character == VK_RETURN) {
            if (IsMultiLine())
                Insert("\r\n");
        } else if (static_cast<unsigned char>(character) >= ' ' &&
                   (!Has(ES_NUMBER) || (character >= '0' && character <= '9'))) {
            Insert({&character, 1});
        }
    }

    void KeyDown(WPARAM key) {
        const bool amongLines = IsMultiLine() && (key == VK_UP || key == VK_DOWN);
        if (key == VK_DELETE) {
            if (!Has(ES_READONLY) && text_.DeleteForwards()) {
                Show();
                TellChange();
            }
        } else if (!amongLines && text_.MoveByKey(key, IsShiftDown())) {
            ShowSelection();
        }
    }

    LRESULT GetSelection(DWORD* start, DWORD* end) const {
        if (start != nullptr)
            *start = static_cast<DWORD>(text_.Start());
        if (end != nullptr)
            *end = static_cast<DWORD>(text_.End());
        return MAKELONG(text_.Start(), text_.End());
    }

    void SetReadOnly(bool readOnly) {
        window_.style = readOnly ? window_.style | ES_READONLY
                                 : window_.style & ~static_cast<DWORD>(ES_READONLY);
        window_.widget->SetReadOnly(readOnly);
    }

    EditText text_;
};

}  // namespace

std::unique_ptr<BuiltInControl> MakeEdit(Window& window) {
    return std::make_unique<Edit>(window);
}

}  // namespace vxd
