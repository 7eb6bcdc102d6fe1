#include "structure/map.h"

#include <algorithm>
#include <filesystem>
#include <sstream>

namespace chromalog::test {
namespace {

std::string trimmed(const std::string& text) {
    const auto first = text.find_first_not_of(" `");
    if (first == text.npos) return {};
    return text.substr(first, text.find_last_not_of(" `") - first + 1);
}

bool isRoomOfSrc(const std::string& name) {
    return name.find('/') == name.npos && name != "bench" && name != "fuzz";
}

/// The room of a file or folder below the project's root, by the longest room that begins its name.
std::string roomOf(const std::string& path, const std::vector<Room>& rooms) {
    std::string found;
    for (const Room& room : rooms) {
        const std::string folder = (isRoomOfSrc(room.name) ? "src/" : "") + room.name + "/";
        if (path.starts_with(folder) && room.name.size() > found.size()) found = room.name;
    }
    // A folder that the map does not have is a room of its own, so that it is told of.
    return found.empty() ? path.substr(0, path.rfind('/')) : found;
}

/// A file of src sees src alone; others see their own folders first.
std::string pathOf(const std::string& include, const SourceFile& from) {
    namespace fs = std::filesystem;
    const fs::path root = CHROMALOG_SOURCE_DIR;
    const std::string beside = from.name.substr(0, from.name.rfind('/') + 1) + include;
    std::vector<std::string> places{"src/" + include};
    if (!from.name.starts_with("src/"))
        places = {beside, "tests/" + include, "bench/" + include, "fuzz/" + include, "src/" + include};
    for (const std::string& place : places)
        if (fs::exists(root / place)) return place;
    return {};
}

/// What the build makes of an interface file belongs to whoever includes it.
bool isMadeOfInterfaceFile(const std::string& include) {
    if (!include.starts_with("ui_") || !include.ends_with(".h")) return false;
    const std::string name = include.substr(3, include.size() - 5);
    return std::filesystem::exists(std::filesystem::path(CHROMALOG_SOURCE_DIR) / "resources" /
                                   (name + ".ui"));
}

} // namespace

std::vector<Room> readMap(const std::vector<std::string>& lines) {
    std::vector<Room> map;
    for (const std::string& line : lines) {
        if (!line.starts_with("| `")) continue;
        const auto last = line.find_last_of('|');
        const auto third = line.find_last_of('|', last - 1);
        Room room{trimmed(line.substr(1, line.find('|', 1) - 1)), {}};
        std::istringstream names(line.substr(third + 1, last - third - 1));
        for (std::string name; std::getline(names, name, ',');)
            if (trimmed(name) != "–") room.may.insert(trimmed(name));
        map.push_back(std::move(room));
    }
    return map;
}

Arrows arrowsOf(const std::vector<SourceFile>& files, const std::vector<Room>& rooms) {
    Arrows arrows;
    for (const SourceFile& file : files) {
        auto& from = arrows[roomOf(file.name, rooms)];
        for (const std::string& name : includes(file)) {
            if (isToolkit(name)) from.emplace(kToolkit, file.name);
            if (name.front() == '<' || isMadeOfInterfaceFile(name)) continue;
            const std::string path = pathOf(name, file);
            const std::string to = path.empty() ? "nothing" : roomOf(path, rooms);
            from.emplace(to, file.name + " (\"" + name + "\")");
        }
        from.erase(roomOf(file.name, rooms));
    }
    return arrows;
}

std::vector<std::string> faultsOf(const Arrows& arrows, const std::vector<Room>& map) {
    std::vector<std::string> faults;
    const auto floor = [&map](const std::string& name) {
        return std::ranges::find(map, name, &Room::name) - map.begin();
    };
    for (const auto& [from, reached] : arrows) {
        const auto row = floor(from);
        if (row == std::ssize(map)) {
            faults.push_back(from + " is not in the map");
            continue;
        }
        for (const auto& [to, file] : reached) {
            if (!map[row].may.contains(to)) faults.push_back(from + " may not include " + to + ": " + file);
            if (isRoomOfSrc(from) && isRoomOfSrc(to) && to != kToolkit && floor(to) < row)
                faults.push_back(from + " -> " + to + " runs up: " + file);
        }
    }
    for (const Room& room : map) {
        const auto reached = arrows.find(room.name);
        if (reached == arrows.end()) faults.push_back(room.name + " has no files");
        for (const std::string& permission : room.may)
            if (reached == arrows.end() || !reached->second.contains(permission))
                faults.push_back(room.name + " never includes " + permission);
    }
    return faults;
}

} // namespace chromalog::test
