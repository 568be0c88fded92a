// Installable drivers: libraries that are sent messages.
#include <map>
#include <memory>

#include "platform/core/handle_table.h"
#include "platform/core/utf16.h"
#include "platform/win32.h"

namespace vxd {
namespace {

// One opening of a driver.
struct Driver {
    HMODULE module = nullptr;
    DRIVERPROC procedure = nullptr;
    DWORD_PTR id = 0;  // what the driver calls this opening
};

// What all openings of one library have in common.
struct Use {
    HDRVR opening = nullptr;  // the system's own, from the first one on to the last
    int others = 0;
};

HandleTable<Driver, HandleKind::kDriver>& Drivers() {
    static auto& drivers = *new HandleTable<Driver, HandleKind::kDriver>;
    return drivers;
}

std::map<HMODULE, Use>& Uses() {
    static auto& uses = *new std::map<HMODULE, Use>;
    return uses;
}

Driver* DriverOf(HDRVR driver) {
    return Drivers().Find(HandleNumber(driver));
}

HDRVR Add(const Driver& driver) {
    return ToHandle<HDRVR>(Drivers().Add(std::make_unique<Driver>(driver)));
}

void Remove(HDRVR driver) {
    Drivers().Remove(HandleNumber(driver));
}

LRESULT Send(HDRVR handle, UINT message, LPARAM first, LPARAM second) {
    const Driver* driver = DriverOf(handle);
    return driver != nullptr ? driver->procedure(driver->id, handle, message, first, second) : 0;
}

// Whether the driver takes the opening.
bool Open(HDRVR handle, LPARAM parameter) {
    const LRESULT id = Send(handle, DRV_OPEN, 0, parameter);
    if (Driver* driver = DriverOf(handle); driver != nullptr) {
        driver->id = static_cast<DWORD_PTR>(id);
    }
    return id != 0;
}

// Before its first opening a driver is loaded and enabled; false where it refuses that.
bool BeginUse(const Driver& driver) {
    if (Uses().count(driver.module) != 0) {
        return true;
    }
    const HDRVR opening = Add(driver);
    if (Send(opening, DRV_LOAD, 0, 0) == 0) {
        Remove(opening);
        return false;
    }
    Uses()[driver.module].opening = opening;
    Send(opening, DRV_ENABLE, 0, 0);
    Open(opening, 0);
    return true;
}

// After its last one it is disabled and freed.
void EndUse(HMODULE library) {
    const HDRVR opening = Uses()[library].opening;
    Uses().erase(library);
    Send(opening, DRV_CLOSE, 0, 0);
    Send(opening, DRV_DISABLE, 0, 0);
    Send(opening, DRV_FREE, 0, 0);
    Remove(opening);
}

// Gives the library back that a driver was opened with.
void Leave(HMODULE library) {
    const auto use = Uses().find(library);
    if (use != Uses().end() && use->second.others == 0) {
        EndUse(library);
    }
    FreeLibrary(library);
}

}  // namespace
}  // namespace vxd

HDRVR WINAPI OpenDriver(LPCWSTR name, LPCWSTR section, LPARAM parameter) {
    if (name == nullptr || section != nullptr) {
        return nullptr;
    }
    vxd::Driver driver;
    driver.module = LoadLibraryA(vxd::Utf8FromWide(name).c_str());
    if (driver.module == nullptr) {
        return nullptr;
    }
    driver.procedure = reinterpret_cast<DRIVERPROC>(
        reinterpret_cast<void*>(GetProcAddress(driver.module, "DriverProc")));
    if (driver.procedure == nullptr || !vxd::BeginUse(driver)) {
        FreeLibrary(driver.module);
        return nullptr;
    }
    const HDRVR handle = vxd::Add(driver);
    if (!vxd::Open(handle, parameter)) {
        vxd::Remove(handle);
        vxd::Leave(driver.module);
        return nullptr;
    }
    ++vxd::Uses()[driver.module].others;
    return handle;
}

LRESULT WINAPI SendDriverMessage(HDRVR driver, UINT message, LPARAM first, LPARAM second) {
    return vxd::Send(driver, message, first, second);
}

LRESULT WINAPI CloseDriver(HDRVR handle, LPARAM first, LPARAM second) {
    const vxd::Driver* driver = vxd::DriverOf(handle);
    if (driver == nullptr) {
        return FALSE;
    }
    const HMODULE library = driver->module;
    vxd::Send(handle, DRV_CLOSE, first, second);
    vxd::Remove(handle);
    --vxd::Uses()[library].others;
    vxd::Leave(library);
    return TRUE;
}
