#pragma once

#include <string>
#include <vector>

namespace chromalog::test {

struct SourceFile {
    std::string name; ///< from the root of the project
    std::vector<std::string> lines;
};

/// Every C and C++ file below a folder of the project.
std::vector<SourceFile> sources(const std::string& folder);

/// What a file includes: quoted names as they stand, angled ones within their brackets.
std::vector<std::string> includes(const SourceFile&);

/// Whether an include names a header of the toolkit.
bool isToolkit(const std::string& include);

} // namespace chromalog::test
