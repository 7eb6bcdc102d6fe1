#include "record/allocate_globals.h"

#include <cstring>

namespace chromalog {
namespace {

constexpr std::uint8_t kMoveHigh = 1;

GlobalRecord* refresh(void* address, std::int16_t* result, PickerRecord* record) {
    auto* globals = static_cast<GlobalRecord*>(address);
    globals->resultCode = result;
    *result = hostNoErr;
    globals->pickerRecord = record;
    return globals;
}

bool canHold(const HandleProcs* procs) {
    return procs && procs->newProc && procs->disposeProc && procs->lockProc && procs->unlockProc;
}

} // namespace

GlobalRecord* AllocateGlobals(std::int16_t* result, PickerRecord* record, HandleProcs* handleProcs,
                              std::int32_t size, std::intptr_t* data, void (*initProc)(GlobalRecord*)) {
    if (!canHold(handleProcs)) return nullptr;
    if (*data) {
        void* address = handleProcs->lockProc(reinterpret_cast<Handle>(*data), kMoveHigh);
        return address ? refresh(address, result, record) : nullptr;
    }
    const Handle handle = handleProcs->newProc(size);
    if (!handle) return nullptr;
    void* address = handleProcs->lockProc(handle, kMoveHigh);
    if (!address) {
        handleProcs->disposeProc(handle);
        return nullptr;
    }
    std::memset(address, 0, static_cast<std::size_t>(size)); // counts and names start empty
    GlobalRecord* globals = refresh(address, result, record);
    initProc(globals);
    *data = reinterpret_cast<std::intptr_t>(handle);
    return globals;
}

} // namespace chromalog
