#include "standalone/block_heap.h"

#include <new>

namespace chromalog::standalone {

namespace {
constexpr std::uint64_t kLargestBlock = std::uint64_t{1} << 31;
}

void* BlockHeap::allocate(std::uint64_t size) {
    if (size > kLargestBlock) return nullptr;
    try {
        auto memory = std::make_unique<GuardedBlock>(static_cast<std::size_t>(size));
        void* const address = memory->data();
        blocks_[address] = Entry{std::move(memory)};
        return address;
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

bool BlockHeap::release(void* block, const char* callback) {
    Entry* entry = find(block, callback);
    if (!entry) return false;
    if (entry->locks > 0) ledger_.misuse(callback, "the block is still locked");
    if (!entry->memory->guardsIntact()) ledger_.misuse(callback, "the block was written past its ends");
    blocks_.erase(block);
    return true;
}

std::uint64_t BlockHeap::sizeOf(void* block, const char* callback) {
    Entry* entry = find(block, callback);
    return entry ? entry->memory->size() : 0;
}

void BlockHeap::lock(void* block, const char* callback) {
    if (Entry* entry = find(block, callback)) ++entry->locks;
}

void BlockHeap::unlock(void* block, const char* callback) {
    Entry* entry = find(block, callback);
    if (!entry) return;
    if (entry->locks == 0)
        ledger_.misuse(callback, "the block is not locked");
    else
        --entry->locks;
}

void BlockHeap::checkAfterCall() {
    for (const auto& [address, entry] : blocks_)
        ledger_.misuse(allocator_,
                       "a block of " + std::to_string(entry.memory->size()) + " bytes was not freed");
    blocks_.clear();
}

BlockHeap::Entry* BlockHeap::find(void* block, const char* callback) {
    const auto found = blocks_.find(block);
    if (found != blocks_.end()) return &found->second;
    ledger_.misuse(callback, block ? "not a block of this host, or freed already" : "null block");
    return nullptr;
}

} // namespace chromalog::standalone
