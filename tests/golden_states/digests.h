#pragma once

#include <nlohmann/json.hpp>

#include <string>
#include <string_view>
#include <vector>

namespace chromalog::golden {

using nlohmann::json;

/// 16 hexadecimal digits that tell texts apart.
std::string hashOf(std::string_view);

/// A long list becomes one line for 50 entries or more: which they are, the first, the last and the hash of
/// all.
json shortened(const std::vector<std::string>& entries);

/// A swatch in one line: the name's length byte, its characters, red, green and blue.
std::string swatchText(int length, std::string_view name, long long red, long long green, long long blue);

/// What a file holds, to be compared and read: a PDF's pages, a picture's size, the lists of a preferences
/// file, else its bytes as rows of hexadecimal and characters, without those that are all zero.
json fileDigest(const std::string& path);

/// The pages' sizes, the text without date and person, and what is painted where. Letters are left out: they
/// stand as the fonts of a machine have it.
json pdfDigest(const std::string& path);

/// Both lists, and the bytes behind them.
json preferencesDigest(std::string_view bytes);

/// The size, and the rows of 16 bytes, or where they are many the hash of each 1024 bytes.
json rowsDigest(std::string_view bytes);

} // namespace chromalog::golden
