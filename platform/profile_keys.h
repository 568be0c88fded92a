// Several keys of a profile file in one step, which Win32's functions don't have.
#pragma once

#include <span>
#include <string>

struct ProfileKey {
    std::string name;
    std::string value;
};

// Writes the keys into a section of a file, as WritePrivateProfileStringA does one; true when all
// of them are stored. On the layer they are stored together or not at all; on Windows one by one,
// in their order, up to the first that is refused. Any thread.
bool WriteProfileKeys(const char* section, std::span<const ProfileKey> keys, const char* file);
