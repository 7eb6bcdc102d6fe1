#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace chromalog {

using Bytes = std::span<const std::uint8_t>;

/// Reads big-endian values of a file from front to back. Past the end there are zero bytes; the offset goes
/// on, so that it may be asked how far a reader got.
class ByteCursor {
  public:
    explicit ByteCursor(Bytes file, std::size_t offset = 0) : file_(file), offset_(offset) {}

    std::size_t offset() const { return offset_; }
    /// Whether that many bytes are left.
    bool has(std::size_t count) const { return offset_ <= file_.size() && file_.size() - offset_ >= count; }
    void skip(std::size_t count) { offset_ += count; }

    std::uint8_t byte() {
        const std::uint8_t value = offset_ < file_.size() ? file_[offset_] : 0;
        ++offset_;
        return value;
    }
    std::uint16_t word() {
        const int high = byte();
        return static_cast<std::uint16_t>(high << 8 | byte());
    }
    template <std::size_t N> std::array<std::uint8_t, N> take() {
        std::array<std::uint8_t, N> bytes{};
        if (offset_ < file_.size())
            std::copy_n(file_.begin() + static_cast<std::ptrdiff_t>(offset_),
                        std::min(N, file_.size() - offset_), bytes.begin());
        offset_ += N;
        return bytes;
    }

  private:
    Bytes file_;
    std::size_t offset_;
};

constexpr std::uint16_t bigEndianWord(const std::uint8_t* bytes) {
    return static_cast<std::uint16_t>(bytes[0] << 8 | bytes[1]);
}

} // namespace chromalog
