#include "commands/tdm_routing.h"

#include <cstdint>

#include "driver/papi.h"
#include "res/resource.h"
#include "services/diagnostics.h"

namespace {

uint32_t routing = AUXDEV_FEATURE_MVIP_ROUTING;

void Route(HWND window, uint32_t from, uint32_t to) {
    ReportFailure(window, CodeOf(vdapi_AUXDEV_Deactivate(from)), "vdapi_AUXDEV_Deactivate");
    ReportFailure(window, CodeOf(vdapi_AUXDEV_Activate(to)), "vdapi_AUXDEV_Activate");
    routing = to;
    MarkTdmRouting(window);
}

UINT Mark(uint32_t feature) {
    return routing == feature ? MF_CHECKED : MF_UNCHECKED;
}

}  // namespace

void RouteToIom2(HWND window) {
    Route(window, AUXDEV_FEATURE_MVIP_ROUTING, AUXDEV_FEATURE_IOM2_ROUTING);
}

void RouteToMvip(HWND window) {
    Route(window, AUXDEV_FEATURE_IOM2_ROUTING, AUXDEV_FEATURE_MVIP_ROUTING);
}

void MarkTdmRouting(HWND window) {
    const HMENU menu = GetMenu(window);
    CheckMenuItem(menu, IDM_BOARD_ROUTING_IOM2, Mark(AUXDEV_FEATURE_IOM2_ROUTING));
    CheckMenuItem(menu, IDM_BOARD_ROUTING_MVIP, Mark(AUXDEV_FEATURE_MVIP_ROUTING));
}
