// The Win32 interface as the utility uses it.
//
// On Windows this is the system's own header. Elsewhere it declares the subset that the project
// calls, with the real names, numbers and layouts; platform/core gives it the real behaviour.
// Valid in C and in C++.
//
// Threads: windows, dialogs, menus and drawing belong to the one thread that created its first
// window. PostMessageA, SendMessageA, OutputDebugStringA and the profile, file, memory, module and
// clock functions may be called from any thread. Texts are UTF-8 here, and on Windows what the
// system is set to; the project's own are ASCII.
#pragma once

#ifdef _WIN32
// Without what else Windows' header would bring, names like "byte" among it.
#define WIN32_LEAN_AND_MEAN
#include <windows.h>
// Installable drivers.
#include <mmsystem.h>
// The dialog for opening a file.
#include <cderr.h>
#include <commdlg.h>
#else

#include <stdarg.h>
#include <stddef.h>
#include <stdint.h>

// Everything here has the C calling convention; only 32-bit Windows knows another one.
#define WINAPI
#define CALLBACK

#define TRUE 1
#define FALSE 0

typedef int BOOL;
typedef uint8_t BYTE;
typedef uint16_t WORD;
typedef uint32_t DWORD;
typedef uint32_t UINT;
typedef int32_t LONG;
typedef uint32_t ULONG;
typedef int INT;
typedef char CHAR;
typedef short SHORT;
typedef unsigned short USHORT;
typedef uint32_t COLORREF;
typedef intptr_t INT_PTR;
typedef uintptr_t UINT_PTR;
typedef intptr_t LONG_PTR;
typedef uintptr_t ULONG_PTR;
typedef uintptr_t DWORD_PTR;
typedef size_t SIZE_T;
typedef uintptr_t WPARAM;
typedef intptr_t LPARAM;
typedef intptr_t LRESULT;
typedef WORD ATOM;
typedef void* LPVOID;
typedef const void* LPCVOID;
typedef char* LPSTR;
typedef const char* LPCSTR;
typedef wchar_t WCHAR;
typedef const WCHAR* LPCWSTR;

// A handle holds a 32-bit number and is never followed: a stale one is refused.
#define DECLARE_HANDLE(name) typedef struct name##__* name
typedef void* HANDLE;
typedef void* HGDIOBJ;
DECLARE_HANDLE(HWND);
DECLARE_HANDLE(HMENU);
DECLARE_HANDLE(HINSTANCE);
typedef HINSTANCE HMODULE;
DECLARE_HANDLE(HICON);
typedef HICON HCURSOR;
DECLARE_HANDLE(HBRUSH);
DECLARE_HANDLE(HBITMAP);
DECLARE_HANDLE(HDC);
DECLARE_HANDLE(HDRVR);

typedef LRESULT(CALLBACK* WNDPROC)(HWND, UINT, WPARAM, LPARAM);
typedef INT_PTR(CALLBACK* DLGPROC)(HWND, UINT, WPARAM, LPARAM);
typedef void(CALLBACK* TIMERPROC)(HWND, UINT, UINT_PTR, DWORD);
typedef BOOL(CALLBACK* WNDENUMPROC)(HWND, LPARAM);
typedef INT_PTR(WINAPI* FARPROC)(void);
typedef LRESULT(CALLBACK* DRIVERPROC)(DWORD_PTR, HDRVR, UINT, LPARAM, LPARAM);

typedef struct tagPOINT {
    LONG x;
    LONG y;
} POINT, *LPPOINT;

typedef struct tagSIZE {
    LONG cx;
    LONG cy;
} SIZE, *LPSIZE;

typedef struct tagRECT {
    LONG left;
    LONG top;
    LONG right;
    LONG bottom;
} RECT, *LPRECT;

typedef struct tagMSG {
    HWND hwnd;
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
    DWORD time;
    POINT pt;
} MSG, *LPMSG;

#define CS_OWNDC 0x0020

typedef struct tagWNDCLASSA {
    UINT style;
    WNDPROC lpfnWndProc;
    int cbClsExtra;
    int cbWndExtra;
    HINSTANCE hInstance;
    HICON hIcon;
    HCURSOR hCursor;
    HBRUSH hbrBackground;
    LPCSTR lpszMenuName;
    LPCSTR lpszClassName;
} WNDCLASSA;

typedef struct tagCREATESTRUCTA {
    LPVOID lpCreateParams;
    HINSTANCE hInstance;
    HMENU hMenu;
    HWND hwndParent;
    int cy;
    int cx;
    int y;
    int x;
    LONG style;
    LPCSTR lpszName;
    LPCSTR lpszClass;
    DWORD dwExStyle;
} CREATESTRUCTA;

typedef struct tagPAINTSTRUCT {
    HDC hdc;
    BOOL fErase;
    RECT rcPaint;
    BOOL fRestore;
    BOOL fIncUpdate;
    BYTE rgbReserved[32];
} PAINTSTRUCT, *LPPAINTSTRUCT;

// Pixels in memory. Only those of 32 bits are drawn: blue, green, red and an unused byte. The
// bottom row comes first, unless the height is negative.
typedef struct tagBITMAPINFOHEADER {
    DWORD biSize;
    LONG biWidth;
    LONG biHeight;
    WORD biPlanes;
    WORD biBitCount;
    DWORD biCompression;
    DWORD biSizeImage;
    LONG biXPelsPerMeter;
    LONG biYPelsPerMeter;
    DWORD biClrUsed;
    DWORD biClrImportant;
} BITMAPINFOHEADER;

typedef struct tagRGBQUAD {
    BYTE rgbBlue;
    BYTE rgbGreen;
    BYTE rgbRed;
    BYTE rgbReserved;
} RGBQUAD;

typedef struct tagBITMAPINFO {
    BITMAPINFOHEADER bmiHeader;
    RGBQUAD bmiColors[1];
} BITMAPINFO;

#define BI_RGB 0
#define DIB_RGB_COLORS 0
#define SRCCOPY ((DWORD)0x00CC0020)
#define SRCAND ((DWORD)0x008800C6)
#define BLACKONWHITE 1
#define COLORONCOLOR 3

typedef struct tagMINMAXINFO {
    POINT ptReserved;
    POINT ptMaxSize;
    POINT ptMaxPosition;
    POINT ptMinTrackSize;
    POINT ptMaxTrackSize;
} MINMAXINFO, *LPMINMAXINFO;

// Words and longs.
#define LOWORD(l) ((WORD)((DWORD_PTR)(l)&0xFFFF))
#define HIWORD(l) ((WORD)(((DWORD_PTR)(l) >> 16) & 0xFFFF))
#define MAKELONG(low, high) ((LONG)(((DWORD)(WORD)(low)) | (((DWORD)(WORD)(high)) << 16)))
#define MAKEWPARAM(low, high) ((WPARAM)(DWORD)MAKELONG(low, high))
#define MAKELPARAM(low, high) ((LPARAM)(DWORD)MAKELONG(low, high))
#define RGB(r, g, b) \
    ((COLORREF)(((BYTE)(r) | ((WORD)((BYTE)(g)) << 8)) | (((DWORD)(BYTE)(b)) << 16)))
#define GetRValue(rgb) ((BYTE)(rgb))
#define GetGValue(rgb) ((BYTE)(((WORD)(rgb)) >> 8))
#define GetBValue(rgb) ((BYTE)((rgb) >> 16))
#define MAKEINTRESOURCEA(i) ((LPSTR)((ULONG_PTR)((WORD)(i))))
#define IS_INTRESOURCE(name) ((((ULONG_PTR)(name)) >> 16) == 0)

// Window messages.
#define WM_NULL 0x0000
#define WM_CREATE 0x0001
#define WM_DESTROY 0x0002
#define WM_MOVE 0x0003
#define WM_SIZE 0x0005
#define WM_ACTIVATE 0x0006
#define WM_SETFOCUS 0x0007
#define WM_KILLFOCUS 0x0008
#define WM_ENABLE 0x000A
#define WM_SETTEXT 0x000C
#define WM_GETTEXT 0x000D
#define WM_GETTEXTLENGTH 0x000E
#define WM_PAINT 0x000F
#define WM_CLOSE 0x0010
#define WM_QUIT 0x0012
#define WM_ERASEBKGND 0x0014
#define WM_SHOWWINDOW 0x0018
#define WM_GETMINMAXINFO 0x0024
#define WM_NEXTDLGCTL 0x0028
#define WM_SETFONT 0x0030
#define WM_CONTEXTMENU 0x007B
#define WM_NCCREATE 0x0081
#define WM_NCDESTROY 0x0082
#define WM_GETDLGCODE 0x0087
#define WM_KEYDOWN 0x0100
#define WM_KEYUP 0x0101
#define WM_CHAR 0x0102
#define WM_SYSKEYDOWN 0x0104
#define WM_SYSKEYUP 0x0105
#define WM_SYSCHAR 0x0106
#define WM_INITDIALOG 0x0110
#define WM_COMMAND 0x0111
#define WM_SYSCOMMAND 0x0112
#define WM_TIMER 0x0113
#define WM_HSCROLL 0x0114
#define WM_VSCROLL 0x0115
#define WM_INITMENUPOPUP 0x0117
#define WM_LBUTTONDOWN 0x0201
#define WM_LBUTTONUP 0x0202
#define WM_LBUTTONDBLCLK 0x0203
#define WM_RBUTTONDOWN 0x0204
#define WM_RBUTTONUP 0x0205
#define WM_RBUTTONDBLCLK 0x0206
#define WM_MOUSEWHEEL 0x020A
#define WM_DPICHANGED 0x02E0  // only Windows sends it; elsewhere the desktop scales by itself
#define WM_USER 0x0400
#define WM_APP 0x8000

#define SC_CLOSE 0xF060
#define WHEEL_DELTA 120  // of WM_MOUSEWHEEL: one notch
#define GET_WHEEL_DELTA_WPARAM(wParam) (static_cast<SHORT>(HIWORD(wParam)))
#define WA_INACTIVE 0
#define WA_ACTIVE 1
#define SIZE_RESTORED 0

// Window styles and placement.
#define WS_OVERLAPPED 0x00000000
#define WS_TABSTOP 0x00010000
#define WS_MAXIMIZEBOX 0x00010000
#define WS_GROUP 0x00020000
#define WS_MINIMIZEBOX 0x00020000
#define WS_THICKFRAME 0x00040000
#define WS_SYSMENU 0x00080000
#define WS_HSCROLL 0x00100000
#define WS_VSCROLL 0x00200000
#define WS_CAPTION 0x00C00000
#define WS_DISABLED 0x08000000
#define WS_VISIBLE 0x10000000
#define WS_CHILD 0x40000000
#define WS_POPUP 0x80000000u
#define WS_OVERLAPPEDWINDOW \
    (WS_OVERLAPPED | WS_CAPTION | WS_SYSMENU | WS_THICKFRAME | WS_MINIMIZEBOX | WS_MAXIMIZEBOX)
#define WS_EX_TOPMOST 0x00000008
#define CW_USEDEFAULT ((int)0x80000000)
#define HWND_TOP ((HWND)0)
#define HWND_TOPMOST ((HWND)-1)
#define HWND_NOTOPMOST ((HWND)-2)
#define SWP_NOSIZE 0x0001
#define SWP_NOMOVE 0x0002
#define SWP_NOZORDER 0x0004
#define SWP_NOACTIVATE 0x0010
#define SW_HIDE 0
#define SW_SHOWNORMAL 1
#define SW_SHOW 5
#define GW_CHILD 5
#define GW_HWNDNEXT 2
#define GW_OWNER 4
#define GWL_STYLE (-16)
#define GWLP_USERDATA (-21)
#define GWL_EXSTYLE (-20)
#define GWLP_ID (-12)
#define DWLP_MSGRESULT 0
#define DWLP_DLGPROC ((int)sizeof(LRESULT))
#define DWLP_USER ((int)(sizeof(LRESULT) + sizeof(DLGPROC)))

#define IDC_ARROW MAKEINTRESOURCEA(32512)
#define IDI_HAND MAKEINTRESOURCEA(32513)
#define IDI_EXCLAMATION MAKEINTRESOURCEA(32515)
#define IDI_ASTERISK MAKEINTRESOURCEA(32516)

// Dialogs and message boxes.
#define DS_ABSALIGN 0x0001
#define DS_SETFONT 0x0040
#define DS_MODALFRAME 0x0080
#define DS_NOIDLEMSG 0x0100
#define DS_CENTER 0x0800
#define IDOK 1
#define IDCANCEL 2
#define IDYES 6
#define IDNO 7
#define MB_OK 0x0000
#define MB_OKCANCEL 0x0001
#define MB_YESNO 0x0004
#define MB_TYPEMASK 0x000F
#define MB_ICONHAND 0x0010
#define MB_ICONEXCLAMATION 0x0030
#define MB_ICONINFORMATION 0x0040
#define MB_ICONMASK 0x00F0
#define MB_TASKMODAL 0x2000
#define DLGC_WANTARROWS 0x0001
#define DLGC_WANTTAB 0x0002
#define DLGC_WANTALLKEYS 0x0004
#define DLGC_WANTMESSAGE 0x0004
#define DLGC_HASSETSEL 0x0008
#define DLGC_DEFPUSHBUTTON 0x0010
#define DLGC_UNDEFPUSHBUTTON 0x0020
#define DLGC_RADIOBUTTON 0x0040
#define DLGC_WANTCHARS 0x0080
#define DLGC_STATIC 0x0100
#define DLGC_BUTTON 0x2000
#define DM_GETDEFID (WM_USER + 0)
#define DM_SETDEFID (WM_USER + 1)
#define DC_HASDEFID 0x534B

// Static.
#define SS_LEFT 0x0000
#define SS_CENTER 0x0001
#define SS_RIGHT 0x0002
#define SS_ICON 0x0003
#define SS_BLACKFRAME 0x0007
#define SS_GRAYFRAME 0x0008
#define SS_WHITEFRAME 0x0009
#define SS_SIMPLE 0x000B
#define SS_LEFTNOWORDWRAP 0x000C
#define SS_ETCHEDFRAME 0x0012
#define SS_TYPEMASK 0x001F
#define SS_NOPREFIX 0x0080
#define STM_SETICON 0x0170
#define STM_GETICON 0x0171

// Button.
#define BS_PUSHBUTTON 0x0000
#define BS_DEFPUSHBUTTON 0x0001
#define BS_CHECKBOX 0x0002
#define BS_AUTOCHECKBOX 0x0003
#define BS_RADIOBUTTON 0x0004
#define BS_3STATE 0x0005
#define BS_AUTO3STATE 0x0006
#define BS_GROUPBOX 0x0007
#define BS_AUTORADIOBUTTON 0x0009
#define BS_TYPEMASK 0x000F
#define BM_GETCHECK 0x00F0
#define BM_SETCHECK 0x00F1
#define BM_SETSTYLE 0x00F4
#define BM_CLICK 0x00F5
#define BST_UNCHECKED 0
#define BST_CHECKED 1
#define BST_INDETERMINATE 2
#define BN_CLICKED 0

// Edit.
#define ES_MULTILINE 0x0004
#define ES_UPPERCASE 0x0008
#define ES_AUTOVSCROLL 0x0040
#define ES_AUTOHSCROLL 0x0080
#define ES_READONLY 0x0800
#define ES_WANTRETURN 0x1000
#define ES_NUMBER 0x2000
#define EM_GETSEL 0x00B0
#define EM_SETSEL 0x00B1
#define EM_LIMITTEXT 0x00C5
#define EM_SETREADONLY 0x00CF
#define EN_SETFOCUS 0x0100
#define EN_KILLFOCUS 0x0200
#define EN_CHANGE 0x0300
#define EN_UPDATE 0x0400
#define EN_MAXTEXT 0x0501

// List box.
#define LBS_NOTIFY 0x0001
#define LBS_SORT 0x0002
#define LB_ADDSTRING 0x0180
#define LB_INSERTSTRING 0x0181
#define LB_DELETESTRING 0x0182
#define LB_RESETCONTENT 0x0184
#define LB_SETCURSEL 0x0186
#define LB_GETCURSEL 0x0188
#define LB_GETTEXT 0x0189
#define LB_GETTEXTLEN 0x018A
#define LB_GETCOUNT 0x018B
#define LB_SELECTSTRING 0x018C
#define LB_FINDSTRING 0x018F
#define LB_GETITEMDATA 0x0199
#define LB_SETITEMDATA 0x019A
#define LB_FINDSTRINGEXACT 0x01A2
#define LB_OKAY 0
#define LB_ERR (-1)
#define LBN_SELCHANGE 1
#define LBN_DBLCLK 2
#define LBN_SETFOCUS 4
#define LBN_KILLFOCUS 5

// Combo box.
#define CBS_SIMPLE 0x0001
#define CBS_DROPDOWN 0x0002
#define CBS_DROPDOWNLIST 0x0003
#define CBS_AUTOHSCROLL 0x0040
#define CB_GETEDITSEL 0x0140
#define CB_LIMITTEXT 0x0141
#define CB_ADDSTRING 0x0143
#define CB_DELETESTRING 0x0144
#define CB_GETCOUNT 0x0146
#define CB_GETCURSEL 0x0147
#define CB_GETLBTEXT 0x0148
#define CB_GETLBTEXTLEN 0x0149
#define CB_INSERTSTRING 0x014A
#define CB_RESETCONTENT 0x014B
#define CB_FINDSTRING 0x014C
#define CB_SELECTSTRING 0x014D
#define CB_SETCURSEL 0x014E
#define CB_SHOWDROPDOWN 0x014F
#define CB_GETITEMDATA 0x0150
#define CB_SETITEMDATA 0x0151
#define CB_GETDROPPEDSTATE 0x0157
#define CB_FINDSTRINGEXACT 0x0158
#define CB_OKAY 0
#define CB_ERR (-1)
#define CB_ERRSPACE (-2)
#define CBN_SELCHANGE 1
#define CBN_DBLCLK 2
#define CBN_SETFOCUS 3
#define CBN_KILLFOCUS 4
#define CBN_EDITCHANGE 5
#define CBN_EDITUPDATE 6
#define CBN_DROPDOWN 7
#define CBN_CLOSEUP 8
#define CBN_SELENDOK 9

// Scroll bar. The codes are those of WM_HSCROLL and WM_VSCROLL.
#define SBS_HORZ 0x0000
#define SBS_VERT 0x0001
#define SBM_SETPOS 0x00E0
#define SBM_GETPOS 0x00E1
#define SBM_SETRANGE 0x00E2
#define SB_CTL 2
#define SB_LINELEFT 0
#define SB_LINERIGHT 1
#define SB_PAGELEFT 2
#define SB_PAGERIGHT 3
#define SB_THUMBPOSITION 4
#define SB_THUMBTRACK 5
#define SB_LEFT 6
#define SB_RIGHT 7
#define SB_ENDSCROLL 8

// Menus.
#define MF_BYCOMMAND 0x0000
#define MF_STRING 0x0000
#define MF_ENABLED 0x0000
#define MF_UNCHECKED 0x0000
#define MF_GRAYED 0x0001
#define MF_DISABLED 0x0002
#define MF_CHECKED 0x0008
#define MF_POPUP 0x0010
#define MF_BYPOSITION 0x0400
#define MF_SEPARATOR 0x0800
#define TPM_LEFTALIGN 0x0000
#define TPM_RIGHTBUTTON 0x0002
#define TPM_RETURNCMD 0x0100

// Virtual keys.
#define VK_BACK 0x08
#define VK_TAB 0x09
#define VK_RETURN 0x0D
#define VK_SHIFT 0x10
#define VK_CONTROL 0x11
#define VK_MENU 0x12
#define VK_ESCAPE 0x1B
#define VK_SPACE 0x20
#define VK_PRIOR 0x21
#define VK_NEXT 0x22
#define VK_END 0x23
#define VK_HOME 0x24
#define VK_LEFT 0x25
#define VK_UP 0x26
#define VK_RIGHT 0x27
#define VK_DOWN 0x28
#define VK_DELETE 0x2E
#define VK_APPS 0x5D
#define VK_F4 0x73
#define VK_F10 0x79

// Memory and process.
#define MEM_COMMIT 0x1000
#define MEM_RESERVE 0x2000
#define MEM_RELEASE 0x8000
#define PAGE_READWRITE 0x04
#define SEM_NOOPENFILEERRORBOX 0x8000
#define MAX_PATH 260

// What an installable driver is told; its own messages begin at DRV_USER.
#define DRV_LOAD 0x0001
#define DRV_ENABLE 0x0002
#define DRV_OPEN 0x0003
#define DRV_CLOSE 0x0004
#define DRV_DISABLE 0x0005
#define DRV_FREE 0x0006
#define DRV_USER 0x4000

// File attributes. Times count units of 100 ns; one that a file system does not keep is 0.
#define FILE_ATTRIBUTE_READONLY 0x00000001
#define FILE_ATTRIBUTE_DIRECTORY 0x00000010
#define FILE_ATTRIBUTE_ARCHIVE 0x00000020
#define FILE_ATTRIBUTE_REPARSE_POINT 0x00000400

typedef struct _FILETIME {
    DWORD dwLowDateTime;
    DWORD dwHighDateTime;
} FILETIME;
typedef enum _GET_FILEEX_INFO_LEVELS { GetFileExInfoStandard } GET_FILEEX_INFO_LEVELS;
typedef struct _WIN32_FILE_ATTRIBUTE_DATA {
    DWORD dwFileAttributes;
    FILETIME ftCreationTime;
    FILETIME ftLastAccessTime;
    FILETIME ftLastWriteTime;
    DWORD nFileSizeHigh;
    DWORD nFileSizeLow;
} WIN32_FILE_ATTRIBUTE_DATA;

// The dialog for opening a file. Elsewhere than on Windows the desktop's own is shown: it has
// neither a read-only box nor a help button, and begins with the first of the types.
#define OFN_HIDEREADONLY 0x00000004
#define OFN_SHOWHELP 0x00000010
#define OFN_PATHMUSTEXIST 0x00000800
#define OFN_FILEMUSTEXIST 0x00001000
#define FNERR_BUFFERTOOSMALL 0x3003

typedef UINT_PTR(CALLBACK* LPOFNHOOKPROC)(HWND, UINT, WPARAM, LPARAM);
typedef struct tagOFNA {
    DWORD lStructSize;
    HWND hwndOwner;
    HINSTANCE hInstance;
    LPCSTR
    lpstrFilter;  // pairs of a type's name and its patterns, behind the last one an empty text
    LPSTR lpstrCustomFilter;
    DWORD nMaxCustFilter;
    DWORD nFilterIndex;
    LPSTR lpstrFile;
    DWORD nMaxFile;
    LPSTR lpstrFileTitle;
    DWORD nMaxFileTitle;
    LPCSTR lpstrInitialDir;
    LPCSTR lpstrTitle;
    DWORD Flags;
    WORD nFileOffset;
    WORD nFileExtension;
    LPCSTR lpstrDefExt;
    LPARAM lCustData;
    LPOFNHOOKPROC lpfnHook;
    LPCSTR lpTemplateName;
    void* pvReserved;
    DWORD dwReserved;
    DWORD FlagsEx;
} OPENFILENAMEA, *LPOPENFILENAMEA;

#define PM_NOREMOVE 0x0000
#define PM_REMOVE 0x0001

#ifdef __cplusplus
extern "C" {
#endif

// The program's own entry, called by the layer's main().
int WINAPI WinMain(HINSTANCE instance, HINSTANCE previous, LPSTR commandLine, int showCommand);

// Classes and windows.
ATOM WINAPI RegisterClassA(const WNDCLASSA* windowClass);
HWND WINAPI CreateWindowExA(DWORD exStyle, LPCSTR className, LPCSTR title, DWORD style, int x,
                            int y, int width, int height, HWND parent, HMENU menu,
                            HINSTANCE instance, LPVOID parameter);
BOOL WINAPI DestroyWindow(HWND window);
BOOL WINAPI IsWindow(HWND window);
BOOL WINAPI ShowWindow(HWND window, int showCommand);
BOOL WINAPI IsWindowVisible(HWND window);
BOOL WINAPI UpdateWindow(HWND window);
BOOL WINAPI EnableWindow(HWND window, BOOL enable);
BOOL WINAPI IsWindowEnabled(HWND window);
BOOL WINAPI SetWindowPos(HWND window, HWND after, int x, int y, int width, int height, UINT flags);
BOOL WINAPI GetWindowRect(HWND window, LPRECT rect);
BOOL WINAPI GetClientRect(HWND window, LPRECT rect);
BOOL WINAPI ClientToScreen(HWND window, LPPOINT point);
BOOL WINAPI SetWindowTextA(HWND window, LPCSTR text);
int WINAPI GetWindowTextA(HWND window, LPSTR text, int capacity);
int WINAPI GetWindowTextLengthA(HWND window);
int WINAPI GetClassNameA(HWND window, LPSTR name, int capacity);
HWND WINAPI GetParent(HWND window);
HWND WINAPI GetWindow(HWND window, UINT relation);
LONG_PTR WINAPI GetWindowLongPtrA(HWND window, int index);
LONG_PTR WINAPI SetWindowLongPtrA(HWND window, int index, LONG_PTR value);
HWND WINAPI FindWindowA(LPCSTR className, LPCSTR title);
BOOL WINAPI EnumThreadWindows(DWORD thread, WNDENUMPROC visit, LPARAM parameter);
HWND WINAPI SetFocus(HWND window);
HWND WINAPI GetFocus(void);
HWND WINAPI GetActiveWindow(void);
LRESULT WINAPI DefWindowProcA(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

// Messages and timers.
BOOL WINAPI SetMessageQueue(int messages);
BOOL WINAPI GetMessageA(LPMSG message, HWND window, UINT first, UINT last);
BOOL WINAPI PeekMessageA(LPMSG message, HWND window, UINT first, UINT last, UINT remove);
BOOL WINAPI TranslateMessage(const MSG* message);
LRESULT WINAPI DispatchMessageA(const MSG* message);
BOOL WINAPI PostMessageA(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
LRESULT WINAPI SendMessageA(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
void WINAPI PostQuitMessage(int exitCode);
UINT_PTR WINAPI SetTimer(HWND window, UINT_PTR id, UINT milliseconds, TIMERPROC callback);
BOOL WINAPI KillTimer(HWND window, UINT_PTR id);

// Dialogs and message boxes.
INT_PTR WINAPI DialogBoxParamA(HINSTANCE instance, LPCSTR templateName, HWND owner,
                               DLGPROC procedure, LPARAM parameter);
BOOL WINAPI EndDialog(HWND dialog, INT_PTR result);
BOOL WINAPI IsDialogMessageA(HWND dialog, LPMSG message);
LRESULT WINAPI DefDlgProcA(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
HWND WINAPI GetDlgItem(HWND dialog, int id);
int WINAPI GetDlgCtrlID(HWND window);
BOOL WINAPI SetDlgItemTextA(HWND dialog, int id, LPCSTR text);
UINT WINAPI GetDlgItemTextA(HWND dialog, int id, LPSTR text, int capacity);
LRESULT WINAPI SendDlgItemMessageA(HWND dialog, int id, UINT message, WPARAM wParam, LPARAM lParam);
BOOL WINAPI CheckDlgButton(HWND dialog, int id, UINT check);
UINT WINAPI IsDlgButtonChecked(HWND dialog, int id);
BOOL WINAPI CheckRadioButton(HWND dialog, int first, int last, int check);
HWND WINAPI GetNextDlgTabItem(HWND dialog, HWND control, BOOL previous);
HWND WINAPI GetNextDlgGroupItem(HWND dialog, HWND control, BOOL previous);
// MB_TASKMODAL counts without an owner only.
int WINAPI MessageBoxA(HWND owner, LPCSTR text, LPCSTR title, UINT style);
// Asks for a file. Gives FALSE where none was chosen; then the error tells why: 0 that the person
// cancelled, FNERR_BUFFERTOOSMALL that the file's path does not fit.
BOOL WINAPI GetOpenFileNameA(LPOPENFILENAMEA question);
DWORD WINAPI CommDlgExtendedError(void);

// Scroll bars. `bar` is SB_CTL: the window itself; SetScrollPos gives the position before.
BOOL WINAPI SetScrollRange(HWND window, int bar, int minimum, int maximum, BOOL redraw);
int WINAPI SetScrollPos(HWND window, int bar, int position, BOOL redraw);
int WINAPI GetScrollPos(HWND window, int bar);

// Menus.
HMENU WINAPI LoadMenuA(HINSTANCE instance, LPCSTR name);
HMENU WINAPI CreatePopupMenu(void);
BOOL WINAPI DestroyMenu(HMENU menu);
HMENU WINAPI GetMenu(HWND window);
BOOL WINAPI SetMenu(HWND window, HMENU menu);
BOOL WINAPI DrawMenuBar(HWND window);
HMENU WINAPI GetSubMenu(HMENU menu, int position);
int WINAPI GetMenuItemCount(HMENU menu);
UINT WINAPI GetMenuState(HMENU menu, UINT item, UINT flags);
int WINAPI GetMenuStringA(HMENU menu, UINT item, LPSTR text, int capacity, UINT flags);
BOOL WINAPI AppendMenuA(HMENU menu, UINT flags, UINT_PTR item, LPCSTR text);
DWORD WINAPI CheckMenuItem(HMENU menu, UINT item, UINT check);
BOOL WINAPI CheckMenuRadioItem(HMENU menu, UINT first, UINT last, UINT item, UINT flags);
BOOL WINAPI TrackPopupMenu(HMENU menu, UINT flags, int x, int y, int reserved, HWND window,
                           const RECT* ignored);

// Painting.
HDC WINAPI BeginPaint(HWND window, LPPAINTSTRUCT paint);
BOOL WINAPI EndPaint(HWND window, const PAINTSTRUCT* paint);
HDC WINAPI GetDC(HWND window);
int WINAPI ReleaseDC(HWND window, HDC dc);
BOOL WINAPI InvalidateRect(HWND window, const RECT* rect, BOOL erase);
HBRUSH WINAPI CreateSolidBrush(COLORREF colour);
BOOL WINAPI DeleteObject(HGDIOBJ object);
int WINAPI FillRect(HDC dc, const RECT* rect, HBRUSH brush);
COLORREF WINAPI GetPixel(HDC dc, int x, int y);
// A memory device context draws on the bitmap that is selected into it, which no other may have and
// which can't be deleted meanwhile. Other objects are not selected. A bitmap that matches a context
// with no bitmap of its own would be monochrome, and is not made.
HDC WINAPI CreateCompatibleDC(HDC dc);
BOOL WINAPI DeleteDC(HDC dc);
HGDIOBJ WINAPI SelectObject(HDC dc, HGDIOBJ object);
HBITMAP WINAPI CreateCompatibleBitmap(HDC dc, int width, int height);
// Operations are SRCCOPY and SRCAND. What the source has not got is not drawn.
BOOL WINAPI BitBlt(HDC dc, int x, int y, int width, int height, HDC source, int sourceX,
                   int sourceY, DWORD operation);
// A picture is shrunk in mode COLORONCOLOR only.
int WINAPI SetStretchBltMode(HDC dc, int mode);
int WINAPI StretchDIBits(HDC dc, int x, int y, int width, int height, int sourceX, int sourceY,
                         int sourceWidth, int sourceHeight, LPCVOID bits, const BITMAPINFO* info,
                         UINT use, DWORD operation);

// Resources.
HICON WINAPI LoadIconA(HINSTANCE instance, LPCSTR name);
HCURSOR WINAPI LoadCursorA(HINSTANCE instance, LPCSTR name);
HBITMAP WINAPI LoadBitmapA(HINSTANCE instance, LPCSTR name);

// Installable drivers, which belong to the user-interface thread. One is a library that exports
// DriverProc, found as LoadLibraryA finds it; sections other than none list no drivers. At its
// first opening it is told DRV_LOAD, DRV_ENABLE and a DRV_OPEN of the system's own without
// parameters, at the last closing that one's DRV_CLOSE, DRV_DISABLE and DRV_FREE, and each time
// DRV_OPEN with `parameter` and DRV_CLOSE with both parameters. What it answers to DRV_OPEN, 0 to
// refuse, is the id in the messages of that opening.
HDRVR WINAPI OpenDriver(LPCWSTR name, LPCWSTR section, LPARAM parameter);
LRESULT WINAPI SendDriverMessage(HDRVR driver, UINT message, LPARAM first, LPARAM second);
LRESULT WINAPI CloseDriver(HDRVR driver, LPARAM first, LPARAM second);

// Profile files. A bare file name lives in the settings folder, which GetWindowsDirectoryA names.
UINT WINAPI GetPrivateProfileIntA(LPCSTR section, LPCSTR key, INT defaultValue, LPCSTR file);
DWORD WINAPI GetPrivateProfileStringA(LPCSTR section, LPCSTR key, LPCSTR defaultText, LPSTR text,
                                      DWORD capacity, LPCSTR file);
BOOL WINAPI WritePrivateProfileStringA(LPCSTR section, LPCSTR key, LPCSTR text, LPCSTR file);
UINT WINAPI GetWindowsDirectoryA(LPSTR folder, UINT capacity);

// Files. Where none has exactly the name, one that differs in case only is meant.
BOOL WINAPI GetFileAttributesExA(LPCSTR path, GET_FILEEX_INFO_LEVELS level, LPVOID attributes);
// The path of what exists in the letters that it can be opened by, its folders' names as well. 0
// where there is nothing of that name, the capacity that it takes where it does not fit.
DWORD WINAPI GetLongPathNameA(LPCSTR path, LPSTR spelled, DWORD capacity);
// Elsewhere than on Windows the folder that holds all others.
UINT WINAPI GetSystemDirectoryA(LPSTR folder, UINT capacity);

// Kernel.
void WINAPI OutputDebugStringA(LPCSTR text);
DWORD WINAPI GetTickCount(void);
DWORD WINAPI GetCurrentProcessId(void);
DWORD WINAPI GetCurrentThreadId(void);
HMODULE WINAPI GetModuleHandleA(LPCSTR name);
HMODULE WINAPI LoadLibraryA(LPCSTR name);
BOOL WINAPI FreeLibrary(HMODULE module);
FARPROC WINAPI GetProcAddress(HMODULE module, LPCSTR name);
UINT WINAPI SetErrorMode(UINT mode);
LPVOID WINAPI VirtualAlloc(LPVOID address, SIZE_T size, DWORD type, DWORD protection);
BOOL WINAPI VirtualFree(LPVOID address, SIZE_T size, DWORD type);
void WINAPI Sleep(DWORD milliseconds);
BOOL WINAPI SetEnvironmentVariableA(LPCSTR name, LPCSTR value);
int WINAPI wvsprintfA(LPSTR text, LPCSTR format, va_list arguments);
int wsprintfA(LPSTR text, LPCSTR format, ...);

#ifdef __cplusplus
}
#endif

#endif
