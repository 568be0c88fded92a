// The values with which programs register with the driver, as KORA_DLL32 gives them.
#pragma once

#include <cstdint>
#include <set>

namespace board {

enum class Client : uint32_t { kSequencer = 1, kIsac, kMonitor };

class Registrations {
  public:
    // A value other than 0, the same each time.
    uint32_t Give(Client client, uint32_t device) {
        return *given_.insert(ValueOf(client, device)).first;
    }

    // Whether the value was given for that client of that device.
    bool IsGiven(Client client, uint32_t device, uint32_t value) const {
        return value == ValueOf(client, device) && given_.contains(value);
    }

  private:
    static uint32_t ValueOf(Client client, uint32_t device) {
        return 0xC0000000 | static_cast<uint32_t>(client) << 16 | device;
    }

    std::set<uint32_t> given_;
};

}  // namespace board
