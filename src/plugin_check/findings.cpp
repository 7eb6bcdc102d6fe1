#include "plugin_check/findings.h"

#include <algorithm>
#include <fstream>

namespace chromalog::plugin_check {

namespace {

constexpr const char* kSkipped = "skipped";
constexpr const char* kUnable = "unable";
constexpr const char* kComplete = "complete";
constexpr const char* kFault = "fault:"; // followed by the check's name

std::string oneLine(std::string text) {
    std::ranges::replace_if(
        text, [](unsigned char byte) { return byte < 0x20 || byte == 0x7F; }, '?');
    return text;
}

void readLine(Findings& found, const std::string& line) {
    const auto blank = line.find(' ');
    const std::string kind = line.substr(0, blank),
                      text = blank == std::string::npos ? std::string() : line.substr(blank + 1);
    if (kind == kSkipped) found.skipped = text;
    if (kind == kUnable) found.unable = text;
    if (kind == kComplete) found.complete = true;
    if (kind.starts_with(kFault)) found.faults.push_back({kind.substr(std::string(kFault).size()), text});
}

} // namespace

void writeFindings(const Findings& found, const std::string& file) {
    std::ofstream out(file, std::ios::binary);
    for (const Fault& fault : found.faults)
        out << kFault << fault.check << ' ' << oneLine(fault.text) << '\n';
    if (!found.skipped.empty()) out << kSkipped << ' ' << oneLine(found.skipped) << '\n';
    if (!found.unable.empty()) out << kUnable << ' ' << oneLine(found.unable) << '\n';
    if (found.complete) out << kComplete << '\n';
}

Findings readFindings(const std::string& file) {
    Findings found;
    std::ifstream in(file, std::ios::binary);
    for (std::string line; std::getline(in, line);)
        readLine(found, line);
    return found;
}

} // namespace chromalog::plugin_check
