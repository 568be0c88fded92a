#include "video/encoder_choice.h"

#include "res/resource.h"

void RecallEncoder(HWND dialog, const IntegerSetting& setting) {
    const int remembered = ReadSetting(setting);
    CheckDlgButton(dialog, IDC_ENCODER_BT855, remembered == 0 ? BST_CHECKED : BST_UNCHECKED);
    CheckDlgButton(dialog, IDC_ENCODER_BT858, remembered == 1 ? BST_CHECKED : BST_UNCHECKED);
}

uint16_t ChosenEncoder(HWND dialog) {
    return IsDlgButtonChecked(dialog, IDC_ENCODER_BT855) == BST_CHECKED ? 0 : 1;
}
