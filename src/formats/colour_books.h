#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace chromalog {

/// How a colour is found in a colour book: six bytes, in practice ASCII padded with spaces.
using BookKey = std::array<std::uint8_t, 6>;

/// The book that a swatch file's space code refers to.
struct BookChoice {
    std::string_view file; ///< name inside the folder of colour books
    bool opens = true;     ///< false: the name never becomes a path, so nothing is ever found
};

/// Whether a space code of a swatch file refers to a colour book at all.
bool isBookSpace(std::int16_t space);

/// Whether the key has a say in what book a space code refers to.
constexpr bool keyDecides(std::int16_t space) {
    return space == 3 || space == 10;
}

/// Null for codes that refer to no book, and where none of the tests on an HKS key (space 10) is true: the
/// book of an earlier record then stays in force.
const BookChoice* bookForSpace(std::int16_t space, const BookKey& key);

/// The folder of the host's colour books. `version` is the host's property 'vers', `named` a folder that
/// stands for the host's own (empty: none), `applications` the machine's folder of applications. Empty: no
/// book is found.
std::string pathOfBooks(std::int64_t version, std::string_view named,
                        std::string_view applications = "/Applications");

} // namespace chromalog
