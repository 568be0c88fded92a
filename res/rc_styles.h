// The styles that resource scripts use, under their Win32 names and with their Win32 values.
// Resource compilers outside Windows come without the system's headers; the guards let this file
// stand beside those headers where they exist.
#pragma once

#ifndef IDOK
#define IDOK 1
#endif
#ifndef IDCANCEL
#define IDCANCEL 2
#endif
#ifndef IDC_STATIC
#define IDC_STATIC (-1)
#endif

#ifndef WS_POPUP
#define WS_POPUP 0x80000000L
#define WS_DISABLED 0x08000000L
#define WS_CAPTION 0x00C00000L
#define WS_SYSMENU 0x00080000L
#define WS_VSCROLL 0x00200000L
#define WS_GROUP 0x00020000L
#define WS_TABSTOP 0x00010000L
#endif

#ifndef DS_MODALFRAME
#define DS_MODALFRAME 0x0080L
#endif
#ifndef DS_SHELLFONT
#define DS_SHELLFONT 0x0048L
#endif

#ifndef SS_ICON
#define SS_ICON 0x0003L
#define SS_ETCHEDFRAME 0x0012L
#endif

#ifndef BS_AUTOCHECKBOX
#define BS_AUTOCHECKBOX 0x0003L
#define BS_RADIOBUTTON 0x0004L
#define BS_AUTORADIOBUTTON 0x0009L
#endif

#ifndef ES_READONLY
#define ES_MULTILINE 0x0004L
#define ES_UPPERCASE 0x0008L
#define ES_AUTOVSCROLL 0x0040L
#define ES_AUTOHSCROLL 0x0080L
#define ES_READONLY 0x0800L
#define ES_WANTRETURN 0x1000L
#define ES_NUMBER 0x2000L
#endif

#ifndef LBS_NOTIFY
#define LBS_NOTIFY 0x0001L
#define LBS_SORT 0x0002L
#endif

#ifndef SBS_VERT
#define SBS_VERT 0x0001L
#endif

#ifndef CBS_DROPDOWNLIST
#define CBS_SIMPLE 0x0001L
#define CBS_DROPDOWN 0x0002L
#define CBS_DROPDOWNLIST 0x0003L
#define CBS_AUTOHSCROLL 0x0040L
#endif
