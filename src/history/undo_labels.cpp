#include "history/undo_labels.h"

#include "base/translated.h"

namespace chromalog {

std::string_view stepInWords(std::string_view labelKey) {
    struct Words {
        std::string_view label, words;
    };
    static constexpr Words kWords[] = {
        {undo_label::deleteSwatch, translatable("Clear list")},
        {undo_label::sortAlpha, translatable("Sort by name")},
        {undo_label::sortHue, translatable("Sort by hue")},
        {undo_label::colorChanged, translatable("Store first color")},
        {undo_label::colorDeleted, translatable("Delete swatch")},
        {undo_label::earlierLists, translatable("Bring back an earlier list")},
        {undo_label::paletteImported, translatable("Import a palette")},
    };
    for (const Words& each : kWords)
        if (each.label == labelKey) return each.words;
    return kNothingChanged;
}

std::string undoListing(std::string_view description) {
    constexpr std::size_t kShortestRest = 6; // fewer characters after a further opening mark hold no label
    std::string listing = " ";
    std::size_t open = description.find('!');
    while (open != std::string_view::npos) {
        const std::size_t close = description.find('!', open + 1);
        if (close == std::string_view::npos) break;
        listing.append(description.substr(open + 1, close - open - 1)).push_back('\r');
        open = description.find('!', close + 1);
        if (open != std::string_view::npos && description.size() - open - 1 < kShortestRest) break;
    }
    return listing;
}

} // namespace chromalog
