#include "standalone/handle_heap.h"

#include "abi/result_codes.h"

#include <utility>

namespace chromalog::standalone {

Handle HandleHeap::make(std::int32_t size) {
    ledger_.count("newProc");
    if (failing_ == Failing::newProc || size < 0) return nullptr;
    blocks_.push_back(
        std::make_unique<Block>(Block{.number = static_cast<int>(blocks_.size()) + 1,
                                      .memory = GuardedBlock(static_cast<std::size_t>(size), fresh_),
                                      .oldPlace = std::nullopt}));
    return &blocks_.back()->master;
}

void HandleHeap::dispose(Handle handle, const char* callback) {
    ledger_.count(callback);
    Block* block = find(handle, callback);
    if (!block) return;
    if (block->locks > 0) misuse(callback, *block, "is still locked");
    if (!block->memory.guardsIntact()) misuse(callback, *block, "was written past its ends");
    checkOldPlace(*block);
    block->oldPlace.reset();
    block->memory = GuardedBlock(0);
    block->master = nullptr;
    block->disposed = true;
}

std::int32_t HandleHeap::sizeOf(Handle handle) {
    ledger_.count("getSizeProc");
    Block* block = find(handle, "getSizeProc");
    return block ? static_cast<std::int32_t>(block->memory.size()) : 0;
}

std::int16_t HandleHeap::resize(Handle handle, std::int32_t size) {
    ledger_.count("setSizeProc");
    Block* block = find(handle, "setSizeProc");
    if (!block || size < 0) return hostParamErr;
    if (block->locks > 0) {
        misuse("setSizeProc", *block, "is locked");
        return hostParamErr;
    }
    block->memory = GuardedBlock(block->memory, static_cast<std::size_t>(size));
    return hostNoErr;
}

char* HandleHeap::lock(Handle handle) {
    ledger_.count("lockProc");
    Block* block = find(handle, "lockProc");
    if (!block || failing_ == Failing::lockProc) return nullptr;
    checkOldPlace(*block);
    ++block->locks;
    return block->master = block->memory.data();
}

void HandleHeap::unlock(Handle handle) {
    ledger_.count("unlockProc");
    Block* block = find(handle, "unlockProc");
    if (!block) return;
    if (block->locks == 0) {
        misuse("unlockProc", *block, "is not locked");
        return;
    }
    if (--block->locks > 0) return;
    if (!block->memory.guardsIntact()) misuse("unlockProc", *block, "was written past its ends");
    checkOldPlace(*block);
    if (block->oldPlace && block->oldPlace->size() == block->memory.size())
        block->oldPlace->copyFrom(block->memory);
    else
        block->oldPlace.emplace(block->memory, block->memory.size());
    std::swap(*block->oldPlace, block->memory);
    block->oldPlace->poison();
    block->master = nullptr;
}

void HandleHeap::checkAfterCall(Handle kept) {
    bool found = false;
    for (const auto& block : blocks_) {
        const bool isKept = &block->master == kept;
        found = found || isKept;
        if (isKept && block->disposed) misuse("disposeProc", *block, "is still in the plug-in's slot");
        if (block->disposed) continue;
        checkOldPlace(*block);
        if (block->locks > 0) misuse("lockProc", *block, "is still locked at the end of the call");
        block->locks = 0;
        block->master = nullptr;
        if (isKept) continue;
        misuse("newProc", *block, "was not disposed of");
        block->disposed = true;
    }
    if (kept && !found)
        ledger_.misuse("PluginMain", "what the plug-in's slot holds is no handle of this host");
}

void HandleHeap::end() {
    for (const auto& block : blocks_)
        checkOldPlace(*block);
    blocks_.clear();
}

HandleHeap::Block* HandleHeap::find(Handle handle, const char* callback) {
    if (!handle) {
        ledger_.misuse(callback, "null handle");
        return nullptr;
    }
    for (const auto& block : blocks_) {
        if (&block->master != handle) continue;
        if (!block->disposed) return block.get();
        misuse(callback, *block, "was disposed of");
        return nullptr;
    }
    ledger_.misuse(callback, "not a handle of this host");
    return nullptr;
}

void HandleHeap::checkOldPlace(Block& block) {
    if (!block.oldPlace || block.oldPlace->stillPoisoned()) return;
    misuse("unlockProc", block, "was written after it was unlocked");
    block.oldPlace->poison(); // named once
}

void HandleHeap::misuse(const char* callback, const Block& block, const std::string& what) {
    ledger_.misuse(callback, "handle " + std::to_string(block.number) + " " + what);
}

} // namespace chromalog::standalone
