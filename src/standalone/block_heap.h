#pragma once

#include "standalone/call_ledger.h"
#include "standalone/guarded_block.h"

#include <cstdint>
#include <map>
#include <memory>

namespace chromalog::standalone {

/// Blocks that do not move: those of the basic suite, of the buffer suite, and the older buffers, which are
/// locked for use. Allocating through any of these and not freeing is named at the end of the call.
class BlockHeap {
  public:
    enum class Use { atOnce, whileLocked };

    BlockHeap(CallLedger& ledger, const char* allocator, Use use = Use::atOnce)
        : ledger_(ledger), allocator_(allocator), use_(use) {}

    /// There is no memory from now on.
    void refuse(bool refuses) { refuses_ = refuses; }
    /// Null where there is no memory.
    void* allocate(std::uint64_t size);
    /// False where the address is not a block of this heap; `callback` is then named.
    bool release(void* block, const char* callback);
    bool has(void* block, const char* callback) { return find(block, callback) != nullptr; }
    std::uint64_t sizeOf(void* block, const char* callback);
    /// The block's address; null where it is not a block of this heap.
    char* lock(void* block, const char* callback);
    void unlock(void* block, const char* callback);

    void checkAfterCall();

  private:
    struct Entry {
        std::unique_ptr<GuardedBlock> memory;
        int locks = 0;
        std::size_t contents = 0; // their hash while nobody may write
    };
    Entry* find(void* block, const char* callback);
    void rest(Entry& entry) const;
    void checkRest(const Entry& entry, const char* callback);

    CallLedger& ledger_;
    const char* allocator_;
    Use use_;
    bool refuses_ = false;
    std::map<void*, Entry> blocks_;
};

} // namespace chromalog::standalone
