// The numbers of the test's own dialogs.
#pragma once

#define IDD_KEYS 100
#define IDC_LINE 201
#define IDC_PLAIN_LINES 202
#define IDC_RETURN_LINES 203
#define IDC_RADIO_A 211
#define IDC_RADIO_B 212
#define IDC_RADIO_C 213
#define IDC_CHECK 214
#define IDC_APPLY 220
#define IDC_GREY 221
#define IDC_NAME 222

#define IDD_LISTS 101
#define IDC_LIST 301
#define IDC_DROP_LIST 302
#define IDC_COMBO 303
#define IDC_SIMPLE 304
#define IDC_SORTED 305
#define IDC_CAPITALS 306

#define IDD_BARE 102
