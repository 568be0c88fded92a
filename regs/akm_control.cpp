// The dialog draws all its controls from an image of the codec's registers, which follows what it
// writes to registers itself. Switches are told to the driver by number; what they do to the
// registers shows after "&Refresh".
#include "regs/akm_control.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <string>

#include "driver/papi.h"
#include "regs/akm_tables.h"
#include "res/resource.h"
#include "services/diagnostics.h"
#include "services/dialog_kit.h"
#include "services/number_field.h"

namespace {

constexpr uint32_t kRegisters = 26;
constexpr uint8_t kMicrophoneGain = 0x19;
constexpr uint8_t kEnabled = 0x80;  // in a slider's register

constexpr int kHighest = 31;  // of a slider
constexpr int kPage = 4;

// At most four characters of a number field count.
constexpr std::size_t kNumberBuffer = 5;
constexpr std::size_t kLabelBuffer = 64;

// Of the codec's registers, for the life of the program. One that can't be read keeps what is known
// of it.
std::array<uint8_t, kRegisters> image{};

struct OpenControl {
    int turned = 0;  // of the wheel, towards the next notch
};

void ReadImage() {
    for (uint32_t number = 0; number < kRegisters; ++number) {
        vdapi_AKM_ReadRegister(number, &image[number]);
    }
}

// Writes a register and keeps what it holds then.
void WriteRegister(uint32_t number, uint8_t value) {
    image[number] = value;
    vdapi_AKM_WriteRegister(number, value);
}

bool IsChecked(HWND dialog, int id) {
    return IsDlgButtonChecked(dialog, id) == BST_CHECKED;
}

void Check(HWND dialog, int id, bool checked) {
    CheckDlgButton(dialog, id, checked ? BST_CHECKED : BST_UNCHECKED);
}

// --- Drawing from the image ---

// A label keeps its words; the value takes the place of its last four characters.
void ShowInLabel(HWND dialog, int label, unsigned value) {
    constexpr std::size_t kValueCharacters = 4;
    std::string text = FieldText(dialog, label, kLabelBuffer);
    text.resize(text.size() - std::min(text.size(), kValueCharacters));
    ShowField(dialog, label, "%s0x%02X", text.c_str(), value);
}

void ShowSwitches(HWND dialog) {
    for (const akm::Switch& each : akm::kSwitches) {
        Check(dialog, each.box, (image[each.registerNumber] & each.mask) != 0);
    }
}

void ShowSliders(HWND dialog) {
    for (const akm::Slider& slider : akm::kSliders) {
        const uint8_t value = image[slider.registerNumber];
        SetScrollPos(GetDlgItem(dialog, slider.bar), SB_CTL, value & ~kEnabled, TRUE);
        ShowInLabel(dialog, slider.label, value);
        Check(dialog, slider.enableBox, (value & kEnabled) != 0);
    }
    Check(dialog, IDC_AKM_MICROPHONE_GAIN, image[kMicrophoneGain] != 0);
}

void ShowImage(HWND dialog) {
    ShowSwitches(dialog);
    ShowSliders(dialog);
}

// --- Sliders ---

int MovedBy(int code, int thumb, int position) {
    switch (code) {
        case SB_LINELEFT:
            return std::max(position - 1, 0);
        case SB_LINERIGHT:
            return std::min(position + 1, kHighest);
        case SB_PAGELEFT:
            return std::max(position - kPage, 0);
        case SB_PAGERIGHT:
            return std::min(position + kPage, kHighest);
        case SB_THUMBPOSITION:
            return std::min(thumb & 0xFF, kHighest);
        default:
            return position;
    }
}

// Each step of an action shows the position before it; the end of the action, which is a step too,
// shows the one that it has led to. Whatever moves a slider, its channel is enabled anew by hand.
void Scroll(HWND dialog, WPARAM step, LPARAM bar) {
    const auto window = reinterpret_cast<HWND>(bar);
    const auto slider = std::ranges::find(akm::kSliders, GetDlgCtrlID(window), &akm::Slider::bar);
    if (slider == akm::kSliders.end()) {
        return;
    }
    const int before = GetScrollPos(window, SB_CTL);
    const int after = MovedBy(LOWORD(step), HIWORD(step), before);
    SetScrollPos(window, SB_CTL, after, TRUE);
    ShowInLabel(dialog, slider->label, static_cast<unsigned>(before));
    WriteRegister(slider->registerNumber, static_cast<uint8_t>(after));
    Check(dialog, slider->enableBox, (image[slider->registerNumber] & kEnabled) != 0);
}

const akm::Slider* SliderAt(HWND dialog, POINT where) {
    const auto isThere = [&](const akm::Slider& slider) {
        RECT bar{};
        GetWindowRect(GetDlgItem(dialog, slider.bar), &bar);
        return where.x >= bar.left && where.x < bar.right && where.y >= bar.top &&
               where.y < bar.bottom;
    };
    const auto found = std::ranges::find_if(akm::kSliders, isThere);
    return found == akm::kSliders.end() ? nullptr : &*found;
}

const akm::Slider* FocusedSlider(HWND dialog) {
    const auto hasFocus = [focus = GetFocus(), dialog](const akm::Slider& slider) {
        return GetDlgItem(dialog, slider.bar) == focus;
    };
    const auto found = std::ranges::find_if(akm::kSliders, hasFocus);
    return found == akm::kSliders.end() ? nullptr : &*found;
}

// The wheel moves the slider under the pointer, elsewhere the one with the focus: away from the
// person to the right. Each notch is a step, and what was turned at once one action.
void TurnWheel(HWND dialog, WPARAM wheel, LPARAM where) {
    const akm::Slider* slider =
        SliderAt(dialog, {static_cast<SHORT>(LOWORD(where)), static_cast<SHORT>(HIWORD(where))});
    if (slider == nullptr) {
        slider = FocusedSlider(dialog);
    }
    int& turned = StateOf<OpenControl>(dialog).turned;
    turned += GET_WHEEL_DELTA_WPARAM(wheel);
    const int notches = turned / WHEEL_DELTA;
    turned %= WHEEL_DELTA;
    if (slider == nullptr || notches == 0) {
        return;
    }
    const auto bar = reinterpret_cast<LPARAM>(GetDlgItem(dialog, slider->bar));
    for (int notch = 0; notch < std::abs(notches); ++notch) {
        Scroll(dialog, notches > 0 ? SB_LINERIGHT : SB_LINELEFT, bar);
    }
    Scroll(dialog, SB_ENDSCROLL, bar);
}

// --- Check boxes ---

void EnableChannel(HWND dialog, const akm::Slider& slider) {
    const uint8_t level = image[slider.registerNumber] & ~kEnabled;
    WriteRegister(slider.registerNumber, IsChecked(dialog, slider.enableBox)
                                             ? static_cast<uint8_t>(level | kEnabled)
                                             : level);
    ShowSliders(dialog);
}

// The image keeps what the register held when it was read.
void SetMicrophoneGain(HWND dialog) {
    vdapi_AKM_WriteRegister(kMicrophoneGain, IsChecked(dialog, IDC_AKM_MICROPHONE_GAIN) ? 1 : 0);
}

// The image does not follow: which bits a switch changes is the driver's to know.
bool HandleCheckBox(HWND dialog, int id, int code) {
    if (code != BN_CLICKED) {
        return false;
    }
    if (const auto each = std::ranges::find(akm::kSwitches, id, &akm::Switch::box);
        each != akm::kSwitches.end()) {
        vdapi_AKM_SetSwitch(each->number, IsChecked(dialog, id) ? 1 : 0);
        return true;
    }
    const auto slider = std::ranges::find(akm::kSliders, id, &akm::Slider::enableBox);
    if (slider == akm::kSliders.end()) {
        return false;
    }
    EnableChannel(dialog, *slider);
    return true;
}

// --- Registers by number ---

std::optional<uint32_t> NumberIn(HWND dialog, int field) {
    return FindNumber(FieldText(dialog, field, kNumberBuffer));
}

// The register that is asked for; kRegisters or more where there is none of that number.
uint32_t AskedRegister(HWND dialog) {
    return NumberIn(dialog, IDC_AKM_REGISTER).value_or(kRegisters);
}

void GetRegister(HWND dialog) {
    const uint32_t number = AskedRegister(dialog);
    if (number >= kRegisters) {
        ShowBox(dialog, "Invalid Register entered!\n Please enter a correct register ID.",
                "AKM Access", MB_OK | MB_ICONEXCLAMATION);
        return;
    }
    uint8_t value = 0;
    vdapi_AKM_ReadRegister(number, &value);
    ShowField(dialog, IDC_AKM_VALUE, "0x%X", static_cast<unsigned>(value));
}

void SetRegister(HWND dialog) {
    const uint32_t number = AskedRegister(dialog);
    if (number < kRegisters) {
        WriteRegister(number, static_cast<uint8_t>(NumberIn(dialog, IDC_AKM_VALUE).value_or(0)));
    }
    ShowImage(dialog);
}

void Refresh(HWND dialog) {
    ReadImage();
    ShowImage(dialog);
}

void Open(HWND dialog) {
    ReadImage();
    for (const akm::Slider& slider : akm::kSliders) {
        SetScrollRange(GetDlgItem(dialog, slider.bar), SB_CTL, 0, kHighest, FALSE);
    }
    ShowImage(dialog);
}

// It is left by "OK" alone.
constexpr auto kActions = std::to_array<DialogAction>({
    {IDC_AKM_MICROPHONE_GAIN, SetMicrophoneGain},
    {IDC_AKM_GET, GetRegister},
    {IDC_AKM_SET, SetRegister},
    {IDC_AKM_REFRESH, Refresh},
    {IDOK, EndWith<1>},
});

constexpr auto kMessages = std::to_array<DialogMessage>({
    {WM_HSCROLL, Scroll},
    {WM_MOUSEWHEEL, TurnWheel},
});

}  // namespace

INT_PTR OpenAkmControl(HINSTANCE instance, HWND owner) {
    OpenControl open;
    return RunDialog(
        instance, IDD_AKM_CONTROL, owner,
        {.open = Open, .actions = kActions, .otherwise = HandleCheckBox, .messages = kMessages},
        &open);
}
