#pragma once

#include <cstddef>
#include <cstdlib>
#include <memory>
#include <string>

namespace chromalog::standalone {

/// What new memory holds: rubbish shows a plug-in that reads before it writes; zeroes come from the system
/// and take no memory until they are written.
enum class Fresh { rubbish, zeroes };

/// Where two blocks of a length differ, in words: "3 bytes from offset 40", or "none".
std::string difference(const void* before, const void* after, std::size_t length);

/// Memory for the plug-in with guard bytes on both sides. Where there is none left, std::bad_alloc.
class GuardedBlock {
  public:
    explicit GuardedBlock(std::size_t size, Fresh fresh = Fresh::rubbish);
    /// A copy at another address, longer or shorter.
    GuardedBlock(const GuardedBlock& from, std::size_t size);

    void copyFrom(const GuardedBlock&); ///< of the same size

    char* data() { return reinterpret_cast<char*>(bytes_.get()) + kGuard; }
    std::size_t size() const { return size_; }
    bool guardsIntact() const;

    /// Overwrites everything, so that whoever still looks here sees rubbish.
    void poison();
    /// False where somebody has written since poison().
    bool stillPoisoned() const;
    /// What was written since poison(), as far as it differs: "3 bytes from offset 40".
    std::string writtenSince() const;

  private:
    void setGuards();

    static constexpr std::size_t kGuard = 16; // keeps data() aligned for any type
    struct Free {
        void operator()(unsigned char* bytes) const { std::free(bytes); }
    };
    std::size_t size_;
    std::unique_ptr<unsigned char, Free> bytes_;
};

} // namespace chromalog::standalone
