#include "standalone/palettes/palette_input.h"

#include "files/file_io.h"

#include <cerrno>
#include <unistd.h>

namespace chromalog::standalone {

namespace {

constexpr std::size_t kTooLong = kLongestRead + 1;

std::vector<std::uint8_t> readStandardInput() {
    std::vector<std::uint8_t> bytes;
    std::array<std::uint8_t, 65536> block;
    while (bytes.size() < kTooLong) {
        const ssize_t size = ::read(STDIN_FILENO, block.data(), block.size());
        if (size < 0 && errno == EINTR) continue;
        if (size < 0) throw std::runtime_error("cannot read standard input: " + reasonOf(errno));
        if (size == 0) break;
        bytes.insert(bytes.end(), block.begin(), block.begin() + size);
    }
    return bytes;
}

std::vector<std::uint8_t> contentsOf(const std::string& path) {
    if (path == kStandardStream) return readStandardInput();
    auto bytes = readDataFromFileAtURL(path, kTooLong);
    if (bytes) return std::move(*bytes);
    const bool pipeOrDevice = errno == EOPNOTSUPP;
    throw std::runtime_error(
        "cannot read " + path + ": " +
        (pipeOrDevice ? "it is no regular file; - stands for standard input" : reasonOf(errno)));
}

} // namespace

std::string named(const std::string& path) {
    return path == kStandardStream ? "standard input" : path;
}

ReadPalette PaletteInput::read(const std::string& path) const {
    const auto bytes = contentsOf(path);
    if (bytes.size() > kLongestRead) throw std::runtime_error(named(path) + ": too long for a palette");
    const auto format = from_.empty() ? formatOfContents(bytes, path) : formatOfWord(from_);
    if (!format) throw std::runtime_error(named(path) + ": no palette of a kind that is known here");
    try {
        return rulesOf(*format).read(bytes);
    } catch (const PaletteError& error) {
        throw std::runtime_error(named(path) + ": " + error.what());
    }
}

Palette joined(std::vector<Palette> palettes) {
    Palette all;
    for (Palette& palette : palettes) {
        if (all.title.empty()) all.title = std::move(palette.title);
        for (PaletteColour& colour : palette.colours)
            addColour(all, std::move(colour));
    }
    return all;
}

} // namespace chromalog::standalone
