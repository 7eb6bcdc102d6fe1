#pragma once

#include "prefs/lists_summary.h"

#include <ctime>
#include <optional>
#include <string>
#include <vector>

namespace chromalog {

// Copies of the preferences file stand beside it. The name of a copy is what follows the file's own name and
// a dot.
inline constexpr const char* kBeforeCopy = "before";
inline constexpr const char* kSkippedCopy = "skipped";
std::string datedCopyName(std::time_t made);                    ///< "kept-20240501T134500Z"
std::optional<std::time_t> dateOfCopy(const std::string& name); ///< of a dated copy; "-2" may follow the date

/// The names of all copies beside the file; anything but a regular file is none.
std::vector<std::string> copyNames(const std::string& preferences);

struct KeptCopy {
    std::string name;
    std::string path;
    std::optional<ListsSummary> lists; ///< nothing where the copy is damaged or cannot be read
};

/// Every copy with what it holds, the lists stored last first, what cannot be read at the end.
std::vector<KeptCopy> keptCopies(const std::string& preferences);

} // namespace chromalog
