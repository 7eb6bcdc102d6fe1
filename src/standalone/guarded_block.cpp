#include "standalone/guarded_block.h"

#include <algorithm>
#include <cstring>

namespace chromalog::standalone {

namespace {
constexpr unsigned char kGuardByte = 0xA5;
constexpr unsigned char kFreshByte = 0xCD;
constexpr unsigned char kPoisonByte = 0xDB;

bool all(const unsigned char* from, std::size_t count, unsigned char byte) {
    return std::all_of(from, from + count, [byte](unsigned char b) { return b == byte; });
}
} // namespace

GuardedBlock::GuardedBlock(std::size_t size) : bytes_(size + 2 * kGuard, kGuardByte) {
    std::memset(data(), kFreshByte, size);
}

GuardedBlock::GuardedBlock(const GuardedBlock& from, std::size_t size) : GuardedBlock(size) {
    std::memcpy(data(), from.bytes_.data() + kGuard, std::min(size, from.size()));
}

bool GuardedBlock::guardsIntact() const {
    return all(bytes_.data(), kGuard, kGuardByte) && all(bytes_.data() + kGuard + size(), kGuard, kGuardByte);
}

void GuardedBlock::poison() {
    bytes_.assign(bytes_.size(), kGuardByte);
    std::memset(data(), kPoisonByte, size());
}

bool GuardedBlock::stillPoisoned() const {
    return all(bytes_.data() + kGuard, size(), kPoisonByte) && guardsIntact();
}

} // namespace chromalog::standalone
