#include "plugin/elf_symbols.h"

#include <cstring>
#include <elf.h>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace chromalog {

namespace {

template <typename Record> Record recordAt(const std::string& file, std::uint64_t offset) {
    if (offset + sizeof(Record) > file.size()) throw std::runtime_error("the file is cut short");
    Record record;
    std::memcpy(&record, file.data() + offset, sizeof record);
    return record;
}

bool isExported(const Elf64_Sym& symbol) {
    const unsigned visibility = ELF64_ST_VISIBILITY(symbol.st_other);
    return symbol.st_shndx != SHN_UNDEF && ELF64_ST_BIND(symbol.st_info) != STB_LOCAL &&
           (visibility == STV_DEFAULT || visibility == STV_PROTECTED);
}

} // namespace

std::vector<std::string> exportedSymbols(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    const std::string file{std::istreambuf_iterator<char>(in), {}};
    const auto header = recordAt<Elf64_Ehdr>(file, 0);
    if (std::memcmp(header.e_ident, ELFMAG, SELFMAG) != 0) throw std::runtime_error("no ELF file");
    const auto section = [&](std::uint64_t i) {
        return recordAt<Elf64_Shdr>(file, header.e_shoff + i * header.e_shentsize);
    };
    std::vector<std::string> names;
    for (std::uint64_t i = 0; i < header.e_shnum; ++i) {
        const Elf64_Shdr table = section(i);
        if (table.sh_type != SHT_DYNSYM) continue;
        const std::uint64_t strings = section(table.sh_link).sh_offset;
        for (std::uint64_t at = 0; at < table.sh_size; at += sizeof(Elf64_Sym)) {
            const auto symbol = recordAt<Elf64_Sym>(file, table.sh_offset + at);
            if (isExported(symbol)) names.emplace_back(file.c_str() + strings + symbol.st_name);
        }
    }
    return names;
}

} // namespace chromalog
