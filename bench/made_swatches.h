// Swatches for measuring: names as books have them, colours from a fixed seed.
#pragma once

#include "record/global_record.h"

#include <cstdio>
#include <memory>
#include <random>
#include <span>

namespace chromalog {

inline void makeSwatches(std::span<FCOStruct> records) {
    static constexpr const char* hues[] = {"Red",  "Orange", "Yellow", "Green",
                                           "Cyan", "Blue",   "Pink",   "Grey"};
    static constexpr const char* shades[] = {"Light", "Deep", "Warm", "Cool"};
    std::mt19937 random(3);
    for (FCOStruct& record : records) {
        char* name = reinterpret_cast<char*>(record.Namen) + 1;
        const char *shade = shades[random() % 4], *hue = hues[random() % 8];
        const int number = static_cast<int>(random() % 9000);
        record.Namen[0] =
            static_cast<std::uint8_t>(std::snprintf(name, 255, "%s %s %d C", shade, hue, number));
        record.SRed = random() % 65536;
        record.SGreen = random() % 65536;
        record.SBlue = random() % 65536;
    }
}

/// A record with so many swatches in each list.
inline std::unique_ptr<GlobalRecord> recordWith(int count1, int count2) {
    auto record = std::make_unique<GlobalRecord>();
    makeSwatches(std::span(record->swatchList1).first(static_cast<std::size_t>(count1)));
    makeSwatches(std::span(record->swatchList2).first(static_cast<std::size_t>(count2)));
    record->numColors1 = static_cast<std::int16_t>(count1);
    record->numColors2 = static_cast<std::int16_t>(count2);
    return record;
}

} // namespace chromalog
