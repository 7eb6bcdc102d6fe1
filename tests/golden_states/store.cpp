#include "golden_states/store.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace chromalog::golden {
namespace {

namespace fs = std::filesystem;

constexpr const char* kBase = "base";

std::string readFile(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

void writeFile(const std::string& path, const std::string& text) {
    fs::create_directories(fs::path(path).parent_path());
    std::ofstream(path, std::ios::binary) << text;
}

/// The first state of a fresh dialog.
json newBase(const Records& records) {
    const auto fresh = records.find("anywhere/fresh");
    if (fresh == records.end()) return json::object();
    const auto state = std::ranges::find(fresh->second, Part::Kind::state, &Part::kind);
    return state == fresh->second.end() ? json::object() : state->value;
}

} // namespace

json Store::base() const {
    const Record record = fromText(readFile(pathOf(kBase)), json::object());
    return record.empty() ? json::object() : record.front().value;
}

Record Store::read(const std::string& name) const {
    return fromText(readFile(pathOf(name)), base());
}

Records Store::readAll() const {
    Records records;
    if (!fs::exists(folder_)) return records;
    for (const auto& entry : fs::recursive_directory_iterator(folder_))
        if (const std::string name = fs::relative(entry.path(), folder_).replace_extension();
            entry.is_regular_file() && name != kBase)
            records[name] = read(name);
    return records;
}

void Store::writeAll(const Records& records) const {
    fs::remove_all(folder_);
    const json base = newBase(records);
    writeFile(pathOf(kBase), toText({{Part::Kind::state, kBase, "", base}}, json::object()));
    for (const auto& [name, record] : records)
        writeFile(pathOf(name), toText(record, base));
}

void writeRecord(const Record& record, const std::string& path) {
    json parts = json::array();
    for (const Part& part : record)
        parts.push_back({part.kind, part.where, part.name, part.value});
    writeFile(path, parts.dump(-1, ' ', false, json::error_handler_t::replace));
}

Record readRecord(const std::string& path) {
    Record record;
    const json parts = json::parse(readFile(path), nullptr, false);
    if (parts.is_array())
        for (const json& part : parts)
            record.push_back({part[0], part[1], part[2], part[3]});
    return record;
}

} // namespace chromalog::golden
