#include "structure/source_files.h"

#include <filesystem>
#include <fstream>
#include <regex>

namespace chromalog::test {

namespace fs = std::filesystem;

std::vector<SourceFile> sources(const std::string& folder) {
    const fs::path root = CHROMALOG_SOURCE_DIR;
    std::vector<SourceFile> files;
    for (const auto& entry : fs::recursive_directory_iterator(root / folder)) {
        const auto extension = entry.path().extension();
        if (!entry.is_regular_file() || (extension != ".h" && extension != ".cpp" && extension != ".c"))
            continue;
        SourceFile file{fs::relative(entry.path(), root).string(), {}};
        std::ifstream in(entry.path());
        for (std::string line; std::getline(in, line);)
            file.lines.push_back(line);
        files.push_back(std::move(file));
    }
    return files;
}

std::vector<std::string> includes(const SourceFile& file) {
    static const std::regex pattern(R"(^\s*#\s*include\s*(?:"([^"]+)\"|(<[^>]+>)))");
    std::vector<std::string> found;
    std::smatch match;
    for (const std::string& line : file.lines)
        if (std::regex_search(line, match, pattern)) found.push_back(match[1].matched ? match[1] : match[2]);
    return found;
}

bool isToolkit(const std::string& include) {
    static const std::regex toolkit("^<Q[A-Za-z0-9]|^<q[a-z_]+\\.h");
    return std::regex_search(include, toolkit);
}

} // namespace chromalog::test
