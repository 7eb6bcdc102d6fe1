#include "standalone/guarded_block.h"

#include <algorithm>
#include <cstring>

namespace chromalog::standalone {

namespace {
constexpr unsigned char kGuardByte = 0xA5;
constexpr unsigned char kFreshByte = 0xCD;
constexpr unsigned char kPoisonByte = 0xDB;

/// Each byte is the one before it: compared many at a time.
bool all(const unsigned char* from, std::size_t count, unsigned char byte) {
    return count == 0 || (*from == byte && std::memcmp(from, from + 1, count - 1) == 0);
}
} // namespace

GuardedBlock::GuardedBlock(std::size_t size) : bytes_(size + 2 * kGuard, kFreshByte) {
    setGuards();
}

GuardedBlock::GuardedBlock(const GuardedBlock& from, std::size_t size) : GuardedBlock(size) {
    std::memcpy(data(), from.bytes_.data() + kGuard, std::min(size, from.size()));
}

bool GuardedBlock::guardsIntact() const {
    return all(bytes_.data(), kGuard, kGuardByte) && all(bytes_.data() + kGuard + size(), kGuard, kGuardByte);
}

void GuardedBlock::setGuards() {
    std::fill_n(bytes_.begin(), kGuard, kGuardByte);
    std::fill_n(bytes_.end() - kGuard, kGuard, kGuardByte);
}

void GuardedBlock::poison() {
    std::memset(data(), kPoisonByte, size());
    setGuards();
}

bool GuardedBlock::stillPoisoned() const {
    return all(bytes_.data() + kGuard, size(), kPoisonByte) && guardsIntact();
}

} // namespace chromalog::standalone
