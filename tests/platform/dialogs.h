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
#define IDC_CAPITALS 306

#define IDD_BARE 102

#define IDD_BUTTONS 103
#define IDC_FRAME 401
#define IDC_LEFT 411
#define IDC_MIDDLE 412
#define IDC_RIGHT 413
#define IDC_UPPER 421
#define IDC_LOWER 422
#define IDC_PUSH 430

#define IDD_SCROLL 104
#define IDC_ACROSS 501
#define IDC_DOWN 502

#define IDD_LETTERS 105
#define IDC_START 601
#define IDC_TWIN 602
#define IDC_OTHER_TWIN 603
#define IDC_GREY_FIELD 604
#define IDC_NO_STOP 605
#define IDC_FIELD 606
#define IDC_KIND_A 607
#define IDC_KIND_B 608
#define IDC_UNSTOPPED 609
#define IDC_SEND 612

#define IDD_CHOICE 107

#define IDR_BAR 110
#define IDM_OPEN 1001
#define IDM_GREY 1002
#define IDM_MARKED 1003
#define IDM_DEEP 1004
#define IDM_HELP 1005
#define IDM_SMALL 1010
#define IDM_MEDIUM 1011
#define IDM_LARGE 1012
