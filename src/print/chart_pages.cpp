#include "print/chart_pages.h"

#include <string>

namespace chromalog {
namespace {

// Points.
constexpr double kPatchGap = 5;    ///< right of a patch
constexpr double kLabelSpace = 24; ///< below a patch
constexpr double kFirstLabel = 8;  ///< from the patch's lower edge to the first baseline
constexpr double kLabelAdvance = 7;
constexpr double kLabelHeight = 10;

PrintCell chartCell(const Rect& cell, const Colour& colour) {
    const double width = cell.w - kPatchGap;
    PrintCell printed{{cell.x, cell.y, width, cell.h - kLabelSpace}, colour, {}};
    double y = cell.y + cell.h - kLabelSpace + kFirstLabel;
    for (const auto& [name, component] :
         {std::pair{"R: ", colour.red()}, {"G: ", colour.green()}, {"B: ", colour.blue()}}) {
        printed.labels.push_back(
            {{cell.x, y, width, kLabelHeight}, name + std::to_string(printedByte(component))});
        y += kLabelAdvance;
    }
    return printed;
}

} // namespace

PrintPage degradePage(const GradientCorners& corners, Size page) {
    const Size cell{page.w / gradientCells, page.h / gradientCells};
    PrintPage printed;
    for (int i = 0; i < gradientCells; ++i)
        for (int j = 0; j < gradientCells; ++j)
            printed.cells.push_back(
                chartCell({j * cell.w, i * cell.h, cell.w, cell.h}, gradientCell(corners, i, j)));
    return printed;
}

PrintPage tonePage(const ToneCircle& circle, const Colour& second, Size page) {
    constexpr int rows = toneSectors / 2;
    const Size cell{page.w / toneRings, page.h / rows};
    PrintPage printed;
    for (int j = toneSectors - 1; j >= 0; --j)
        for (int k = toneRings; k >= 0; --k)
            printed.cells.push_back(chartCell({k * cell.w, j * cell.h, cell.w, cell.h},
                                              k == 0 ? second : toneCell(circle, second, k, j)));
    return printed;
}

} // namespace chromalog
