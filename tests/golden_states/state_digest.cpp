#include "golden_states/capture.h"
#include "golden_states/digests.h"

namespace chromalog::golden {
namespace {

std::string bytesOf(const std::string& hex) {
    std::string bytes;
    for (std::size_t i = 0; i + 1 < hex.size(); i += 2)
        bytes += static_cast<char>(std::stoi(hex.substr(i, 2), nullptr, 16));
    return bytes;
}

std::string recordText(const json& record) {
    return swatchText(record["length"], bytesOf(record["name"]), record["SRed"], record["SGreen"],
                      record["SBlue"]);
}

std::string hitText(const json& hit) {
    return hit["position"].dump() + " scrolled to " + hit["scrollValue"].dump();
}

void shorten(json& entries, std::string (*tell)(const json&)) {
    std::vector<std::string> lines;
    for (const json& entry : entries)
        lines.push_back(tell(entry));
    entries = shortened(lines);
}

} // namespace

json stateDigest(json state) {
    for (json& list : state["lists"]) {
        shorten(list["records"], recordText);
        shorten(list["hits"], hitText);
    }
    for (json& outlet : state["outlets"])
        if (outlet["class"] == "QMenu") outlet.erase("frame"); // as large as its fonts make it
    return state;
}

} // namespace chromalog::golden
