#pragma once

#include "palettes/palette.h"

#include <bit>
#include <string_view>

namespace chromalog {

/// Reads a binary palette from front to back. Past the end there are zeros, and `ended` says so.
class ByteReader {
  public:
    explicit ByteReader(Bytes file) : file_(file) {}

    std::size_t left() const { return file_.size(); }
    bool ended() const { return ended_; } ///< something was asked for that the file no longer had

    /// The next bytes, fewer where the file ends.
    Bytes take(std::size_t count) {
        if (count > file_.size()) count = file_.size(), ended_ = true;
        const Bytes taken = file_.first(count);
        file_ = file_.subspan(count);
        return taken;
    }
    std::uint8_t byte() { return static_cast<std::uint8_t>(big(1)); }
    std::uint16_t word() { return static_cast<std::uint16_t>(big(2)); }
    std::uint32_t longWord() { return big(4); }
    float real() { return std::bit_cast<float>(big(4)); }
    std::uint16_t littleWord() {
        const std::uint16_t value = word();
        return static_cast<std::uint16_t>(value << 8 | value >> 8);
    }

  private:
    std::uint32_t big(std::size_t count) {
        std::uint32_t value = 0;
        for (const std::uint8_t byte : take(count))
            value = value << 8 | byte;
        return value;
    }

    Bytes file_;
    bool ended_ = false;
};

/// Appends big-endian values to a file.
class ByteWriter {
  public:
    void bytes(std::string_view text) { out_ += text; }
    void byte(unsigned value) { out_.push_back(static_cast<char>(value)); }
    void word(unsigned value) { byte(value >> 8), byte(value); }
    void longWord(std::uint32_t value) { word(value >> 16), word(value); }
    void real(float value) { longWord(std::bit_cast<std::uint32_t>(value)); }
    void littleWord(unsigned value) { byte(value), byte(value >> 8); }
    void reserve(std::size_t size) { out_.reserve(size); }
    std::vector<std::uint8_t> take() const { return {out_.begin(), out_.end()}; }
    const std::string& text() const { return out_; }

  private:
    std::string out_;
};

} // namespace chromalog
