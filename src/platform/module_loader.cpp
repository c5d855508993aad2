#include "platform/module_loader.h"

#include <dlfcn.h>

std::string kaLibraryDirectory() {
    Dl_info info{};
    // Any address inside this library names the file it came from.
    if (dladdr(reinterpret_cast<void*>(&kaLibraryDirectory), &info) == 0 ||
        info.dli_fname == nullptr) {
        return std::string();
    }
    const std::string path(info.dli_fname);
    const std::string::size_type slash = path.rfind('/');
    return slash == std::string::npos ? std::string() : path.substr(0, slash + 1);
}

void* kaLoadModule(const char* fileName) {
    if (fileName == nullptr || *fileName == '\0') return nullptr;
    const std::string path = kaLibraryDirectory() + fileName;
    return dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
}

bool kaUnloadModule(void* module) {
    return module != nullptr && dlclose(module) == 0;
}
