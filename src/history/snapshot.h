#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <unordered_set>
#include <vector>

namespace chromalog {

/// An immutable copy of a span of bytes, cut into pages. Pages that are equal to those of the snapshot before
/// it are shared, so that a step that changed one swatch costs one page, not the whole record.
class Snapshot {
  public:
    /// Large enough that a copy in pages costs no more than one in a piece, small enough for twenty single
    /// edits.
    static constexpr std::size_t kPageBytes = 32768;

    /// Copies `bytes`; `previous` (null: none) is the snapshot that is most likely to be alike.
    Snapshot(std::span<const std::byte> bytes, const Snapshot* previous);

    std::size_t size() const { return size_; }
    /// Writes the copy back, as far as `target` reaches.
    void restore(std::span<std::byte> target) const;
    /// Bytes held by pages that are not yet in `counted`, which they join.
    std::size_t bytesBeside(std::unordered_set<const void*>& counted) const;

  private:
    struct Page;

    std::vector<std::shared_ptr<const Page>> pages_; ///< the last one may be used in part
    std::size_t size_ = 0;
};

} // namespace chromalog
