#include "plugin/open_drive.h"

#include "abi/standalone_suite.h"

#include <algorithm>
#include <dlfcn.h>
#include <filesystem>
#include <stdexcept>

namespace chromalog {
namespace {

bool isAskedFor(const StandaloneSuite& suite) {
    const auto given = [&suite](const char* option) { return suite.option(option) != nullptr; };
    constexpr const char* kAsks[] = {"drive", "screenshot", "accept", "cancel"};
    return std::ranges::any_of(kAsks, given);
}

/// Beside this module, whatever the loader searches.
std::string pathOfDrive() {
    Dl_info own{};
    if (dladdr(reinterpret_cast<const void*>(&pathOfDrive), &own) == 0 || !own.dli_fname)
        throw std::runtime_error("this module's own place is not known");
    return (std::filesystem::absolute(own.dli_fname).parent_path() / CHROMALOG_DRIVE_FILE).string();
}

using Attach = Driven* (*)(DrivenDialog*, const StandaloneSuite*, std::unique_ptr<Driven>* playback);

/// How far a script was played: it goes with this module, which a host may load anew.
std::unique_ptr<Driven> playback;

/// Never closed again: what it has registered with the toolkit outlives the pick.
void* inDrive(const char* symbol, const std::string& otherwise) {
    const std::string path = pathOfDrive();
    void* module = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
    void* found = module ? dlsym(module, symbol) : nullptr;
    if (!found) throw std::runtime_error(otherwise + ": " + dlerror());
    return found;
}

} // namespace

std::unique_ptr<Driven> openDrive(DrivenDialog& dialog, const StandaloneSuite& suite) try {
    if (!isAskedFor(suite)) return nullptr;
    return std::unique_ptr<Driven>(reinterpret_cast<Attach>(
        inDrive("chromalogDrive", "scripts cannot be played"))(&dialog, &suite, &playback));
} catch (...) {
    suite.endWith(2);
    throw;
}

std::unique_ptr<QWidget> readFormFile(const QString& path, MakeWidget makeOwn,
                                      std::vector<std::string>& problems) {
    return reinterpret_cast<ReadForm>(inDrive("chromalogReadForm", "interface files cannot be read"))(
        path, makeOwn, problems);
}

} // namespace chromalog
