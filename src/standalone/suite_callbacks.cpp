// The suites that a plug-in acquires: basic, buffer, and the host's own.
#include "standalone/callbacks.h"
#include "standalone/host.h"

#include <algorithm>
#include <cstring>
#include <limits>

namespace chromalog::standalone {

namespace {

std::int32_t acquireSuite(const char* name, std::int32_t version, const void** suite) {
    return Host::current().suites.acquire(name, version, suite);
}
std::int32_t releaseSuite(const char* name, std::int32_t version) {
    return Host::current().suites.release(name, version);
}

std::int32_t isEqual(const char* a, const char* b) {
    Host& host = Host::current();
    host.ledger.count("IsEqual");
    if (!a || !b) host.ledger.misuse("IsEqual", "null text");
    return a && b && std::strcmp(a, b) == 0;
}

std::int32_t allocateBlock(std::size_t size, void** block) {
    Host& host = Host::current();
    host.ledger.count("AllocateBlock");
    if (!block) {
        host.ledger.misuse("AllocateBlock", "null block pointer");
        return kSPBadParameterError;
    }
    *block = host.blocks.allocate(size);
    if (!*block) return hostMemFullErr;
    return kSPNoError;
}

std::int32_t freeBlock(void* block) {
    Host& host = Host::current();
    host.ledger.count("FreeBlock");
    return !block || host.blocks.release(block, "FreeBlock") ? kSPNoError : kSPBadParameterError;
}

std::int32_t reallocateBlock(void* block, std::size_t size, void** newBlock) {
    Host& host = Host::current();
    host.ledger.count("ReallocateBlock");
    if (!newBlock) {
        host.ledger.misuse("ReallocateBlock", "null block pointer");
        return kSPBadParameterError;
    }
    if (block && !host.blocks.has(block, "ReallocateBlock")) return kSPBadParameterError;
    void* const moved = host.blocks.allocate(size);
    if (!moved) return hostMemFullErr;
    if (block) {
        std::memcpy(moved, block,
                    std::min<std::uint64_t>(size, host.blocks.sizeOf(block, "ReallocateBlock")));
        host.blocks.release(block, "ReallocateBlock");
    }
    *newBlock = moved;
    return kSPNoError;
}

std::int32_t undefined() {
    return kSPSuiteNotFoundError;
}

/// The buffer suite's functions come in 32 and 64 bits of the same meaning.
template <typename Size> char* newBuffer(Size* requested, Size minimum, const char* callback) {
    Host& host = Host::current();
    host.ledger.count(callback);
    host.suites.requireAcquired(kPSBufferSuite, callback);
    void* block = host.suiteBuffers.allocate(requested ? std::max(*requested, minimum) : minimum);
    if (!block && requested && *requested > minimum) block = host.suiteBuffers.allocate(*requested = minimum);
    return static_cast<char*>(block);
}

char* newBuffer32(std::uint32_t* requested, std::uint32_t minimum) {
    return newBuffer(requested, minimum, "New");
}
char* newBuffer64(std::uint64_t* requested, std::uint64_t minimum) {
    return newBuffer(requested, minimum, "New64");
}

void disposeBuffer(char** buffer) {
    Host& host = Host::current();
    host.ledger.count("Dispose");
    host.suites.requireAcquired(kPSBufferSuite, "Dispose");
    if (!buffer) return host.ledger.misuse("Dispose", "null pointer to a buffer");
    host.suiteBuffers.release(*buffer, "Dispose");
    *buffer = nullptr;
}

std::uint64_t bufferSize64(char* buffer) {
    Host& host = Host::current();
    host.ledger.count("GetSize");
    host.suites.requireAcquired(kPSBufferSuite, "GetSize");
    return host.suiteBuffers.sizeOf(buffer, "GetSize");
}
std::uint32_t bufferSize(char* buffer) {
    return static_cast<std::uint32_t>(bufferSize64(buffer));
}
std::uint32_t space() {
    return std::numeric_limits<std::int32_t>::max();
}
std::uint64_t space64() {
    return std::numeric_limits<std::int32_t>::max();
}

const char* option(const char* key) {
    Host& host = Host::current();
    host.ledger.count("option");
    host.suites.requireAcquired(kStandaloneSuite, "option");
    if (!key) {
        host.ledger.misuse("option", "null key");
        return nullptr;
    }
    const auto found = host.options.find(key);
    return found == host.options.end() ? nullptr : found->second.c_str();
}

// The host's own counters are read without being counted themselves.
std::int32_t callCount(const char* name) {
    if (!name) Host::current().ledger.misuse("callCount", "null name");
    return name ? Host::current().ledger.calls(name) : 0;
}
std::int32_t misuseCount() {
    return static_cast<std::int32_t>(Host::current().ledger.misuses().size());
}
const char* misuse(std::int32_t index) {
    const auto& lines = Host::current().ledger.misuses();
    return index >= 0 && index < misuseCount() ? lines[static_cast<std::size_t>(index)].c_str() : nullptr;
}
void endWith(std::int32_t exitCode) {
    Host::current().endWith = exitCode;
}
void atEnd(void (*putAway)()) {
    Host& host = Host::current();
    host.ledger.count("atEnd");
    host.suites.requireAcquired(kStandaloneSuite, "atEnd");
    if (!putAway) return host.ledger.misuse("atEnd", "null function");
    if (!std::ranges::count(host.atEnd, putAway)) host.atEnd.push_back(putAway);
}
void taken(std::uint16_t red, std::uint16_t green, std::uint16_t blue) {
    Host& host = Host::current();
    host.ledger.count("taken");
    host.suites.requireAcquired(kStandaloneSuite, "taken");
    host.taken.push_back({red, green, blue});
}

} // namespace

SPBasicSuite* basicSuite() {
    static SPBasicSuite suite{acquireSuite, releaseSuite,    isEqual,  allocateBlock,
                              freeBlock,    reallocateBlock, undefined};
    return &suite;
}

const PSBufferSuite1* bufferSuite1() {
    static constexpr PSBufferSuite1 suite{newBuffer32, disposeBuffer, bufferSize, space};
    return &suite;
}

const PSBufferSuite2* bufferSuite2() {
    static constexpr PSBufferSuite2 suite{newBuffer32, disposeBuffer, bufferSize, space,
                                          newBuffer64, bufferSize64,  space64};
    return &suite;
}

const StandaloneSuite3* standaloneSuite() {
    static constexpr StandaloneSuite3 suite{{{option, callCount, misuseCount, misuse, endWith}, atEnd},
                                            taken};
    return &suite;
}

} // namespace chromalog::standalone
