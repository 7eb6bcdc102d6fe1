#pragma once

#include <cstddef>
#include <vector>

namespace chromalog::standalone {

/// Memory for the plug-in with guard bytes on both sides. Its contents start as rubbish on purpose: a plug-in
/// that reads before it writes shows.
class GuardedBlock {
  public:
    explicit GuardedBlock(std::size_t size);
    /// A copy at another address, longer or shorter.
    GuardedBlock(const GuardedBlock& from, std::size_t size);

    char* data() { return reinterpret_cast<char*>(bytes_.data()) + kGuard; }
    std::size_t size() const { return bytes_.size() - 2 * kGuard; }
    bool guardsIntact() const;

    /// Overwrites everything, so that whoever still looks here sees rubbish.
    void poison();
    /// False where somebody has written since poison().
    bool stillPoisoned() const;

  private:
    void setGuards();

    static constexpr std::size_t kGuard = 16; // keeps data() aligned for any type
    std::vector<unsigned char> bytes_;
};

} // namespace chromalog::standalone
