#include "drive/paper.h"

#include "base/number_text.h"

#include <utility>

namespace chromalog::drive {
namespace {

struct Paper {
    std::string_view name;
    Size size; ///< points, whole as the print system keeps them
};

constexpr Paper kPapers[] = {
    {"A3", {842, 1191}}, {"A4", {595, 842}},     {"A5", {420, 595}},     {"A6", {298, 420}},
    {"B5", {499, 709}},  {"Letter", {612, 792}}, {"Legal", {612, 1008}}, {"Tabloid", {792, 1224}},
};

std::optional<Size> paperSize(std::string_view name) {
    for (const auto& paper : kPapers)
        if (paper.name == name) return paper.size;
    const auto cross = name.find('x');
    if (cross == std::string_view::npos) return std::nullopt;
    const auto w = finiteNumber(name.substr(0, cross));
    const auto h = finiteNumber(name.substr(cross + 1));
    if (!w || !h || *w <= 0 || *h <= 0) return std::nullopt;
    return Size{*w, *h};
}

/// Takes `count` numbers that follow words[at]; moves `at` to the last one.
bool takeNumbers(std::span<const std::string> words, std::size_t& at, std::span<double* const> into) {
    for (double* target : into) {
        const auto value = ++at < words.size() ? finiteNumber(words[at]) : std::nullopt;
        if (!value) return false;
        *target = *value;
    }
    return true;
}

bool takeOption(std::span<const std::string> words, std::size_t& at, PrintInfo& info) {
    if (words[at] == "landscape") {
        std::swap(info.paper.w, info.paper.h);
        return true;
    }
    if (words[at] == "margins") {
        double* const margins[] = {&info.left, &info.right, &info.top, &info.bottom};
        return takeNumbers(words, at, margins);
    }
    double* const scale[] = {&info.scale};
    return words[at] == "scale" && takeNumbers(words, at, scale) && info.scale > 0;
}

} // namespace

std::optional<PrintInfo> readPaper(std::span<const std::string> words) {
    PrintInfo info;
    const auto size = words.empty() ? std::nullopt : paperSize(words[0]);
    if (!size) return std::nullopt;
    info.paper = *size;
    for (std::size_t at = 1; at < words.size(); ++at)
        if (!takeOption(words, at, info)) return std::nullopt;
    const bool margins = info.left >= 0 && info.right >= 0 && info.top >= 0 && info.bottom >= 0;
    const bool room = info.paper.w > info.left + info.right && info.paper.h > info.top + info.bottom;
    return margins && room ? std::optional(info) : std::nullopt;
}

} // namespace chromalog::drive
