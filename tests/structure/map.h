#pragma once

#include "structure/source_files.h"

#include <map>
#include <set>
#include <string>
#include <vector>

namespace chromalog::test {

/// One row of a table of src/README.md: a room and the rooms that its files may include.
struct Room {
    std::string name; ///< "views"; rooms beside src with their folder: "tests/views", "bench"
    std::set<std::string> may;
};

/// The toolkit as a room that may be included.
inline const std::string kToolkit = "Qt 6";

/// The tables of a map: every line "| `room` | what lives there | room, room |"; "–" is none.
std::vector<Room> readMap(const std::vector<std::string>& lines);

/// Who includes whom: by room, which room is included, and one file that does it.
using Arrows = std::map<std::string, std::map<std::string, std::string>>;

/// `rooms` gives the room of a file, empty where it lies in none, and resolves what the file includes.
Arrows arrowsOf(const std::vector<SourceFile>& files, const std::vector<Room>& rooms);

/// What an arrow breaks of the map, one line each: includes that it does not allow, permissions that nobody
/// uses, rooms that are missing in it, and arrows between the rooms of src that run up.
std::vector<std::string> faultsOf(const Arrows&, const std::vector<Room>& map);

} // namespace chromalog::test
