#include "platform/core/folder.h"

#include <dirent.h>
#include <fcntl.h>

#include "platform/core/text.h"

namespace vxd {

std::optional<std::string> FindIgnoringCase(int folder, std::string_view name) {
    const int again = openat(folder, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    DIR* const stream = again >= 0 ? fdopendir(again) : nullptr;
    if (stream == nullptr)
        return std::nullopt;
    std::optional<std::string> found;
    while (const dirent* entry = readdir(stream)) {
        if (EqualIgnoringCase(entry->d_name, name) && (!found || entry->d_name < *found))
            found = entry->d_name;
    }
    closedir(stream);
    return found;
}

}  // namespace vxd
