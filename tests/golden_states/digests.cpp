#include "golden_states/digests.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <fstream>
#include <iterator>

namespace chromalog::golden {
namespace {

constexpr std::size_t kEntriesShown = 64, kEntriesInLine = 50, kMostLines = 20;
constexpr std::size_t kRowsShown = 64, kRow = 16, kBlock = 1024;

std::string hex(unsigned long long number, int digits) {
    char text[17];
    std::snprintf(text, sizeof text, "%0*llx", digits, number);
    return text;
}

bool isPlain(char c) {
    return c >= ' ' && c <= '~';
}

std::string rowText(std::string_view row) {
    std::string bytes, characters;
    for (const char c : row) {
        bytes += hex(static_cast<std::uint8_t>(c), 2) + ' ';
        characters += isPlain(c) ? c : '.';
    }
    return bytes + characters;
}

/// Long repetitions are counted: a name that no file gave is 255 zero bytes.
std::string nameText(std::string_view name) {
    std::string text;
    for (std::size_t i = 0, next = 0; i < name.size(); i = next) {
        next = std::min(name.find_first_not_of(name[i], i), name.size());
        const std::string one = isPlain(name[i]) ? std::string(1, name[i])
                                                 : '<' + hex(static_cast<std::uint8_t>(name[i]), 2) + '>';
        const std::size_t times = next - i;
        if (times > 9)
            text += one + '{' + std::to_string(times) + '}';
        else
            for (std::size_t n = 0; n < times; ++n)
                text += one;
    }
    return text;
}

bool isZero(std::string_view bytes) {
    return bytes.find_first_not_of('\0') == bytes.npos;
}

/// Each piece that is not all zero, by where it begins.
json pieces(std::string_view bytes, std::size_t length, std::string (*tell)(std::string_view)) {
    json told = json::object();
    for (std::size_t at = 0; at < bytes.size(); at += length)
        if (const auto piece = bytes.substr(at, length); !isZero(piece)) told['@' + hex(at, 6)] = tell(piece);
    return told;
}

int bigEndian(std::string_view bytes, std::size_t at) {
    int number = 0;
    for (const char c : bytes.substr(at, 4))
        number = number << 8 | static_cast<std::uint8_t>(c);
    return number;
}

} // namespace

// FNV-1a
std::string hashOf(std::string_view text) {
    std::uint64_t hash = 0xcbf29ce484222325;
    for (const char c : text)
        hash = (hash ^ static_cast<std::uint8_t>(c)) * 0x100000001b3;
    return hex(hash, 16);
}

json shortened(const std::vector<std::string>& entries) {
    if (entries.size() <= kEntriesShown) return entries;
    json lines = json::array();
    const std::size_t inLine = std::max(kEntriesInLine, (entries.size() + kMostLines - 1) / kMostLines);
    for (std::size_t first = 0; first < entries.size(); first += inLine) {
        const std::size_t last = std::min(first + inLine, entries.size()) - 1;
        std::string all;
        for (std::size_t i = first; i <= last; ++i)
            all += entries[i] + '\n';
        lines.push_back(std::to_string(first) + " to " + std::to_string(last) + ": " + entries[first] +
                        " ... " + entries[last] + " #" + hashOf(all));
    }
    return lines;
}

std::string swatchText(int length, std::string_view name, long long red, long long green, long long blue) {
    return std::to_string(length) + " '" + nameText(name) + "' " + std::to_string(red) + ' ' +
           std::to_string(green) + ' ' + std::to_string(blue);
}

json rowsDigest(std::string_view bytes) {
    json rows = pieces(bytes, kRow, rowText);
    if (rows.size() > kRowsShown) rows = pieces(bytes, kBlock, hashOf);
    return {{"size", bytes.size()}, {"rows", rows}};
}

json fileDigest(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(in), {}};
    if (bytes.starts_with("%PDF-")) return pdfDigest(path);
    if (bytes.starts_with("\x89PNG") && bytes.size() > 24)
        return {{"picture", {bigEndian(bytes, 16), bigEndian(bytes, 20)}}};
    return path.find(".prf") == path.npos ? rowsDigest(bytes) : preferencesDigest(bytes);
}

} // namespace chromalog::golden
