#include "standalone/data_folder.h"

#include <cerrno>
#include <filesystem>
#include <system_error>

#include <fcntl.h>
#include <unistd.h>

namespace chromalog::standalone {

std::string makeDataFolder(const std::string& folder) {
    namespace fs = std::filesystem;
    if (folder.empty()) return "--data-dir: the name of the folder is empty";
    std::error_code error;
    const fs::file_status there = fs::status(folder, error);
    if (fs::exists(there) && !fs::is_directory(there)) return "--data-dir: is no directory: " + folder;
    fs::create_directories(folder, error);
    if (error) return "--data-dir: " + folder + " cannot be made: " + error.message();
    if (::faccessat(AT_FDCWD, folder.c_str(), R_OK | X_OK, AT_EACCESS) == 0) return {};
    return "--data-dir: " + folder + " cannot be read: " + std::generic_category().message(errno);
}

} // namespace chromalog::standalone
