#pragma once

#include "pictures/fitted_picture.h"

#include <memory>
#include <vector>

namespace chromalog::test {

inline Picture picture(int width, std::vector<std::uint32_t> words) {
    const auto kept = std::make_shared<const std::vector<std::uint32_t>>(std::move(words));
    return {width, static_cast<int>(kept->size()) / width, *kept, kept};
}

/// Every pixel another: the column in red, the row in green.
inline Picture plane(int width, int height) {
    std::vector<std::uint32_t> words;
    for (int row = 0; row < height; ++row)
        for (int column = 0; column < width; ++column)
            words.push_back(0xFF000000 | static_cast<std::uint32_t>(column) << 16 |
                            static_cast<std::uint32_t>(row) << 8);
    return picture(width, std::move(words));
}

} // namespace chromalog::test
