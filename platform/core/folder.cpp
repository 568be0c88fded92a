#include "platform/core/folder.h"

#include <dirent.h>
#include <fcntl.h>

#include <algorithm>
#include <utility>

#include "platform/core/text.h"

namespace vxd {

std::vector<std::string> NamesIgnoringCase(int folder, std::string_view name) {
    std::vector<std::string> names;
    const int again = openat(folder, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    DIR* const stream = again >= 0 ? fdopendir(again) : nullptr;
    if (stream == nullptr) {
        return names;
    }
    while (const dirent* entry = readdir(stream)) {
        if (EqualIgnoringCase(entry->d_name, name)) {
            names.emplace_back(entry->d_name);
        }
    }
    closedir(stream);
    std::sort(names.begin(), names.end());
    return names;
}

std::optional<std::string> FindIgnoringCase(int folder, std::string_view name) {
    std::vector<std::string> names = NamesIgnoringCase(folder, name);
    return names.empty() ? std::nullopt : std::optional(std::move(names.front()));
}

}  // namespace vxd
