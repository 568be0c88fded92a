// Whose Win32 a process runs on. Programs never ask; a test asks that knows of a difference.
#pragma once

enum class WindowSystem {
    kLayer,    // this project's own
    kWine,     // Windows' interface as Wine has it
    kWindows,  // Microsoft's
};

// Any thread.
WindowSystem CurrentWindowSystem();
