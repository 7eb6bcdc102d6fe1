#include "record/allocate_globals.h"

#include <algorithm>
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

/// What is zero already is only read: pages that the host has from the system and that nobody wrote yet take
/// no memory then.
void zero(unsigned char* bytes, std::size_t size) {
    constexpr std::size_t kPage = 4096;
    for (std::size_t at = 0; at < size; at += kPage) {
        const std::size_t count = std::min(kPage, size - at);
        const unsigned char* page = bytes + at;
        if (page[0] != 0 || std::memcmp(page, page + 1, count - 1) != 0) std::memset(bytes + at, 0, count);
    }
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
    zero(static_cast<unsigned char*>(address),
         static_cast<std::size_t>(size)); // counts and names start empty
    GlobalRecord* globals = refresh(address, result, record);
    initProc(globals);
    *data = reinterpret_cast<std::intptr_t>(handle);
    return globals;
}

} // namespace chromalog
