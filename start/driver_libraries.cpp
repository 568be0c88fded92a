#include "start/driver_libraries.h"

#include <string_view>
#include <vector>

#include "platform/win32.h"

namespace {

struct Operation {
    std::string_view libraryName;
    const char* name;
};

// Made of the headers by the build, library by library.
constexpr Operation kOperations[] = {
#include "driver_operations.inc"
};

std::string FaultOf(const std::string& library) {
    const HMODULE module = LoadLibraryA(library.c_str());
    if (module == nullptr) {
        return "The driver library " + library +
               " is missing or cannot be loaded. It belongs beside the program or in a folder "
               "that LD_LIBRARY_PATH names.";
    }
    std::vector<std::string> missing;
    for (const Operation& operation : kOperations) {
        if (operation.libraryName == library && GetProcAddress(module, operation.name) == nullptr)
            missing.emplace_back(operation.name);
    }
    if (missing.empty())
        return {};
    constexpr std::size_t kMostNames = 10;
    std::string text = "The driver library " + library + " lacks ";
    text += missing.size() == 1 ? "the operation" : std::to_string(missing.size()) + " operations:";
    for (std::size_t i = 0; i < missing.size() && i < kMostNames; ++i)
        text += (missing.size() == 1 ? " " : "\n    ") + missing[i];
    return text + (missing.size() > kMostNames ? "\n    and others" : "");
}

}  // namespace

std::string FaultsOfDriverLibraries() {
    std::string faults;
    std::string_view last;
    for (const Operation& operation : kOperations) {
        if (operation.libraryName == last)
            continue;
        last = operation.libraryName;
        const std::string fault = FaultOf(std::string(last));
        if (!fault.empty())
            faults += (faults.empty() ? "" : "\n\n") + fault;
    }
    return faults;
}
