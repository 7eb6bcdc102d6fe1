#include "qt/search_habits.h"

#include "qt/mishap.h"
#include "qt/settings_file.h"

#include <QJsonObject>

namespace chromalog {

namespace {

constexpr const char* kSearch = "search";

struct Row {
    const char* key;
    bool SearchOptions::*option;
};
constexpr Row kRows[] = {{"anyCase", &SearchOptions::ignoreCase},
                         {"withoutAccents", &SearchOptions::ignoreAccents},
                         {"hex", &SearchOptions::hex},
                         {"cssName", &SearchOptions::cssName},
                         {"lands", &SearchOptions::landing}};

SearchOptions readOptions(const std::string& path) {
    SearchOptions options;
    options.landing = true; // of a person who has chosen nothing yet
    const QJsonObject kept = path.empty() ? QJsonObject() : readSettings(path)[kSearch].toObject();
    for (const Row& row : kRows)
        options.*row.option = kept[row.key].toBool(options.*row.option);
    return options;
}

} // namespace

void keepSearchHabits(SearchKnobs& search, const std::string& path) {
    search.habits = [path] { return readOptions(path); };
    search.optionsChanged = [path](const SearchOptions& options) {
        if (path.empty()) return;
        QJsonObject kept;
        for (const Row& row : kRows)
            kept[row.key] = options.*row.option;
        changeSettings(path, {{kSearch, kept}});
    };
}

} // namespace chromalog
