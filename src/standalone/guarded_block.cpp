#include "standalone/guarded_block.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <new>

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

std::string difference(const void* before, const void* after, std::size_t length) {
    const auto* const one = static_cast<const unsigned char*>(before);
    const auto* const other = static_cast<const unsigned char*>(after);
    std::size_t first = length, count = 0;
    for (std::size_t i = length; i-- > 0;)
        if (one[i] != other[i]) first = i, ++count;
    if (count == 0) return "none";
    return std::to_string(count) + (count == 1 ? " byte" : " bytes") + " from offset " +
           std::to_string(first);
}

GuardedBlock::GuardedBlock(std::size_t size, Fresh fresh) : size_(size) {
    if (size > std::numeric_limits<std::size_t>::max() - 2 * kGuard) throw std::bad_alloc();
    bytes_.reset(static_cast<unsigned char*>(std::calloc(size + 2 * kGuard, 1)));
    if (!bytes_) throw std::bad_alloc();
    if (fresh == Fresh::rubbish) std::memset(data(), kFreshByte, size);
    setGuards();
}

GuardedBlock::GuardedBlock(const GuardedBlock& from, std::size_t size) : GuardedBlock(size, Fresh::zeroes) {
    const std::size_t taken = std::min(size, from.size());
    std::memcpy(data(), from.bytes_.get() + kGuard, taken);
    std::memset(data() + taken, kFreshByte, size - taken);
}

void GuardedBlock::copyFrom(const GuardedBlock& from) {
    std::memcpy(data(), from.bytes_.get() + kGuard, size());
}

bool GuardedBlock::guardsIntact() const {
    return all(bytes_.get(), kGuard, kGuardByte) && all(bytes_.get() + kGuard + size(), kGuard, kGuardByte);
}

void GuardedBlock::setGuards() {
    std::fill_n(bytes_.get(), kGuard, kGuardByte);
    std::fill_n(bytes_.get() + kGuard + size_, kGuard, kGuardByte);
}

void GuardedBlock::poison() {
    std::memset(data(), kPoisonByte, size());
    setGuards();
}

std::string GuardedBlock::writtenSince() const {
    if (!guardsIntact()) return "past its ends";
    const std::string poison(size(), static_cast<char>(kPoisonByte));
    return difference(poison.data(), bytes_.get() + kGuard, size());
}

bool GuardedBlock::stillPoisoned() const {
    return all(bytes_.get() + kGuard, size(), kPoisonByte) && guardsIntact();
}

} // namespace chromalog::standalone
