#include "print/page_layout.h"

#include "base/channels.h"
#include "colour/value_fields.h"
#include "record/name_text.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

namespace chromalog {
namespace {

// Points.
constexpr int kTextWidth = 80;
constexpr int kTextHeight = 24;
constexpr int kTextGap = 5;    ///< between a patch and its text
constexpr int kColumnGap = 10; ///< after a text block
constexpr int kRowGap = 10;
constexpr int kLineAdvance = 7; ///< also the first line's offset below the patch's top
constexpr int kFooterHeight = 30;
constexpr int kFooterWidth = 200;
constexpr int kFooterDate = 0, kFooterUser = 300, kFooterPage = 370; ///< the last two overlap; kept

std::int16_t wholeCells(double count) {
    return static_cast<std::int16_t>(std::isnan(count) ? 0 : std::clamp(count, 0.0, 32767.0));
}

template <typename... Args> std::string formatted(const char* format, Args... args) {
    char text[64];
    std::snprintf(text, sizeof text, format, args...);
    return text;
}

/// Builds the pages of one job, swatch after swatch.
class PageBuilder {
  public:
    PageBuilder(ConstListRecords swatches, Size page, const SwatchPrintSetting& setting)
        : swatches_(swatches), page_(page), setting_(setting), patch_(patchSize(setting.options.printSize)),
          grid_(swatchGrid(page, setting.options.printSize)) {}

    std::vector<PrintPage> build() const {
        if (!grid_.fits()) return {};
        const int pages = grid_.pages(static_cast<int>(swatches_.size()));
        std::vector<PrintPage> built(static_cast<std::size_t>(pages));
        std::size_t next = 0;
        for (int p = 0; p < pages && next < swatches_.size(); ++p) {
            next = addCells(built[static_cast<std::size_t>(p)], next);
            addFooter(built[static_cast<std::size_t>(p)], p + 1, pages);
        }
        return built;
    }

  private:
    std::size_t addCells(PrintPage& page, std::size_t next) const {
        page.cells.reserve(std::min<std::size_t>(grid_.perPage(), swatches_.size() - next));
        for (int c = 0; c < grid_.cols; ++c)
            for (int r = 0; r < grid_.rows && next < swatches_.size(); ++r)
                page.cells.push_back(cell(swatches_[next++],
                                          c * (kTextWidth + patch_.width + kTextGap + kColumnGap),
                                          r * (patch_.height + kRowGap)));
        return next;
    }

    PrintCell cell(const FCOStruct& swatch, double x, double y) const {
        const double red = fractionOf(swatch.SRed), green = fractionOf(swatch.SGreen),
                     blue = fractionOf(swatch.SBlue);
        const int r8 = printedByte(red), g8 = printedByte(green), b8 = printedByte(blue);
        const auto inks =
            inkPercents({r8, g8, b8}, setting_.services); // the host is asked whatever is printed
        PrintCell cell{
            {x, y, double(patch_.width), double(patch_.height)}, Colour::rgb(red, green, blue), {}};
        const double textX = x + patch_.width + kTextGap;
        double textY = y + kLineAdvance;
        const auto addLine = [&](std::string text) {
            cell.labels.push_back({{textX, textY, kTextWidth, kTextHeight}, std::move(text)});
            textY += kLineAdvance;
        };
        if (setting_.options.printName) addLine(macRomanToUtf8(zeroTerminatedName(swatch)));
        if (setting_.options.printRGB) addLine(formatted("RGB: %d/ %d/ %d ", r8, g8, b8));
        if (setting_.options.printCMYK)
            addLine(formatted("CMYK: %hhu%% %hhu%% %hhu%% %hhu ", inks[0], inks[1], inks[2], inks[3]));
        return cell;
    }

    void addFooter(PrintPage& page, int number, int pages) const {
        const double y = static_cast<float>(page_.h) - kFooterHeight;
        const auto block = [&](int x) { return Rect{double(x), y, kFooterWidth, kTextHeight}; };
        page.footer = {{block(kFooterDate), setting_.date},
                       {block(kFooterUser), setting_.userName},
                       {block(kFooterPage), formatted("page %d/%hd ", number, pages)}};
    }

    ConstListRecords swatches_;
    Size page_;
    const SwatchPrintSetting& setting_;
    const PrintSize& patch_;
    SwatchGrid grid_;
};

} // namespace

SwatchGrid swatchGrid(Size area, std::int16_t printSize) {
    const PrintSize& patch = patchSize(printSize);
    return {wholeCells(area.w / (patch.width + kTextWidth + kTextGap + kColumnGap)),
            wholeCells(area.h / (patch.height + kRowGap) - 1)};
}

std::string printDate(const std::tm& time) {
    char text[64];
    return {text, std::strftime(text, sizeof text, "%d %m %Y %H:%M:%S", &time)};
}

std::vector<PrintPage> swatchPages(ConstListRecords swatches, Size page, const SwatchPrintSetting& setting) {
    return PageBuilder(swatches, page, setting).build();
}

} // namespace chromalog
