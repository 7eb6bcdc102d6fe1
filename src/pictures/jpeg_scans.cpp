#include "pictures/jpeg_scans.h"

namespace chromalog {
namespace {

constexpr std::size_t kAtOnce = std::size_t{1} << 16; ///< bytes
constexpr std::uint8_t kMarker = 0xFF, kStartOfScan = 0xDA;

} // namespace

std::int64_t scansOfJpeg(const BytesAt& read) {
    std::int64_t scans = 0;
    bool marker = false; // the byte before, perhaps of the part before
    for (std::uint64_t at = 0;; at += kAtOnce) {
        const std::vector<std::uint8_t> bytes = read(at, kAtOnce);
        for (const std::uint8_t byte : bytes) {
            scans += marker && byte == kStartOfScan ? 1 : 0;
            marker = byte == kMarker;
        }
        if (bytes.size() < kAtOnce) return scans;
    }
}

} // namespace chromalog
