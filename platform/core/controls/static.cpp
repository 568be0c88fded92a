// Static controls: texts, icons and frames.
#include "platform/core/controls/control.h"
#include "platform/core/icon.h"

namespace vxd {
namespace {

class Static : public BasicControl {
  public:
    using BasicControl::BasicControl;

    WidgetKind Kind() const override {
        switch (window_.style & SS_TYPEMASK) {
            case SS_ICON:
                return WidgetKind::kPicture;
            case SS_BLACKFRAME:
            case SS_GRAYFRAME:
            case SS_WHITEFRAME:
            case SS_ETCHEDFRAME:
                return WidgetKind::kFrame;
            default:
                return WidgetKind::kLabel;
        }
    }

    LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam) override {
        switch (message) {
            case WM_CREATE:
                LoadPicture(reinterpret_cast<const CREATESTRUCTA*>(lParam));
                return 0;
            case WM_GETDLGCODE:
                return DLGC_STATIC;
            case STM_SETICON:
                return reinterpret_cast<LRESULT>(Show(reinterpret_cast<HICON>(wParam)));
            case STM_GETICON:
                return reinterpret_cast<LRESULT>(window_.icon);
            default:
                return Default(message, wParam, lParam);
        }
    }

  private:
    // An icon static names its icon in place of a text.
    void LoadPicture(const CREATESTRUCTA* creation) {
        if (Kind() == WidgetKind::kPicture && creation->lpszName != nullptr)
            Show(LoadIconA(creation->hInstance, creation->lpszName));
    }

    HICON Show(HICON icon) {
        if (const Pixels* pixels = IconPixels(icon); pixels != nullptr)
            window_.widget->SetIcon(*pixels);
        return std::exchange(window_.icon, icon);
    }
};

}  // namespace

std::unique_ptr<BuiltInControl> MakeStatic(Window& window) {
    return std::make_unique<Static>(window);
}

}  // namespace vxd
