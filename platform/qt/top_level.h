// The program's windows and dialog boxes on the desktop.
#pragma once

#include "platform/qt/control.h"

namespace vxd::qt {

class Frame;

class TopLevel : public Control {
  public:
    // `owner` may be null.
    TopLevel(const WidgetSetup& setup, QWidget* owner, Report& report);
    ~TopLevel() override;

    QWidget& Area() override;
    void TakeFocus() override;
    void SetText(const std::string& text) override;
    void SetRect(const Rect& rect) override;
    void SetVisible(bool visible) override;
    void SetEnabled(bool enabled) override;
    void SetIcon(const Pixels& icon) override;
    void Draw(const Pixels& pixels, const Rect& changed) override;
    void SetTopmost(bool topmost) override;
    void SetSizeLimits(Size least, Size most) override;
    void SetMenuBar(const std::vector<MenuView>& menu) override;
    int MenuBarHeight(int width) const override;

    // A disabled window keeps its looks; the screen keeps all input from it.
    bool TakesInput() const { return takesInput_; }
    // Brings the window to the front; false for a hidden one, which gets there when it is shown.
    bool Raise();
    // Asks the desktop to make the window the active one.
    void AskForActivation();
    // Gives the keyboard to the menu bar; false without one.
    bool EnterMenuBar();
    // Opens the menu that the letter stands for; false where there is none.
    bool OpenMenu(char32_t letter);

  private:
    Frame& Native() const;
    bool HasFixedSize() const;

    std::uint32_t style_;
    bool takesInput_ = true;
};

}  // namespace vxd::qt
