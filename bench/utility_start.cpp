// The utility as platform/qt starts it, which says when its window is first seen, and ends.
#include <QApplication>

#include "bench/first_paint_report.h"
#include "platform/qt/first_paint.h"
#include "platform/qt/qt_screen.h"
#include "platform/win32.h"

int main(int argc, char** argv) {
    const char* start = argc > 1 ? argv[1] : "0";
    QApplication application(argc, argv);
    vxd::InstallScreen(*new vxd::QtScreen);  // for good, as the utility has it
    vxd::qt::OnFirstPaint([start] { ReportFirstPaint(start); });
    char commandLine[] = "";
    return WinMain(GetModuleHandleA(nullptr), nullptr, commandLine, SW_SHOWNORMAL);
}
