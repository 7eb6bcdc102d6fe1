#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace chromalog::test {

/// Of these bytes, the highest of each number first, as PNG files have them.
inline std::string bigEndian(std::uint32_t value) {
    std::string bytes;
    for (int shift = 24; shift >= 0; shift -= 8)
        bytes += static_cast<char>(value >> shift);
    return bytes;
}

inline std::uint32_t crcOf(const std::string& bytes) {
    std::uint32_t crc = 0xFFFFFFFF;
    for (const char byte : bytes) {
        crc ^= static_cast<std::uint8_t>(byte);
        for (int bit = 0; bit < 8; ++bit)
            crc = crc >> 1 ^ (crc & 1 ? 0xEDB88320 : 0);
    }
    return ~crc;
}

inline std::string pngChunk(const std::string& name, const std::string& contents) {
    return bigEndian(static_cast<std::uint32_t>(contents.size())) + name + contents +
           bigEndian(crcOf(name + contents));
}

inline const std::string kPngSignature = "\x89PNG\r\n\x1A\n";

inline std::string pngHeader(std::uint32_t width, std::uint32_t height) {
    using namespace std::string_literals;
    return kPngSignature + pngChunk("IHDR", bigEndian(width) + bigEndian(height) + "\x08\x02\0\0\0"s);
}

/// A row of pixels (0xrrggbb), below 20,000 of them, as often as there are rows; not compressed.
inline std::string pngFile(const std::vector<std::uint32_t>& row, std::uint32_t height) {
    std::string line(1, '\0'); // no filter
    for (const std::uint32_t pixel : row)
        line += bigEndian(pixel).substr(1);
    std::string zlib = "\x78\x01";
    std::uint32_t a = 1, b = 0; // of the checksum
    for (std::uint32_t y = 0; y < height; ++y) {
        const auto size = static_cast<std::uint32_t>(line.size());
        zlib += y + 1 == height ? '\1' : '\0';
        for (const std::uint32_t length : {size, ~size})
            (zlib += static_cast<char>(length)) += static_cast<char>(length >> 8);
        zlib += line;
        for (const char byte : line) {
            a = (a + static_cast<std::uint8_t>(byte)) % 65521;
            b = (b + a) % 65521;
        }
    }
    zlib += bigEndian(b << 16 | a);
    return pngHeader(static_cast<std::uint32_t>(row.size()), height) + pngChunk("IDAT", zlib) +
           pngChunk("IEND", "");
}

} // namespace chromalog::test
