#include "qt/form_names.h"

#include <algorithm>
#include <array>

namespace chromalog {

bool isDecoration(const QString& name) {
    static constexpr std::array prefixes = {"caption", "layout", "spacer", "group", "box", "qt_"};
    return name.isEmpty() || std::any_of(prefixes.begin(), prefixes.end(),
                                         [&](const char* prefix) { return name.startsWith(prefix); });
}

} // namespace chromalog
