#include "golden_states/record.h"

#include <algorithm>
#include <cstring>
#include <sstream>
#include <stdexcept>

namespace chromalog::golden {
namespace {

constexpr const char* kKinds[] = {"run", "state", "file"};
constexpr const char* kIs = " = ";
constexpr const char* kGone = "gone"; // no JSON value
constexpr const char* kIndent = "  ";

Part partOf(const std::string& title) {
    const std::size_t space = title.find(' '), colon = title.find(": ");
    const auto kind = std::ranges::find(kKinds, title.substr(0, space));
    if (space == std::string::npos || kind == std::end(kKinds))
        throw std::runtime_error("no title: " + title);
    Part part;
    part.kind = static_cast<Part::Kind>(kind - std::begin(kKinds));
    part.where = title.substr(space + 1, colon == std::string::npos ? colon : colon - space - 1);
    if (colon != std::string::npos) part.name = title.substr(colon + 2);
    return part;
}

/// What a part is told by its difference from: the state before it, an earlier file of its name.
json before(const Record& record, const Part& part, const json& base) {
    for (auto earlier = record.rbegin(); earlier != record.rend(); ++earlier)
        if (earlier->kind == part.kind && (part.kind == Part::Kind::state || earlier->name == part.name))
            return part.kind == Part::Kind::run ? json::object() : earlier->value;
    return part.kind == Part::Kind::state ? base : json::object();
}

/// Lists that are told entry by entry: of one length, and no colours or points, which read better whole.
bool areAlike(const json& from, const json& to) {
    return from.is_array() && to.is_array() && from.size() == to.size() && !to.front().is_number();
}

void writeLine(const json::json_pointer& at, const std::string& value, std::string& text) {
    text += kIndent + at.to_string() + kIs + value + '\n';
}

void writeChanges(const json& from, const json& to, const json::json_pointer& at, std::string& text);

void writeKeys(const json& from, const json& to, const json::json_pointer& at, std::string& text) {
    for (const auto& [key, value] : from.items())
        if (!to.contains(key)) writeLine(at / key, kGone, text);
    for (const auto& [key, value] : to.items()) {
        const bool isTree = value.is_object() && !value.empty();
        const json nothing = isTree ? json::object() : json(json::value_t::discarded);
        writeChanges(from.contains(key) ? from[key] : nothing, value, at / key, text);
    }
}

void writeChanges(const json& from, const json& to, const json::json_pointer& at, std::string& text) {
    if (from == to) return;
    if (from.is_object() && to.is_object())
        writeKeys(from, to, at, text);
    else if (areAlike(from, to))
        for (std::size_t i = 0; i < to.size(); ++i)
            writeChanges(from[i], to[i], at / i, text);
    else
        writeLine(at, to.dump(), text);
}

void applyChange(json& value, const std::string& line) {
    const std::size_t is = line.find(kIs);
    if (is == std::string::npos) throw std::runtime_error("no change: " + line);
    const json::json_pointer at(line.substr(0, is));
    const std::string change = line.substr(is + std::strlen(kIs));
    if (change == kGone)
        value.at(at.parent_pointer()).erase(at.back());
    else
        value[at] = json::parse(change);
}

} // namespace

std::string Part::title() const {
    const std::string title = std::string(kKinds[static_cast<int>(kind)]) + ' ' + where;
    return name.empty() ? title : title + ": " + name;
}

const Part* findPart(const Record& record, Part::Kind kind, const std::string& where,
                     const std::string& name) {
    const auto found = std::ranges::find_if(record, [&](const Part& part) {
        return part.kind == kind && part.where == where && part.name == name;
    });
    return found == record.end() ? nullptr : &*found;
}

std::string toText(const Record& record, const json& base) {
    std::string text;
    Record written;
    for (const Part& part : record) {
        text += part.title() + '\n';
        writeChanges(before(written, part, base), part.value, json::json_pointer(), text);
        written.push_back(part);
    }
    return text;
}

Record fromText(const std::string& text, const json& base) {
    Record record;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        if (!line.starts_with(kIndent)) {
            Part part = partOf(line);
            part.value = before(record, part, base);
            record.push_back(std::move(part));
        } else if (record.empty()) {
            throw std::runtime_error("no title before: " + line);
        } else {
            applyChange(record.back().value, line.substr(2));
        }
    }
    return record;
}

} // namespace chromalog::golden
