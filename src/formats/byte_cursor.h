#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace chromalog {

using Bytes = std::span<const std::uint8_t>;

constexpr std::uint16_t bigEndian16(const std::uint8_t* bytes) {
    return static_cast<std::uint16_t>(bytes[0] << 8 | bytes[1]);
}

/// Reads big-endian values of a file from front to back. Past the end there are zero bytes; the offset goes
/// on, so that it may be asked how far a reader got.
class ByteCursor {
  public:
    explicit ByteCursor(Bytes file, std::size_t offset = 0) : file_(file), offset_(offset) {}

    std::size_t offset() const { return offset_; }
    /// Whether that many bytes are left.
    bool has(std::size_t count) const { return offset_ <= file_.size() && file_.size() - offset_ >= count; }
    void skip(std::size_t count) { offset_ += count; }

    /// The next bytes, as many of `count` as there are; the offset goes on by all of them.
    Bytes upTo(std::size_t count) {
        const std::size_t from = std::min(offset_, file_.size());
        offset_ += count;
        return file_.subspan(from, std::min(count, file_.size() - from));
    }
    template <std::size_t N> std::array<std::uint8_t, N> take() {
        std::array<std::uint8_t, N> bytes{};
        const Bytes there = upTo(N);
        if (there.size() == N) // the usual case, of a size that the compiler knows
            std::copy_n(there.data(), N, bytes.begin());
        else
            std::copy(there.begin(), there.end(), bytes.begin());
        return bytes;
    }
    std::uint8_t byte() { return take<1>()[0]; }
    std::uint16_t word() { return bigEndian16(take<2>().data()); }

  private:
    Bytes file_;
    std::size_t offset_;
};

} // namespace chromalog
