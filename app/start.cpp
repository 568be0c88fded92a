#include "app/start.h"

#include <cstdlib>
#include <ctime>

#include "app/main_window.h"
#include "res/resource.h"
#include "services/application.h"

namespace {

constexpr char kWindowClass[] = "VxDTest";
constexpr char kTitle[] = "VxD Test Utility";
constexpr int kLargestQueue = 32;
constexpr int kSmallestQueue = 9;

HBRUSH RandomBackground() {
    std::srand(static_cast<unsigned>(std::time(nullptr)));
    const int red = std::rand() % 256;
    const int green = std::rand() % 256;
    const int blue = std::rand() % 256;
    return CreateSolidBrush(RGB(red, green, blue));
}

}  // namespace

bool InitApplication(HINSTANCE instance) {
    WNDCLASSA windowClass{};
    windowClass.style = 0;
    windowClass.lpfnWndProc = MainWndProc;
    windowClass.hInstance = instance;
    windowClass.hIcon = LoadIconA(instance, MAKEINTRESOURCEA(IDI_APP));
    windowClass.hCursor = LoadCursorA(nullptr, IDC_ARROW);
    windowClass.hbrBackground = RandomBackground();
    windowClass.lpszMenuName = MAKEINTRESOURCEA(IDR_MENU_NEWER);
    windowClass.lpszClassName = kWindowClass;
    return RegisterClassA(&windowClass) != 0;
}

bool RequestMessageQueue(QueueRequest request) {
    for (int messages = kLargestQueue; messages >= kSmallestQueue; --messages) {
        if (request(messages))
            return true;
    }
    return false;
}

bool InitInstance(HINSTANCE instance, int showCommand, QueueRequest request) {
    AppInstance = instance;
    if (!RequestMessageQueue(request)) {
        MessageBoxA(nullptr, "InitInstance: Failed setting message Queue!", "VxDTest - Fatal Error",
                    MB_ICONEXCLAMATION);
        return false;
    }
    MainWindow = CreateWindowExA(0, kWindowClass, kTitle, WS_OVERLAPPEDWINDOW, 0, 0, CW_USEDEFAULT,
                                 0, nullptr, nullptr, instance, nullptr);
    if (MainWindow == nullptr)
        return false;
    ShowWindow(MainWindow, showCommand);
    UpdateWindow(MainWindow);
    return true;
}
