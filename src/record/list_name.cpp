#include "record/list_name.h"

#include <algorithm>

namespace chromalog {

std::optional<std::string> terminatedListName(ListNameField field) {
    field[field[0] + std::size_t{1}] = 0;
    const auto first = field.begin() + 1;
    const auto last = std::find(first, field.begin() + 256, std::uint8_t{0});
    if (std::any_of(first, last, [](std::uint8_t c) { return c > 127; })) return std::nullopt;
    return std::string(first, last);
}

} // namespace chromalog
