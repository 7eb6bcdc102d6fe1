#include "views/golden_picture.h"

#include <fstream>
#include <iterator>

namespace chromalog::test {
namespace {

/// A PAM file, red, green, blue and alpha a byte each: any picture viewer of the netpbm family shows it.
std::string pamOf(const Bitmap& picture) {
    std::string pam = "P7\nWIDTH " + std::to_string(picture.width) + "\nHEIGHT " +
                      std::to_string(picture.height) + "\nDEPTH 4\nMAXVAL 255\nTUPLTYPE RGB_ALPHA\nENDHDR\n";
    for (std::uint32_t word : picture.pixels)
        for (int shift : {16, 8, 0, 24})
            pam += static_cast<char>(word >> shift & 0xFF);
    return pam;
}

std::string read(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void write(const std::string& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

} // namespace

bool equalsGolden(const Bitmap& picture, const std::string& name) {
    const std::string path = std::string(CHROMALOG_GOLDEN) + "/" + name + ".pam";
    const std::string pam = pamOf(picture);
    const std::string reference = read(path);
    if (pam == reference) return true;
    write(path + ".out", pam);
    if (pam.size() != reference.size()) return false;
    Bitmap difference = picture;
    const std::size_t header = pam.size() - 4 * picture.pixels.size();
    for (std::size_t i = 0; i < picture.pixels.size(); ++i)
        difference.pixels[i] =
            pam.compare(header + 4 * i, 4, reference, header + 4 * i, 4) ? 0xFFFFFFFF : 0xFF000000;
    write(path + ".diff", pamOf(difference));
    return false;
}

} // namespace chromalog::test
