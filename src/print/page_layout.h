#pragma once

#include "desktop/printing.h"
#include "print/print_options.h"
#include "print/print_page.h"
#include "record/host_conversion.h"
#include "record/list_store.h"

#include <ctime>
#include <string>
#include <vector>

namespace chromalog {

/// How many swatches a page takes; no columns or no rows where the paper is too small.
struct SwatchGrid {
    int cols = 0;
    int rows = 0;

    bool fits() const { return cols > 0 && rows > 0; }
    int perPage() const { return cols * rows; }
    /// One more than full pages, also where the last of them is exactly full; kept. Only for a grid that
    /// fits.
    int pages(int swatches) const { return swatches / perPage() + 1; }
};

SwatchGrid swatchGrid(Size area, std::int16_t printSize);

/// What a job needs beside the swatches.
struct SwatchPrintSetting {
    PrintOptions options;
    ColorServicesProc services = nullptr; ///< for the CMYK values
    std::string date;                     ///< as the footer shows it
    std::string userName;
};

/// The footer's date and time.
std::string printDate(const std::tm&);

/// Every page of a list: patches run down the columns first. Empty where the paper is too small.
std::vector<PrintPage> swatchPages(ConstListRecords swatches, Size page, const SwatchPrintSetting&);

} // namespace chromalog
