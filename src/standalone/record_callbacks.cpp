// The callbacks whose pointers stand in the picker's record.
#include "standalone/callbacks.h"
#include "standalone/host.h"

#include <algorithm>
#include <limits>

namespace chromalog::standalone {

namespace {

Handle newHandle(std::int32_t size) {
    return Host::current().handles.make(size);
}
void disposeHandle(Handle handle) {
    Host::current().handles.dispose(handle, "disposeProc");
}
void disposeRegularHandle(Handle handle) {
    Host::current().handles.dispose(handle, "disposeRegularHandleProc");
}
std::int32_t handleSize(Handle handle) {
    return Host::current().handles.sizeOf(handle);
}
std::int16_t setHandleSize(Handle handle, std::int32_t size) {
    return Host::current().handles.resize(handle, size);
}
char* lockHandle(Handle handle, std::uint8_t) {
    return Host::current().handles.lock(handle);
}
void unlockHandle(Handle handle) {
    Host::current().handles.unlock(handle);
}
void recoverSpace(std::int32_t) {
    Host::current().ledger.count("recoverSpaceProc");
}

std::int16_t allocateBuffer(std::int64_t size, BufferID* buffer, const char* callback) {
    Host& host = Host::current();
    host.ledger.count(callback);
    if (!buffer) {
        host.ledger.misuse(callback, "null buffer pointer");
        return hostParamErr;
    }
    if (size < 0) return hostParamErr;
    void* const block = host.buffers.allocate(static_cast<std::uint64_t>(size));
    if (!block) return hostMemFullErr;
    *buffer = static_cast<BufferID>(block);
    return hostNoErr;
}

std::int16_t allocateBuffer32(std::int32_t size, BufferID* buffer) {
    return allocateBuffer(size, buffer, "allocateProc");
}
std::int16_t allocateBuffer64(std::int64_t size, BufferID* buffer) {
    return allocateBuffer(size, buffer, "allocateProc64");
}

// The record has two callbacks of the name lockProc: those of buffers are counted as "buffer lockProc".
char* lockBuffer(BufferID buffer, std::uint8_t) {
    Host::current().ledger.count("buffer lockProc");
    return Host::current().buffers.lock(buffer, "buffer lockProc");
}
void unlockBuffer(BufferID buffer) {
    Host::current().ledger.count("buffer unlockProc");
    Host::current().buffers.unlock(buffer, "buffer unlockProc");
}
void freeBuffer(BufferID buffer) {
    Host::current().ledger.count("freeProc");
    Host::current().buffers.release(buffer, "freeProc");
}
std::int32_t bufferSpace() {
    return std::numeric_limits<std::int32_t>::max();
}
std::int64_t bufferSpace64() {
    return std::numeric_limits<std::int32_t>::max();
}
std::int16_t reserveBufferSpace(std::int32_t) {
    return hostNoErr;
}

std::int16_t getProperty(std::uint32_t signature, std::uint32_t key, std::int32_t index,
                         std::intptr_t* simple, Handle*) {
    Host& host = Host::current();
    host.ledger.count("getPropertyProc");
    if (signature != kHostSignature || key != propHostVersion || index != 0)
        return errPlugInPropertyUndefined;
    if (!simple) {
        host.ledger.misuse("getPropertyProc", "null pointer for a simple property");
        return hostParamErr;
    }
    *simple = static_cast<std::intptr_t>(host.version) << 16;
    return hostNoErr;
}

std::int16_t setProperty(std::uint32_t, std::uint32_t, std::int32_t, std::intptr_t, Handle) {
    Host::current().ledger.count("setPropertyProc");
    return errPlugInPropertyUndefined; // this host has nothing to set
}

} // namespace

HandleProcs* handleProcs() {
    static HandleProcs procs{1,
                             8,
                             newHandle,
                             disposeHandle,
                             handleSize,
                             setHandleSize,
                             lockHandle,
                             unlockHandle,
                             recoverSpace,
                             disposeRegularHandle};
    return &procs;
}

BufferProcs* bufferProcs() {
    static BufferProcs procs{2,          8,           allocateBuffer32,   lockBuffer,       unlockBuffer,
                             freeBuffer, bufferSpace, reserveBufferSpace, allocateBuffer64, bufferSpace64};
    return &procs;
}

PropertyProcs* propertyProcs() {
    static PropertyProcs procs{1, 2, getProperty, setProperty};
    return &procs;
}

void processEventCallback(void*) {
    Host::current().ledger.count("processEvent"); // the record's own: no suite need be held
}

std::int16_t colourServicesCallback(ColorServicesInfo* info) {
    return Host::current().colours.call(info);
}

} // namespace chromalog::standalone
