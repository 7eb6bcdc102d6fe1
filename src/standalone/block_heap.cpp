#include "standalone/block_heap.h"

#include <functional>
#include <new>
#include <string_view>

namespace chromalog::standalone {

namespace {
constexpr std::uint64_t kLargestBlock = std::uint64_t{1} << 31;
}

void* BlockHeap::allocate(std::uint64_t size) {
    if (refuses_ || size > kLargestBlock) return nullptr;
    try {
        auto memory = std::make_unique<GuardedBlock>(static_cast<std::size_t>(size));
        void* const address = memory->data();
        rest(blocks_[address] = Entry{std::move(memory)});
        return address;
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

bool BlockHeap::release(void* block, const char* callback) {
    Entry* entry = find(block, callback);
    if (!entry) return false;
    if (entry->locks > 0) ledger_.misuse(callback, "the block is still locked");
    checkRest(*entry, callback);
    if (!entry->memory->guardsIntact()) ledger_.misuse(callback, "the block was written past its ends");
    blocks_.erase(block);
    return true;
}

std::uint64_t BlockHeap::sizeOf(void* block, const char* callback) {
    Entry* entry = find(block, callback);
    return entry ? entry->memory->size() : 0;
}

char* BlockHeap::lock(void* block, const char* callback) {
    Entry* entry = find(block, callback);
    if (!entry) return nullptr;
    checkRest(*entry, callback);
    ++entry->locks;
    return entry->memory->data();
}

void BlockHeap::unlock(void* block, const char* callback) {
    Entry* entry = find(block, callback);
    if (!entry) return;
    if (entry->locks == 0) return ledger_.misuse(callback, "the block is not locked");
    --entry->locks;
    rest(*entry);
}

void BlockHeap::checkAfterCall() {
    for (const auto& [address, entry] : blocks_) {
        checkRest(entry, allocator_);
        ledger_.misuse(allocator_,
                       "a block of " + std::to_string(entry.memory->size()) + " bytes was not freed");
    }
    blocks_.clear();
}

namespace {
std::size_t hashOf(GuardedBlock& memory) {
    return std::hash<std::string_view>{}({memory.data(), memory.size()});
}
} // namespace

void BlockHeap::rest(Entry& entry) const {
    if (use_ == Use::whileLocked) entry.contents = hashOf(*entry.memory);
}

void BlockHeap::checkRest(const Entry& entry, const char* callback) {
    if (use_ == Use::whileLocked && entry.locks == 0 && entry.contents != hashOf(*entry.memory))
        ledger_.misuse(callback, "the block was written while it was not locked");
}

BlockHeap::Entry* BlockHeap::find(void* block, const char* callback) {
    const auto found = blocks_.find(block);
    if (found != blocks_.end()) return &found->second;
    ledger_.misuse(callback, block ? "not a block of this host, or freed already" : "null block");
    return nullptr;
}

} // namespace chromalog::standalone
