#pragma once

#include "record/global_record.h"
#include "record/name_text.h"
#include "support/headless_desktop.h"
#include "swatches/list_edits.h"
#include "swatches/swatch_panel.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <string>
#include <vector>

namespace chromalog::test {

inline FCOStruct swatch(std::string_view name, std::int64_t red = 0, std::int64_t green = 0,
                        std::int64_t blue = 0) {
    FCOStruct record{};
    record.Namen[0] = static_cast<std::uint8_t>(name.size());
    std::copy(name.begin(), name.end(), record.Namen + 1);
    record.SRed = red;
    record.SGreen = green;
    record.SBlue = blue;
    return record;
}

/// Two lists over a global record of their own, in a dialog that records what it is asked.
class ListTest : public testing::Test, public CSwatchListDelegate {
  public:
    Desktop& desktop() override { return platform; }
    void setFirstColor(CSwatchList& list, std::int16_t index) override {
        if (&list == &swatch1) firstColors.push_back(index);
    }
    void useAsFirstColor(CSwatchList& list, std::int16_t index) override {
        used.emplace_back(&list == &swatch1 ? 1 : 2, index);
    }
    bool isFirstColorId(const Colour& c, std::int16_t, std::string& name) override {
        if (!c.sameRgb(firstColor)) return false;
        name = firstName;
        return true;
    }
    void activateKnobs(CSwatchList& list, double hits) override {
        knobs.emplace_back(&list == &swatch1 ? 1 : 2, hits);
    }
    void setUndoablePosition(std::string_view label) override {
        labels.emplace_back(label);
        if (onUndoStep) onUndoStep();
    }
    ListRecords list1Records() override { return data->swatchList1; }
    ScrollView& scroller(CSwatchList& list) override { return &list == &swatch1 ? scroller1 : scroller2; }
    Menu& menu(CSwatchList& list) override { return &list == &swatch1 ? menu1 : menu2; }

  protected:
    ListTest() {
        one.scroller.connect(&scroller1);
        two.scroller.connect(&scroller2);
    }
    void SetUp() override {
        swatch1.setSwatchList(data->swatchList1);
        swatch2.setSwatchList(data->swatchList2);
        host1.clip = host2.clip = Rect{0, 0, 200, 220};
        swatch1.setHost(&host1);
        swatch2.setHost(&host2);
        swatch1.initWithFrame({0, 0, 200, 220});
        swatch2.initWithFrame({0, 0, 200, 220});
    }
    void fill(CSwatchList& list, const std::vector<FCOStruct>& swatches) {
        std::copy(swatches.begin(), swatches.end(), list.recordsToChange().begin());
        list.setNumberOfColors(static_cast<std::int16_t>(swatches.size()));
        list.setScrollSize();
    }
    /// Swatches named 0, 1, 2 … far enough apart to be different colours.
    void fillNumbered(CSwatchList& list, int count) {
        std::vector<FCOStruct> swatches;
        for (int i = 0; i < count; ++i)
            swatches.push_back(swatch(std::to_string(i), 100 * i));
        fill(list, swatches);
    }
    std::vector<std::string> names(const CSwatchList& list) const {
        std::vector<std::string> all;
        for (const FCOStruct& record : list.shownRecords())
            all.emplace_back(nameBytes(record));
        return all;
    }
    static Point row(int index) { return {20, 22.0 * index + 13}; }
    static Colour colour(double red, double green, double blue) {
        return Colour::rgb(red / 65535.0, green / 65535.0, blue / 65535.0);
    }
    static DragInfo dropOf(const Colour& c, int atRow, const DragSource* source = nullptr) {
        DragInfo info;
        info.location = row(atRow);
        info.source = source;
        info.pasteboard.colourType = true;
        info.pasteboard.colour = c;
        return info;
    }
    static DragInfo namedDropOf(const Colour& c, int atRow, std::string name) {
        DragInfo info = dropOf(c, atRow);
        info.pasteboard.textType = true;
        info.pasteboard.text = std::move(name);
        return info;
    }

    HeadlessDesktop platform;
    std::unique_ptr<GlobalRecord> data = std::make_unique<GlobalRecord>();
    HeadlessViewHost host1, host2;
    HeadlessScrollView scroller1, scroller2;
    HeadlessMenu menu1, menu2;
    SwatchPanel one{data->swatchList1,
                    data->numColors1,
                    ListNameField(data->swatchName1, 257),
                    true,
                    CSwatchList(*this),
                    {},
                    {},
                    {},
                    {},
                    {},
                    {}};
    SwatchPanel two{data->swatchList2,
                    data->numColors2,
                    ListNameField(data->swatchName2, 257),
                    false,
                    CSwatchList(*this),
                    {},
                    {},
                    {},
                    {},
                    {},
                    {}};
    CSwatchList &swatch1 = one.view, &swatch2 = two.view;

    Colour firstColor = Colour::rgb(0.9, 0.3, 0.1);
    std::string firstName = "First";
    std::vector<std::int16_t> firstColors;
    std::vector<std::pair<int, double>> knobs;
    std::vector<std::pair<int, int>> used; ///< list and row, asked for as the first colour
    std::vector<std::string> labels;
    std::function<void()> onUndoStep;
};

} // namespace chromalog::test
