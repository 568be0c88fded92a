// List boxes with one selectable row.
#include "platform/core/controls/control.h"
#include "platform/core/controls/row_list.h"

namespace vxd {
namespace {

class ListBox : public BasicControl {
  public:
    explicit ListBox(Window& window) : BasicControl(window), rows_(window, Has(LBS_SORT)) {}

    WidgetKind Kind() const override { return WidgetKind::kListBox; }

    LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam) override {
        const auto row = static_cast<LRESULT>(static_cast<int>(wParam));
        const auto* text = lParam != 0 ? reinterpret_cast<LPCSTR>(lParam) : "";
        switch (message) {
            case WM_GETDLGCODE:
                return DLGC_WANTARROWS | DLGC_WANTCHARS;
            case WM_SETFOCUS:
                TellIfAsked(LBN_SETFOCUS);
                return 0;
            case WM_KILLFOCUS:
                rows_.ForgetTyped();
                TellIfAsked(LBN_KILLFOCUS);
                return 0;
            case WM_KEYDOWN:
                // The space bar chooses the row that keys stand on, which without a choice is the
                // first.
                if (wParam != VK_SPACE) {
                    OnRowChosen(rows_.RowForKey(wParam));
                } else if (rows_.Selected() < 0) {
                    OnRowChosen(0);
                }
                return 0;
            case WM_CHAR:
                OnRowChosen(rows_.RowForCharacter(static_cast<char>(wParam)));
                return 0;
            case LB_ADDSTRING:
                return rows_.Add(text);
            case LB_INSERTSTRING:
                return rows_.Insert(row, text);
            case LB_DELETESTRING:
                return rows_.Delete(row);
            case LB_RESETCONTENT:
                rows_.Clear();
                return LB_OKAY;
            case LB_SETCURSEL:
                return row == -1 || rows_.HasRow(row) ? rows_.Select(row) : LB_ERR;
            case LB_GETCURSEL:
                return rows_.Selected();
            case LB_GETCOUNT:
                return rows_.Count();
            case LB_GETTEXT:
                return rows_.CopyRowText(row, reinterpret_cast<LPSTR>(lParam));
            case LB_GETTEXTLEN:
                return rows_.HasRow(row)
                           ? static_cast<LRESULT>(rows_.Text(static_cast<int>(row)).size())
                           : LB_ERR;
            case LB_GETITEMDATA:
                return rows_.Data(row);
            case LB_SETITEMDATA:
                return rows_.SetData(row, lParam);
            case LB_FINDSTRING:
                return rows_.FindPrefix(row, text);
            case LB_FINDSTRINGEXACT:
                return rows_.FindExact(row, text);
            case LB_SELECTSTRING:
                return SelectText(row, text);
            default:
                return Default(message, wParam, lParam);
        }
    }

    void ShowState() override { rows_.ShowSelected(); }

    void OnRowPressed(int row) override { rows_.Select(row); }

    // A choice counts even when it is the row that is selected already.
    void OnRowChosen(int row) override {
        if (!rows_.HasRow(row))
            return;
        rows_.Select(row);
        TellIfAsked(LBN_SELCHANGE);
    }

    // The clicks before have told of the choice.
    void OnRowDoubleClicked(int row) override {
        rows_.Select(row);
        TellIfAsked(LBN_DBLCLK);
    }

  private:
    void TellIfAsked(int code) {
        if (Has(LBS_NOTIFY))
            Tell(code);
    }

    LRESULT SelectText(LRESULT after, LPCSTR text) {
        const LRESULT found = rows_.FindPrefix(after, text);
        return found == LB_ERR ? LB_ERR : rows_.Select(found);
    }

    RowList rows_;
};

}  // namespace

std::unique_ptr<BuiltInControl> MakeListBox(Window& window) {
    return std::make_unique<ListBox>(window);
}

}  // namespace vxd
