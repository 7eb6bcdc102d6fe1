#include "plugin_check/elf_file.h"

#include <algorithm>
#include <cstring>
#include <fstream>
#include <iterator>
#include <sstream>
#include <stdexcept>

namespace chromalog {

namespace {

bool isDefined(const Elf64_Sym& symbol) {
    return symbol.st_shndx != SHN_UNDEF && symbol.st_shndx < SHN_LORESERVE;
}

bool isExported(const Elf64_Sym& symbol) {
    const unsigned visibility = ELF64_ST_VISIBILITY(symbol.st_other);
    return symbol.st_shndx != SHN_UNDEF && ELF64_ST_BIND(symbol.st_info) != STB_LOCAL &&
           (visibility == STV_DEFAULT || visibility == STV_PROTECTED);
}

} // namespace

template <typename Record> Record ElfFile::at(std::uint64_t offset) const {
    if (file_.size() < sizeof(Record) || offset > file_.size() - sizeof(Record))
        throw std::runtime_error("the file is cut short");
    Record record;
    std::memcpy(&record, file_.data() + offset, sizeof record);
    return record;
}

ElfFile::ElfFile(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    file_.assign(std::istreambuf_iterator<char>(in), {});
    header_ = at<Elf64_Ehdr>(0);
    if (std::memcmp(header_.e_ident, ELFMAG, SELFMAG) != 0) throw std::runtime_error("no ELF file");
    if (header_.e_ident[EI_CLASS] != ELFCLASS64) throw std::runtime_error("no 64-bit file");
}

std::string ElfFile::textAt(std::uint64_t offset) const {
    if (offset >= file_.size()) throw std::runtime_error("the file is cut short");
    return file_.c_str() + offset;
}

Elf64_Shdr ElfFile::section(std::uint64_t index) const {
    return at<Elf64_Shdr>(header_.e_shoff + index * header_.e_shentsize);
}

std::vector<ElfFile::Symbol> ElfFile::symbols(std::uint32_t kind) const {
    std::vector<Symbol> found;
    for (std::uint64_t i = 0; i < header_.e_shnum; ++i) {
        const Elf64_Shdr table = section(i);
        if (table.sh_type != kind) continue;
        const std::uint64_t strings = section(table.sh_link).sh_offset;
        for (std::uint64_t offset = 0; offset < table.sh_size; offset += sizeof(Elf64_Sym)) {
            const auto entry = at<Elf64_Sym>(table.sh_offset + offset);
            found.push_back({textAt(strings + entry.st_name), entry});
        }
    }
    return found;
}

std::vector<std::string> ElfFile::exportedSymbols() const {
    std::vector<std::string> names;
    for (const Symbol& symbol : symbols(SHT_DYNSYM))
        if (isExported(symbol.entry)) names.push_back(symbol.name);
    return names;
}

bool ElfFile::exportsData(const std::string& name) const {
    return std::ranges::any_of(symbols(SHT_DYNSYM), [&name](const Symbol& symbol) {
        const unsigned type = ELF64_ST_TYPE(symbol.entry.st_info); // code of an assembler may have none
        return symbol.name == name && isExported(symbol.entry) &&
               (type == STT_OBJECT || type == STT_COMMON || type == STT_TLS);
    });
}

std::vector<std::string> ElfFile::importedSymbols() const {
    std::vector<std::string> names;
    for (const Symbol& symbol : symbols(SHT_DYNSYM))
        if (symbol.entry.st_shndx == SHN_UNDEF) names.push_back(symbol.name);
    return names;
}

std::vector<std::string> ElfFile::ownSymbols() const {
    std::vector<std::string> names;
    for (const Symbol& symbol : symbols(SHT_SYMTAB))
        if (isDefined(symbol.entry)) names.push_back(symbol.name);
    return names;
}

std::vector<std::string> ElfFile::neededLibraries() const {
    std::vector<std::string> names;
    for (const Elf64_Dyn& entry : dynamicEntries(DT_NEEDED))
        names.push_back(dynamicText(entry));
    return names;
}

std::vector<Elf64_Phdr> ElfFile::segments(std::uint32_t type) const {
    std::vector<Elf64_Phdr> found;
    for (std::uint64_t i = 0; i < header_.e_phnum; ++i) {
        const auto segment = at<Elf64_Phdr>(header_.e_phoff + i * header_.e_phentsize);
        if (segment.p_type == type) found.push_back(segment);
    }
    return found;
}

std::vector<Elf64_Dyn> ElfFile::dynamicEntries(std::int64_t tag) const {
    std::vector<Elf64_Dyn> found;
    for (const Elf64_Phdr& table : segments(PT_DYNAMIC))
        for (std::uint64_t offset = 0; offset < table.p_filesz; offset += sizeof(Elf64_Dyn)) {
            const auto entry = at<Elf64_Dyn>(table.p_offset + offset);
            if (entry.d_tag == tag) found.push_back(entry);
        }
    return found;
}

bool ElfFile::hasDynamicFlag(std::int64_t tag, std::uint64_t flag) const {
    return std::ranges::any_of(dynamicEntries(tag), [flag](auto& entry) { return entry.d_un.d_val & flag; });
}

bool ElfFile::bindsNow() const {
    return hasDynamicFlag(DT_FLAGS, DF_BIND_NOW) || !dynamicEntries(DT_BIND_NOW).empty();
}

bool ElfFile::hasReadOnlyRelocations() const {
    return !segments(PT_GNU_RELRO).empty();
}

bool ElfFile::hasExecutableStack() const {
    const auto stacks = segments(PT_GNU_STACK);
    return stacks.empty() || std::ranges::any_of(stacks, [](auto& stack) { return stack.p_flags & PF_X; });
}

bool ElfFile::relocatesCode() const {
    return hasDynamicFlag(DT_FLAGS, DF_TEXTREL) || !dynamicEntries(DT_TEXTREL).empty();
}

std::string ElfFile::dynamicText(const Elf64_Dyn& entry) const {
    std::uint64_t strings = 0;
    for (std::uint64_t i = 0; i < header_.e_shnum; ++i)
        if (section(i).sh_type == SHT_DYNAMIC) strings = section(section(i).sh_link).sh_offset;
    return textAt(strings + entry.d_un.d_val);
}

std::vector<std::string> ElfFile::searchPaths() const {
    std::vector<std::string> paths;
    for (const std::int64_t tag : {DT_RPATH, DT_RUNPATH})
        for (const Elf64_Dyn& entry : dynamicEntries(tag)) {
            std::istringstream list(dynamicText(entry));
            for (std::string path; std::getline(list, path, ':');)
                paths.push_back(path);
        }
    return paths;
}

std::string ElfFile::codeOf(const std::string& function, std::size_t length) const {
    for (const std::uint32_t table : {SHT_DYNSYM, SHT_SYMTAB})
        for (const auto& [name, entry] : symbols(table)) {
            if (name != function || !isDefined(entry)) continue;
            const Elf64_Shdr home = section(entry.st_shndx);
            return file_.substr(entry.st_value - home.sh_addr + home.sh_offset, length);
        }
    return {};
}

} // namespace chromalog
