#include "history/snapshot.h"

#include <algorithm>
#include <cstring>

namespace chromalog {

struct Snapshot::Page {
    std::byte bytes[kPageBytes];
};

Snapshot::Snapshot(std::span<const std::byte> bytes, const Snapshot* previous) : size_(bytes.size()) {
    const bool comparable = previous && previous->size_ == size_;
    pages_.reserve((size_ + kPageBytes - 1) / kPageBytes);
    for (std::size_t at = 0; at < size_; at += kPageBytes) {
        const std::size_t length = std::min(kPageBytes, size_ - at);
        if (comparable) {
            const auto& old = previous->pages_[pages_.size()];
            if (std::memcmp(old->bytes, &bytes[at], length) == 0) {
                pages_.push_back(old);
                continue;
            }
        }
        const auto page = std::make_shared_for_overwrite<Page>();
        std::memcpy(page->bytes, &bytes[at], length);
        pages_.push_back(page);
    }
}

void Snapshot::restore(std::span<std::byte> target) const {
    const std::size_t end = std::min(size_, target.size());
    for (std::size_t at = 0; at < end; at += kPageBytes)
        std::memcpy(&target[at], pages_[at / kPageBytes]->bytes, std::min(kPageBytes, end - at));
}

std::size_t Snapshot::bytesBeside(std::unordered_set<const void*>& counted) const {
    std::size_t bytes = pages_.capacity() * sizeof(pages_[0]);
    for (const auto& page : pages_)
        if (counted.insert(page.get()).second) bytes += sizeof(Page);
    return bytes;
}

} // namespace chromalog
