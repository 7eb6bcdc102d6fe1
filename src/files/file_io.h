#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace chromalog {

struct FileIdentity;

/// Nothing that this program reads is longer: a swatch file or a colour book ends far below it.
inline constexpr std::size_t kLongestRead = std::size_t{64} << 20;

/// The contents of a regular file, its first `limit` bytes where it is longer. Nothing, and errno says why,
/// for what cannot be opened or read to its end, and for anything but a regular file (a folder, a pipe, a
/// device): it never waits for another process. `read` gets what was read, as it was before.
std::optional<std::vector<std::uint8_t>> readDataFromFileAtURL(const std::string& path,
                                                               std::size_t limit = kLongestRead,
                                                               FileIdentity* read = nullptr);

/// A stretch of a file.
struct Extent {
    std::size_t begin, end;
};

/// The same into memory that is all zeros, as much of the file as it holds: how many bytes. Where the file
/// has holes, the memory is not touched; `held` gets what was, in order.
std::optional<std::size_t> readFileInto(const std::string& path, std::span<std::uint8_t> zeros,
                                        FileIdentity* read = nullptr, std::vector<Extent>* held = nullptr);

/// Whether a write waits until the disk has it. Later is for writes on a person's every step: a power failure
/// may then bring back an older file, a crash of the program cannot.
enum class Flush { toDisk, later };

/// Writes `data`, followed by `zeros` zero bytes, to a temporary file beside `path` that then takes its
/// place. On any failure, a killed process included, what was there before stays whole. An existing file
/// keeps its mode, a symbolic link stays and its target is written, whether or not there is one yet. A file
/// that may be written in a folder that lets it not be replaced is written over. False where nothing was
/// written; errno then says why.
bool writeDataToFileAtURL(const std::string& path, std::span<const std::uint8_t> data, std::size_t zeros = 0,
                          Flush = Flush::toDisk);

/// What errno says, for people.
std::string reasonOf(int error);

} // namespace chromalog
