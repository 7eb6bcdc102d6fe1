#pragma once

#include "golden_states/record.h"

#include <string>
#include <vector>

namespace chromalog::golden {

/// The dialog as it stood when the states were stored, or as it is built in.
enum class Forms { frozen, builtIn };

/// Every script of ours, by its name without ".drive": "placed/wheel".
std::vector<std::string> scriptNames();

/// Plays a script of that name in a folder of its own, which holds the sample files. A language other than
/// English is asked for by the option.
Record replay(const std::string& name, Forms, const std::string& language = "en");

/// Plays the scripts within the tests of whole picks, all in one go.
Record replayTests();

} // namespace chromalog::golden
