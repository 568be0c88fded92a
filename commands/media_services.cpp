#include "commands/media_services.h"

#include <string>

#include "driver/papi.h"
#include "services/diagnostics.h"

namespace {

bool AgreesToVpp(const char* question) {
    return ShowBox(nullptr, question, "VPP Warning", MB_YESNO) == IDYES;
}

}  // namespace

void InitializeAnnexD(HWND /*window*/) {
    vdapi_ANNEXD_Initialize();
}

void TerminateAnnexD(HWND /*window*/) {
    vdapi_ANNEXD_Terminate();
}

void InitializeVpp(HWND window) {
    if (AgreesToVpp("VPP(Vidinlay.386) was already initialised through INLAY driver.\n"
                    "Do you want to initialize, anyway?")) {
        ReportFailure(window, CodeOf(vdapi_VPP_Initialize()), "vdapi_VPP_Initialize");
    }
}

void TerminateVpp(HWND window) {
    if (AgreesToVpp("VPP(Vidinlay.386) should be terminated through INLAY driver.\n"
                    "Do you want to terminate, anyway?")) {
        ReportFailure(window, CodeOf(vdapi_VPP_Terminate()), "vdapi_VPP_Terminate");
    }
}

void CloseStream(HWND /*window*/, uint32_t type) {
    vdapi_Stream_Close(type);
}

void ShowBandwidth(HWND /*window*/) {
    int32_t bandwidth = 0;
    vdapi_GetBandwidth(&bandwidth);
    ShowBox(nullptr, ("The Bandwidth is: " + std::to_string(bandwidth)).c_str(), "Bandwidth",
            MB_OK);
}
