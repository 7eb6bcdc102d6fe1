// Writes the bundle's resource file: make_rsrc NAME ENTRY FILE
#include "plugin/pipl/pipl.h"

#include <cstdio>
#include <fstream>

int main(int argc, char** argv) {
    if (argc != 4) {
        std::fputs("usage: make_rsrc NAME ENTRY FILE\n", stderr);
        return 2;
    }
    using namespace chromalog;
    constexpr std::int16_t kPiplId = 16000;
    const Bytes file = resourceFile("PiPL", kPiplId, piplBytes(pickerProperties(argv[1], argv[2])));
    std::ofstream out(argv[3], std::ios::binary);
    out.write(reinterpret_cast<const char*>(file.data()), static_cast<std::streamsize>(file.size()));
    if (out.flush()) return 0;
    std::fprintf(stderr, "make_rsrc: cannot write %s\n", argv[3]);
    return 1;
}
