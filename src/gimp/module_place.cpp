#include "gimp/module_place.h"

#include <filesystem>
#include <stdexcept>

namespace chromalog {

std::string modulePath() {
    namespace fs = std::filesystem;
    std::error_code ignored;
    const fs::path beside = fs::read_symlink("/proc/self/exe", ignored).parent_path();
    for (const fs::path& folder :
         {beside, fs::path(CHROMALOG_MODULE_FOLDER), fs::path("/usr/" CHROMALOG_MODULE_DIR),
          fs::path("/usr/local/" CHROMALOG_MODULE_DIR)})
        if (const fs::path module = folder / "Chromalog.so"; fs::exists(module, ignored))
            return module.string();
    throw std::runtime_error("Chromalog is not installed: there is no Chromalog.so");
}

} // namespace chromalog
