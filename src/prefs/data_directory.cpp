#include "prefs/data_directory.h"

#include <cstdlib>

#include <pwd.h>
#include <unistd.h>

namespace chromalog {
namespace {

std::string environment(const char* name) {
    const char* value = std::getenv(name);
    return value ? value : "";
}

std::string homeFolder() {
    std::string home = environment("HOME");
    const passwd* account = home.empty() ? ::getpwuid(::getuid()) : nullptr;
    if (account && account->pw_dir) home = account->pw_dir;
    while (home.size() > 1 && home.back() == '/')
        home.pop_back();
    return home;
}

} // namespace

std::string userApplicationsDirectory() {
#ifdef __APPLE__
    constexpr const char* kBelowHome = "/Applications"; // and not "Application Support": kept
#else
    const std::string data = environment("XDG_DATA_HOME");
    if (data.starts_with('/')) return data + "/applications"; // a relative one counts for nothing
    constexpr const char* kBelowHome = "/.local/share/applications";
#endif
    const std::string home = homeFolder();
    return home.empty() ? home : home + kBelowHome;
}

} // namespace chromalog
