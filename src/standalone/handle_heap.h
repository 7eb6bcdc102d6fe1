#pragma once

#include "abi/handle_suite.h"
#include "standalone/call_ledger.h"
#include "standalone/guarded_block.h"

#include <memory>
#include <optional>
#include <vector>

namespace chromalog::standalone {

/// The host's moveable memory. A block really moves at its last unlock: the old place is filled with rubbish
/// and watched from then on, after the call as well, and the master pointer is null while the block is not
/// locked. It moves to and fro between two places: new memory would cost a page fault for each 4 kB, a fifth
/// of a further pick.
class HandleHeap {
  public:
    enum class Failing { nothing, newProc, lockProc };

    explicit HandleHeap(CallLedger& ledger) : ledger_(ledger) {}
    void setFailing(Failing failing) { failing_ = failing; }
    /// Rubbish, unless this says otherwise.
    void setFresh(Fresh fresh) { fresh_ = fresh; }

    Handle make(std::int32_t size);
    void dispose(Handle handle, const char* callback);
    std::int32_t sizeOf(Handle handle);
    std::int16_t resize(Handle handle, std::int32_t size);
    char* lock(Handle handle);
    void unlock(Handle handle);

    /// Names what a finished call left behind. `kept` is what the plug-in stored in its slot: that block may
    /// live.
    void checkAfterCall(Handle kept);
    /// Names what was written since the last call, and frees what is left: the end of the host run.
    void end();

  private:
    struct Block {
        char* master = nullptr; // a Handle is the address of this
        int number = 0;
        int locks = 0;
        GuardedBlock memory;
        std::optional<GuardedBlock> oldPlace; // where it was while it was last locked, or the time before
        bool disposed = false;
    };

    Block* find(Handle handle, const char* callback);
    void checkOldPlace(Block& block);
    void misuse(const char* callback, const Block& block, const std::string& what);

    CallLedger& ledger_;
    Failing failing_ = Failing::nothing;
    Fresh fresh_ = Fresh::rubbish;
    std::vector<std::unique_ptr<Block>>
        blocks_; // disposed ones stay listed, without memory, to be recognised
};

} // namespace chromalog::standalone
