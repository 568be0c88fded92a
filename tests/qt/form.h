// The numbers of the form that the screen is tried with.
#pragma once

#define IDD_FORM 100
#define IDC_NAME 201
#define IDC_NOTE 202
#define IDC_RED 211
#define IDC_GREEN 212
#define IDC_BLUE 213
#define IDC_MANUAL 221
#define IDC_THREE 222
#define IDC_PLACE 231
#define IDC_WORD 232
#define IDC_LIST 233
#define IDC_SIMPLE 234
#define IDC_LEVEL_LABEL 235
#define IDC_LEVEL 236
#define IDC_APPLY 241

#define IDR_BAR 10
#define IDM_MARKED 1001
#define IDM_GREY 1002
#define IDM_FORM 1003
#define IDM_DEEP 1004
#define IDM_BARE 1005
#define IDM_MORE 1006
#define IDM_LESS 1007
#define IDM_OTHER 1008
