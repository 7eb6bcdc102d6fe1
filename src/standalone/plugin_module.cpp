#include "standalone/plugin_module.h"

#include <dlfcn.h>
#include <filesystem>
#include <stdexcept>
#include <utility>
#ifdef __APPLE__
#include <mach-o/dyld.h>
#else
#include <sys/auxv.h>
#endif

namespace chromalog::standalone {

namespace {

namespace fs = std::filesystem;

#ifdef __APPLE__
constexpr const char* kModuleFile = "Chromalog.plugin/Contents/MacOS/Chromalog";

fs::path programPath() {
    char path[4096];
    uint32_t size = sizeof path;
    return _NSGetExecutablePath(path, &size) == 0 ? fs::path(path) : fs::path();
}
#else
constexpr const char* kModuleFile = "Chromalog.so";

fs::path programPath() {
    std::error_code error;
    fs::path link = fs::read_symlink("/proc/self/exe", error);
    if (!error) return link;
    // Without /proc the kernel still tells the name that the program was started by.
    const auto* started = reinterpret_cast<const char*>(getauxval(AT_EXECFN));
    return started ? fs::path(started) : fs::path();
}
#endif

} // namespace

PluginModule::PluginModule(const std::string& path) {
    // dlopen looks for a name without a slash in the system's folders.
    library_ = dlopen(fs::absolute(path).c_str(), RTLD_NOW | RTLD_LOCAL);
    if (!library_) throw std::runtime_error(std::string("cannot load the plug-in: ") + dlerror());
    entry_ = reinterpret_cast<PluginMainProc>(dlsym(library_, kPluginMainSymbol));
    if (entry_) return;
    dlclose(library_);
    throw std::runtime_error(path + " has no " + kPluginMainSymbol);
}

PluginModule::~PluginModule() {
    unload();
}

void PluginModule::unload() {
    if (void* const library = std::exchange(library_, nullptr)) dlclose(library);
}

std::string PluginModule::besideProgram() {
    const fs::path folder = fs::absolute(programPath()).parent_path();
    for (const fs::path& candidate :
         {folder / kModuleFile, folder / CHROMALOG_MODULE_FROM_PROGRAM / kModuleFile}) {
        std::error_code ignored;
        if (fs::exists(candidate, ignored)) return candidate.string();
    }
    throw std::runtime_error(std::string("there is no ") + kModuleFile +
                             " beside the program; --plugin names another");
}

} // namespace chromalog::standalone
