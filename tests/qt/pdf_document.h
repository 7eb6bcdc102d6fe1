#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace chromalog::test {

/// A word on a page as an independent reader finds it: points from the page's top left corner, y down.
struct PdfWord {
    double xMin, yMin, xMax, yMax;
    std::string text;
};

struct PixelBox {
    int left, top, right, bottom; ///< the last pixel is inside
};

/// A page as an independent renderer paints it.
struct PdfPicture {
    int width = 0, height = 0;
    std::vector<std::uint8_t> rgb;

    std::uint32_t at(int x, int y) const; ///< 0xrrggbb
    std::optional<PixelBox> boxOf(std::uint32_t colour) const;
};

/// A PDF file, read back with programs that have nothing to do with the one that wrote it.
class PdfDocument {
  public:
    explicit PdfDocument(std::string path) : path_(std::move(path)) {}
    static bool readersInstalled();

    bool valid() const; ///< qpdf finds nothing wrong
    int pages() const;
    std::vector<PdfWord> words(int page) const; ///< pages count from 1
    std::vector<std::string> lines(int page) const;
    PdfPicture picture(int page, int dotsPerInch) const;

  private:
    std::string path_;
};

} // namespace chromalog::test
