// Modules: Win32's library names on the dynamic loader.
#include <dlfcn.h>

#include <algorithm>
#include <atomic>
#include <cstdint>
#include <map>
#include <mutex>
#include <string>
#include <string_view>
#include <vector>

#include "platform/core/text.h"
#include "platform/win32.h"

namespace {

// The program's own module: where Win32 programs are loaded by tradition.
constexpr std::uintptr_t kProgram = 0x00400000;

struct Module {
    void* loaded;  // the library as the loader names it
    unsigned references;
};

// What LoadLibraryA has loaded, by handle. A handle's number is never given again, so a stale one
// is refused. Guarded by the mutex, which is not held while a library starts or ends: that code may
// load others.
class ModuleTable {
  public:
    // Counts a reference that the loader gave for the library.
    std::uintptr_t Add(void* library) {
        std::lock_guard lock(mutex_);
        const auto known = FindLibrary(library);
        if (known != modules_.end()) {
            ++known->second.references;
            return known->first;
        }
        next_ += kStep;
        modules_[next_] = {library, 1};
        return next_;
    }

    // The library, of which the caller gives one reference back to the loader; null for a stale
    // handle.
    void* Release(std::uintptr_t handle) {
        std::lock_guard lock(mutex_);
        const auto module = modules_.find(handle);
        if (module == modules_.end())
            return nullptr;
        void* library = module->second.loaded;
        if (--module->second.references == 0)
            modules_.erase(module);
        return library;
    }

    void* LibraryOf(std::uintptr_t handle) {
        std::lock_guard lock(mutex_);
        const auto module = modules_.find(handle);
        return module != modules_.end() ? module->second.loaded : nullptr;
    }

    // 0 when the library is none of the table's.
    std::uintptr_t HandleOf(void* library) {
        std::lock_guard lock(mutex_);
        const auto module = FindLibrary(library);
        return module != modules_.end() ? module->first : 0;
    }

  private:
    static constexpr std::uintptr_t kStep = 0x1000;

    std::map<std::uintptr_t, Module>::iterator FindLibrary(void* library) {
        return std::find_if(modules_.begin(), modules_.end(), [library](const auto& entry) {
            return entry.second.loaded == library;
        });
    }

    std::mutex mutex_;
    std::map<std::uintptr_t, Module> modules_;
    std::uintptr_t next_ = 0x10000000;
};

ModuleTable modules;
std::atomic<UINT> errorMode = 0;

// The folder that this library was loaded from, with the slash at its end.
std::string LayerFolder() {
    Dl_info info;
    if (dladdr(&modules, &info) == 0)
        return {};
    const std::string_view path = info.dli_fname;
    return std::string(path.substr(0, path.rfind('/') + 1));
}

// Whether the loader has found no file of this name at all, rather than one that it can't load. Its
// last error begins with the name as it was asked for in the first case, and otherwise with the
// path of what it found, or with the name of a library that this one needs.
bool FoundNone(const std::string& file) {
    const char* const error = dlerror();
    return error == nullptr || std::string_view(error).starts_with(file + ": ");
}

// "NAME.DLL" and "NAME" are libNAME.so, or libname.so where there is no other: in the folder that
// the name says, or where the loader looks, or beside this library. Null when there is none, and
// when the first that the loader finds can't be loaded: another must not take its place unseen.
void* OpenLibrary(std::string_view name, int mode) {
    const std::string folder(name.substr(0, name.rfind('/') + 1));
    std::string title(name.substr(folder.size()));
    constexpr std::string_view kExtension = ".dll";
    if (title.size() > kExtension.size() &&
        vxd::EqualIgnoringCase(title.substr(title.size() - kExtension.size()), kExtension))
        title.resize(title.size() - kExtension.size());
    std::string lower = title;
    std::transform(lower.begin(), lower.end(), lower.begin(), vxd::Lower);

    std::vector<std::string> folders = {folder};
    if (folder.empty())
        folders.push_back(LayerFolder());
    for (const std::string& spelling : {title, lower}) {
        const std::string file = "lib" + spelling + ".so";
        for (const std::string& path : folders) {
            if (void* library = dlopen((path + file).c_str(), RTLD_NOW | RTLD_LOCAL | mode))
                return library;
            if (path.empty() && !FoundNone(file))
                return nullptr;
        }
    }
    return nullptr;
}

std::uintptr_t NumberOf(HMODULE module) {
    return reinterpret_cast<std::uintptr_t>(module);
}

}  // namespace

HMODULE WINAPI GetModuleHandleA(LPCSTR name) {
    if (name == nullptr)
        return reinterpret_cast<HMODULE>(kProgram);
    void* library = OpenLibrary(name, RTLD_NOLOAD);
    if (library == nullptr)
        return nullptr;
    dlclose(library);  // it only counted the look
    return reinterpret_cast<HMODULE>(modules.HandleOf(library));
}

HMODULE WINAPI LoadLibraryA(LPCSTR name) {
    void* library = name != nullptr ? OpenLibrary(name, 0) : nullptr;
    return library != nullptr ? reinterpret_cast<HMODULE>(modules.Add(library)) : nullptr;
}

BOOL WINAPI FreeLibrary(HMODULE module) {
    void* library = modules.Release(NumberOf(module));
    return library != nullptr && dlclose(library) == 0;
}

FARPROC WINAPI GetProcAddress(HMODULE module, LPCSTR name) {
    if (IS_INTRESOURCE(name))  // libraries here export no ordinals
        return nullptr;
    if (NumberOf(module) == kProgram)
        return reinterpret_cast<FARPROC>(dlsym(RTLD_DEFAULT, name));
    void* library = modules.LibraryOf(NumberOf(module));
    return library != nullptr ? reinterpret_cast<FARPROC>(dlsym(library, name)) : nullptr;
}

UINT WINAPI SetErrorMode(UINT mode) {
    return errorMode.exchange(mode);
}
