#pragma once

#include "swatches/search_knobs.h"

namespace chromalog {

/// Keeps a person's choices for searches in the settings file. An empty path keeps nothing; hits are then
/// shown and taken as for anybody who has chosen nothing yet.
void keepSearchHabits(SearchKnobs&, const std::string& settingsPath);

} // namespace chromalog
