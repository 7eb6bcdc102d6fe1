#include "support/failing_new.h"

#include <cstdlib>
#include <dlfcn.h>
#include <link.h>
#include <new>
#include <string_view>

namespace chromalog::test {
namespace {

thread_local long untilFailure = 0; ///< 0: none fails
thread_local bool ownCodeAlone = false, hasFailed = false;

struct Range {
    std::uintptr_t first = 0, end = 0;
    bool holds(const void* code) const {
        const auto at = reinterpret_cast<std::uintptr_t>(code);
        return at >= first && at < end;
    }
};
Range program, standardLibrary;

/// The program itself comes without a name.
int noteCode(dl_phdr_info* info, std::size_t, void*) {
    const std::string_view name = info->dlpi_name;
    Range* range = name.empty() ? &program : nullptr;
    if (name.find("libstdc++") != name.npos) range = &standardLibrary;
    for (int i = 0; range && i < info->dlpi_phnum; ++i) {
        const auto& segment = info->dlpi_phdr[i];
        if (segment.p_type != PT_LOAD || !(segment.p_flags & PF_X)) continue;
        const auto first = static_cast<std::uintptr_t>(info->dlpi_addr + segment.p_vaddr);
        *range = {first, first + segment.p_memsz};
    }
    return 0;
}

void* allocate(std::size_t size, const void* caller) noexcept {
    const bool counts =
        untilFailure > 0 && (!ownCodeAlone || program.holds(caller) || standardLibrary.holds(caller));
    if (counts && --untilFailure == 0) {
        hasFailed = true;
        return nullptr;
    }
    return std::malloc(size > 0 ? size : 1);
}

void* orThrow(void* block) {
    if (!block) throw std::bad_alloc();
    return block;
}

} // namespace

FailingNew::FailingNew(long n, Of of) {
    if (of == Of::ownCode && program.end == 0) dl_iterate_phdr(noteCode, nullptr);
    ownCodeAlone = of == Of::ownCode;
    hasFailed = false;
    untilFailure = n;
}

FailingNew::~FailingNew() {
    stop();
}

bool FailingNew::stop() {
    untilFailure = 0;
    return hasFailed;
}

} // namespace chromalog::test

using chromalog::test::allocate;
using chromalog::test::orThrow;

// All of them: those of a sanitizer would not fit to ours.
void* operator new(std::size_t size) {
    return orThrow(allocate(size, __builtin_return_address(0)));
}
void* operator new[](std::size_t size) {
    return orThrow(allocate(size, __builtin_return_address(0)));
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    return allocate(size, __builtin_return_address(0));
}
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
    return allocate(size, __builtin_return_address(0));
}
void operator delete(void* block) noexcept {
    std::free(block);
}
void operator delete[](void* block) noexcept {
    std::free(block);
}
void operator delete(void* block, std::size_t) noexcept {
    std::free(block);
}
void operator delete[](void* block, std::size_t) noexcept {
    std::free(block);
}
void operator delete(void* block, const std::nothrow_t&) noexcept {
    std::free(block);
}
void operator delete[](void* block, const std::nothrow_t&) noexcept {
    std::free(block);
}
