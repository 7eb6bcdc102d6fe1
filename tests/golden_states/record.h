#pragma once

#include <nlohmann/json.hpp>

#include <string>
#include <vector>

namespace chromalog::golden {

using nlohmann::json;

/// One thing that a run of the program left: how the run ended, a state that its script wrote, or a file.
struct Part {
    enum class Kind { run, state, file };

    Kind kind = Kind::run;
    std::string where; ///< which run of which script: "run 2", "DriveLists.Undo run 1"
    std::string name;  ///< of the state or file; empty for a run
    json value;

    std::string title() const; ///< "state run 2: after.json"
};

/// All that a script's runs left, in order.
using Record = std::vector<Part>;

/// The part of that kind, place and name; null where there is none.
const Part* findPart(const Record&, Part::Kind, const std::string& where, const std::string& name);

/// The stored form, made to be small and to be read in a comparison of versions. A line that starts a part is
/// its title; below it, indented, the lines "/KEY/KEY = VALUE" and "/KEY = gone" lead from the state
/// before it (the first from `base`), or from an earlier file of its name, to the part's value.
std::string toText(const Record&, const json& base);

/// Reads it back; throws std::runtime_error where a line is none of ours.
Record fromText(const std::string& text, const json& base);

} // namespace chromalog::golden
