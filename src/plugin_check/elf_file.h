#pragma once

#include <cstdint>
#include <elf.h>
#include <string>
#include <vector>

namespace chromalog {

/// What a module or a program asks of the loader. Reads 64-bit files of this machine's byte order; a broken
/// one throws.
class ElfFile {
  public:
    explicit ElfFile(const std::string& path);

    /// Names offered to a loader: defined, not hidden symbols of the dynamic symbol table.
    std::vector<std::string> exportedSymbols() const;
    bool exportsData(const std::string& name) const; ///< a symbol of this name that is no code
    std::vector<std::string> importedSymbols() const;
    /// Names of all that the file holds itself, as far as it was not stripped of them.
    std::vector<std::string> ownSymbols() const;
    std::vector<std::string> neededLibraries() const;

    bool bindsNow() const;
    bool hasReadOnlyRelocations() const;
    bool hasExecutableStack() const;
    bool relocatesCode() const;
    std::vector<std::string> searchPaths() const; ///< of RPATH and RUNPATH
    /// The first bytes of a function, exported or not; empty where there is no such symbol.
    std::string codeOf(const std::string& function, std::size_t length) const;

  private:
    struct Symbol {
        std::string name;
        Elf64_Sym entry;
    };
    template <typename Record> Record at(std::uint64_t offset) const;
    std::string textAt(std::uint64_t offset) const;
    Elf64_Shdr section(std::uint64_t index) const;
    std::vector<Symbol> symbols(std::uint32_t table) const; ///< SHT_DYNSYM or SHT_SYMTAB
    std::vector<Elf64_Phdr> segments(std::uint32_t type) const;
    std::vector<Elf64_Dyn> dynamicEntries(std::int64_t tag) const;
    std::string dynamicText(const Elf64_Dyn&) const;
    bool hasDynamicFlag(std::int64_t tag, std::uint64_t flag) const;

    std::string file_;
    Elf64_Ehdr header_;
};

} // namespace chromalog
