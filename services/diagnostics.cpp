#include "services/diagnostics.h"

#include <algorithm>
#include <array>
#include <cstdarg>
#include <string>

namespace {

constexpr std::size_t kLongestLine = 511;
constexpr std::size_t kLongestMessage = 255;
// wvsprintfA never writes more than this, terminator included.
constexpr std::size_t kFormatBuffer = 1024;

constexpr char kSource[] = "KORATST";
constexpr char kPrefixFormat[] = "%3ld*%2X: [%u]%s:\t ";
constexpr char kTooLong[] = "*** THE FOLLOWING DBGMSG DOES NOT FIT IN STACK ALLOCATED STRING ***\n";
constexpr char kTruncated[] = "*** Truncated ***\n";

constexpr char kViewerClass[] = "DBWin";
constexpr char kViewerLibrary[] = "DBWIN.DLL";
constexpr char kViewerModeFunction[] = "GetOutputMode";

struct BoxStyle {
    const char* title;
    UINT style;
};

// In the order of MessageKind.
constexpr std::array kBoxStyles = {
    BoxStyle{"VxD Test - Informative Message", MB_ICONINFORMATION},
    BoxStyle{"VxD Test - Warning", MB_ICONEXCLAMATION},
    BoxStyle{"VxD Test - Fatal Error", MB_ICONHAND},
    BoxStyle{"VxD Test - Informative Message", MB_YESNO},
};

uint16_t debugLevel = 0;
int openBoxes = 0;
unsigned boxesShown = 0;
std::array<const char*, kResultNames.size()> errorNames{};

std::string TracePrefix(uint16_t severity) {
    char prefix[kFormatBuffer];
    wsprintfA(prefix, kPrefixFormat, static_cast<LONG>(GetTickCount() % 1000),
              static_cast<UINT>(GetCurrentProcessId() & 0xFF), static_cast<UINT>(severity),
              kSource);
    return prefix;
}

// What the debug viewer wants to see; 0 without a viewer.
int ViewerOutputMode() {
    if (FindWindowA(kViewerClass, nullptr) == nullptr)
        return 0;
    // A missing library must not raise a box of the system's.
    const UINT errorMode = SetErrorMode(SEM_NOOPENFILEERRORBOX);
    int mode = 0;
    if (const HMODULE library = LoadLibraryA(kViewerLibrary); library != nullptr) {
        if (const FARPROC getMode = GetProcAddress(library, kViewerModeFunction);
            getMode != nullptr)
            mode = static_cast<int>(getMode());
        FreeLibrary(library);
    }
    SetErrorMode(errorMode);
    return mode;
}

}  // namespace

void BuildErrorNames() {
    std::copy(kResultNames.begin(), kResultNames.end(), errorNames.begin());
}

void DbgMsg(uint16_t severity, const char* format, ...) {
    if (severity > debugLevel)
        return;
    char text[kFormatBuffer];
    va_list arguments;
    va_start(arguments, format);
    wvsprintfA(text, format, arguments);
    va_end(arguments);
    std::string line = TracePrefix(severity) + text;
    if (line.size() > kLongestLine) {
        OutputDebugStringA(kTooLong);
        line.resize(kLongestLine - (sizeof kTruncated - 1));
        line += kTruncated;
    }
    OutputDebugStringA(line.c_str());
}

void SetDebugOutputLevel(uint16_t level) {
    debugLevel = ViewerOutputMode() != 0 ? level : 0;
}

void ForceDebugOutputLevel(uint16_t level) {
    debugLevel = level;
}

void ReportFailure(HWND owner, ResultCode code, const char* operation) {
    if (code == VXD_SUCCESS)
        return;
    ShowMessage(owner, MessageKind::kWarning, operation,
                code < errorNames.size() ? errorNames[code] : "Unknown Error");
}

int ShowBox(HWND owner, const char* text, const char* caption, UINT style) {
    ++openBoxes;
    ++boxesShown;
    const int button = MessageBoxA(owner, text, caption, style);
    --openBoxes;
    return button;
}

bool BoxIsOpen() {
    return openBoxes > 0;
}

unsigned BoxesShown() {
    return boxesShown;
}

int ShowMessage(HWND owner, MessageKind kind, const char* text, const char* detail) {
    const auto index = static_cast<std::size_t>(kind);
    if (index >= kBoxStyles.size())
        return 0;
    std::string message = text != nullptr ? text : "";
    if (detail != nullptr)
        message += std::string(": \n") + detail;
    if (message.size() > kLongestMessage)
        message.resize(kLongestMessage);
    const UINT modality = owner == nullptr ? MB_TASKMODAL : 0;
    return ShowBox(owner, message.c_str(), kBoxStyles[index].title,
                   kBoxStyles[index].style | modality);
}
