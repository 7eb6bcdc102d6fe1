#pragma once

#include "print/list_printing.h"
#include "print/print_options.h"
#include "record/host_conversion.h"
#include "support/list_delegate.h"

#include <algorithm>
#include <cstring>
#include <memory>
#include <vector>

namespace chromalog::test {

/// RGB to CMYK in closed form, 255 = no ink.
inline std::int16_t closedForm(ColorServicesInfo* info) {
    std::int16_t* c = info->colorComponents;
    if (info->sourceSpace != plugIncolorServicesRGBSpace || info->resultSpace != plugIncolorServicesCMYKSpace)
        return -1;
    const int k = std::max({c[0], c[1], c[2]});
    for (int i = 0; i < 3; ++i)
        c[i] = static_cast<std::int16_t>(k ? (c[i] * 255 + k / 2) / k : 255);
    c[3] = static_cast<std::int16_t>(k);
    return 0;
}

inline FCOStruct swatch(std::string_view name, std::int64_t red, std::int64_t green, std::int64_t blue) {
    FCOStruct record{};
    record.Namen[0] = static_cast<std::uint8_t>(name.size());
    std::memcpy(record.Namen + 1, name.data(), std::min<std::size_t>(name.size(), 255));
    record.SRed = red;
    record.SGreen = green;
    record.SBlue = blue;
    return record;
}

/// A whole array whose first records are numbered in their red channel: swatch i has red i × 257 % 65536.
inline std::vector<FCOStruct> numberedSwatches() {
    std::vector<FCOStruct> records;
    for (int i = 0; i < kListCapacity; ++i)
        records.push_back(swatch("Colour " + std::to_string(i), i % 256 * 257, 0, 65535));
    return records;
}

/// What of the dialog printing works with, around a list.
class PrintingDialog : public ListDelegate {
  public:
    PrintOptions options;
    ColorServicesProc services = closedForm;

    HeadlessForm& dialog() { return *screen.forms.at("SwatchPrintOptions"); }
};

} // namespace chromalog::test
