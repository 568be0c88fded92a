#include "board/control.h"

#include "board/simulation.h"

namespace board {
namespace {

// Runs `use` on the simulation under its lock.
template <typename Use>
auto Locked(Use use) {
    Simulation& simulation = TheSimulation();
    std::lock_guard lock(simulation.lock);
    return use(simulation);
}

}  // namespace

bool IsPresent() {
    return Locked([](Simulation& simulation) { return simulation.state.present; });
}

void SetPresent(bool present) {
    Locked([=](Simulation& simulation) { simulation.state.present = present; });
}

Revisions GetRevisions() {
    return Locked([](Simulation& simulation) { return simulation.state.revisions; });
}

void SetRevisions(const Revisions& revisions) {
    Locked([&](Simulation& simulation) { simulation.state.revisions = revisions; });
}

bool IsLedLit() {
    return Locked([](Simulation& simulation) {
        bool lit = false;
        simulation.state.auxiliaryDevice.GetLine(AUXDEV_FEATURE_LED, lit);
        return lit;
    });
}

void SetIsacChipsFitted(uint32_t count) {
    Locked([=](Simulation& simulation) { simulation.state.isacChipsFitted = count; });
}

bool DriveFeatureInput(uint32_t feature, bool active) {
    return Locked([=](Simulation& simulation) {
        return simulation.state.auxiliaryDevice.DriveInput(feature, active);
    });
}

void SetTime(uint32_t milliseconds) {
    Locked([=](Simulation& simulation) { simulation.state.keptTime = milliseconds; });
}

Hardware GetHardware() {
    return Locked([](Simulation& simulation) { return simulation.state.hardware; });
}

void SetHardware(const Hardware& hardware) {
    Locked([&](Simulation& simulation) { simulation.state.hardware = hardware; });
}

void SetEepromBehaviour(const EepromBehaviour& behaviour) {
    Locked([&](Simulation& simulation) { simulation.state.eeprom.behaviour = behaviour; });
}

EepromContents GetEeprom() {
    return Locked([](Simulation&) { return LoadEeprom(); });
}

void SetEeprom(const EepromContents& contents) {
    Locked([&](Simulation&) { StoreEeprom(0, contents); });
}

Services GetServices() {
    return Locked([](Simulation& simulation) { return simulation.state.services; });
}

Monitor GetMonitor() {
    return Locked([](Simulation& simulation) { return simulation.state.monitor; });
}

void SetMonitorDelay(std::chrono::milliseconds delay) {
    Locked([=](Simulation& simulation) { simulation.state.monitor.answersAfter = delay; });
}

void SetPciAccess(uint8_t access) {
    Locked([=](Simulation& simulation) { simulation.state.pciAccess = access; });
}

void PowerOn() {
    Locked([](Simulation& simulation) { simulation.state.PowerOn(); });
}

void FailAlways(const std::string& name, ResultCode code) {
    Locked([&](Simulation& simulation) { simulation.faults[name] = {code, false}; });
}

void FailOnce(const std::string& name, ResultCode code) {
    Locked([&](Simulation& simulation) { simulation.faults[name] = {code, true}; });
}

void StickBits(const std::string& name, uint32_t bits) {
    Locked([&](Simulation& simulation) { simulation.stuckBits[name] = bits; });
}

void SlowDown(const std::string& name, std::chrono::milliseconds delay) {
    Locked([&](Simulation& simulation) { simulation.delays[name] = delay; });
}

void SucceedAgain() {
    Locked([](Simulation& simulation) {
        simulation.faults.clear();
        simulation.stuckBits.clear();
        simulation.delays.clear();
    });
}

std::vector<Call> Calls() {
    return Locked([](Simulation& simulation) {
        return std::vector<Call>(simulation.calls.begin(), simulation.calls.end());
    });
}

void ForgetCalls() {
    Locked([](Simulation& simulation) { simulation.calls.clear(); });
}

}  // namespace board
