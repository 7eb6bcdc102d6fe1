#include "qt/pdf_document.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <regex>
#include <sstream>

namespace chromalog::test {
namespace {

std::string outputOf(const std::string& command) {
    std::string output;
    FILE* pipe = ::popen((command + " 2>/dev/null").c_str(), "r");
    if (!pipe) return output;
    std::array<char, 65536> block;
    while (const std::size_t got = std::fread(block.data(), 1, block.size(), pipe))
        output.append(block.data(), got);
    ::pclose(pipe);
    return output;
}

std::string pageOptions(int page) {
    return " -f " + std::to_string(page) + " -l " + std::to_string(page) + " ";
}

std::string unescaped(std::string text) {
    const std::pair<const char*, const char*> entities[] = {
        {"&lt;", "<"}, {"&gt;", ">"}, {"&quot;", "\""}, {"&#39;", "'"}, {"&amp;", "&"}};
    for (const auto& [from, to] : entities)
        for (std::size_t at; (at = text.find(from)) != std::string::npos;)
            text.replace(at, std::string(from).size(), to);
    return text;
}

} // namespace

bool PdfDocument::readersInstalled() {
    return std::system("command -v qpdf pdfinfo pdftotext pdftoppm >/dev/null 2>&1") == 0;
}

bool PdfDocument::valid() const {
    return std::system(("qpdf --check '" + path_ + "' >/dev/null 2>&1").c_str()) == 0;
}

int PdfDocument::pages() const {
    const std::string info = outputOf("pdfinfo '" + path_ + "'");
    std::smatch match;
    return std::regex_search(info, match, std::regex("Pages: +([0-9]+)")) ? std::stoi(match[1]) : 0;
}

std::vector<PdfWord> PdfDocument::words(int page) const {
    const std::string html = outputOf("pdftotext -bbox" + pageOptions(page) + "'" + path_ + "' -");
    const std::regex word(
        "<word xMin=\"([0-9.-]+)\" yMin=\"([0-9.-]+)\" xMax=\"([0-9.-]+)\" yMax=\"([0-9.-]+)\">(.*?)</word>");
    std::vector<PdfWord> found;
    for (std::sregex_iterator it(html.begin(), html.end(), word), end; it != end; ++it)
        found.push_back({std::stod((*it)[1]), std::stod((*it)[2]), std::stod((*it)[3]), std::stod((*it)[4]),
                         unescaped((*it)[5])});
    return found;
}

std::vector<std::string> PdfDocument::lines(int page) const {
    std::istringstream text(outputOf("pdftotext -raw" + pageOptions(page) + "'" + path_ + "' -"));
    std::vector<std::string> found;
    for (std::string line; std::getline(text, line);)
        found.push_back(line);
    return found;
}

PdfPicture PdfDocument::picture(int page, int dotsPerInch) const {
    std::istringstream ppm(outputOf("pdftoppm -aa no -aaVector no -r " + std::to_string(dotsPerInch) +
                                    pageOptions(page) + "'" + path_ + "'"));
    PdfPicture picture;
    std::string magic;
    int maximum = 0;
    ppm >> magic >> picture.width >> picture.height >> maximum;
    ppm.get();
    picture.rgb.resize(static_cast<std::size_t>(picture.width) * picture.height * 3);
    ppm.read(reinterpret_cast<char*>(picture.rgb.data()), static_cast<std::streamsize>(picture.rgb.size()));
    return picture;
}

std::uint32_t PdfPicture::at(int x, int y) const {
    if (x < 0 || y < 0 || x >= width || y >= height) return 0xFFFFFFFF;
    const std::uint8_t* p = &rgb[(static_cast<std::size_t>(y) * width + x) * 3];
    return static_cast<std::uint32_t>(p[0]) << 16 | p[1] << 8 | p[2];
}

std::optional<PixelBox> PdfPicture::boxOf(std::uint32_t colour) const {
    std::optional<PixelBox> box;
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            if (at(x, y) != colour) continue;
            if (!box) box = PixelBox{x, y, x, y};
            box->left = std::min(box->left, x);
            box->right = std::max(box->right, x);
            box->bottom = y;
        }
    return box;
}

} // namespace chromalog::test
