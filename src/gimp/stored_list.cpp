#include "gimp/stored_list.h"

#include "palettes/palette_loss.h"
#include "palettes/swatch_palette.h"
#include "prefs/data_directory.h"
#include "prefs/preferences_file.h"
#include "prefs/preferences_store.h"
#include "record/list_name.h"
#include "record/name_text.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <memory>
#include <stdexcept>

namespace chromalog {
namespace {

std::string preferencesPath() {
    const char* named = std::getenv("CHROMALOG_DATA_DIR");
    std::string path = applicationDataDirectory(named && *named ? named : userApplicationsDirectory());
    if (path.empty()) throw std::runtime_error("there is no home folder for Chromalog's lists");
    return path;
}

/// The stored lists, all empty where there are none yet.
std::unique_ptr<GlobalRecord> read(PreferencesStore& store) {
    std::vector<std::uint8_t> image(kPreferencesImage);
    const auto length = store.read(image);
    if (!length && errno != ENOENT)
        throw std::runtime_error("Chromalog's lists cannot be read: " + reasonOf(errno));
    auto record = std::make_unique<GlobalRecord>();
    if (length) applyPreferences(*record, std::span(image).first(*length));
    return record;
}

ListRecords recordsOf(GlobalRecord& record, int list) {
    return list == 1 ? record.swatchList1 : record.swatchList2;
}

std::int16_t& countOf(GlobalRecord& record, int list) {
    return list == 1 ? record.numColors1 : record.numColors2;
}

/// A name and one byte of what follows it.
ListNameField nameOf(GlobalRecord& record, int list) {
    return ListNameField(list == 1 ? record.swatchName1 : record.swatchName2, 257);
}

std::string titleOf(ListNameField field, int list) {
    std::uint8_t copy[257];
    std::ranges::copy(field, copy);
    const auto name = terminatedListName(copy);
    return name && !name->empty() ? *name : "Chromalog list " + std::to_string(list);
}

void setName(ListNameField field, const std::string& name) {
    std::ranges::fill(field.first(256), std::uint8_t{0});
    field[0] = static_cast<std::uint8_t>(name.size());
    std::ranges::copy(name, field.begin() + 1);
}

/// GIMP's palettes hold no ink.
Rgb noInk(const PaletteComponents&) {
    return {};
}

void write(PreferencesStore& store, const GlobalRecord& record, std::vector<std::string>& remarks) {
    const StoreOutcome outcome = store.write(preferencesImage(record), kPreferencesZeros, Flush::toDisk);
    if (outcome.error == EWOULDBLOCK)
        throw std::runtime_error("the list was not stored: another program is writing Chromalog's lists");
    if (outcome.error != 0) {
        const char* what = outcome.notKept ? "what is there cannot be kept: " : "";
        throw std::runtime_error("the list was not stored: " + (what + reasonOf(outcome.error)));
    }
    if (!outcome.kept.empty())
        remarks.push_back("Lists that another program stored meanwhile were kept (" + outcome.kept + ")");
    if (store.othersOpen())
        remarks.emplace_back("A pick is open on the same lists: what it stores takes their place, and this "
                             "list is then kept among the earlier ones");
}

} // namespace

Palette readStoredList(int list) {
    PreferencesStore store(preferencesPath());
    const auto record = read(store);
    const ListRecords records = recordsOf(*record, list);
    const auto count = static_cast<std::size_t>(clampedCount(countOf(*record, list)));
    return paletteOfSwatches(records.first(count), titleOf(nameOf(*record, list), list));
}

std::vector<std::string> replaceStoredList(int list, const Palette& palette) {
    PreferencesStore store(preferencesPath());
    const auto record = read(store);
    const ListRecords records = recordsOf(*record, list);
    FittedPalette fitted = fitSwatches(palette, records.size(), noInk);
    fitted.palette.title = lossyAscii(palette.title).substr(0, 255);
    std::ranges::fill(records, FCOStruct{});
    storeSwatches(fitted.palette, records, 0);
    countOf(*record, list) = static_cast<std::int16_t>(fitted.palette.colours.size());
    setName(nameOf(*record, list), fitted.palette.title);
    std::vector<std::string> remarks = lossLines(lossOf(palette, fitted), {});
    write(store, *record, remarks);
    return remarks;
}

} // namespace chromalog
