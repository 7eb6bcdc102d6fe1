#include "golden_states/compare.h"

#include <algorithm>
#include <cmath>

namespace chromalog::golden {
namespace {

/// The last bits of a double are the processor's: some multiply and add in one step.
constexpr double kProcessorsRounding = 1e-12;
/// Positions on the wheel are told in its size, and colours come from them.
constexpr double kLayoutsRounding = 1e-9;

std::string shown(const json& value) {
    const std::string text = value.dump(-1, ' ', false, json::error_handler_t::replace);
    return text.size() <= 300 ? text : text.substr(0, 297) + "...";
}

class Comparison {
  public:
    Comparison(const Part& part, Extent extent, std::vector<std::string>& found)
        : part_(part), extent_(extent), found_(found) {}

    void compare(const json& was, const json& is, const std::string& at) {
        if (was.is_object() && is.is_object())
            compareObjects(was, is, at);
        else if (was.is_array() && is.is_array())
            at == "log" ? compareLogs(was, is) : compareArrays(was, is, at);
        else if (!equal(was, is))
            report(at, "was " + shown(was) + ", is " + shown(is));
    }

  private:
    void report(const std::string& at, const std::string& what) {
        found_.push_back(part_.title() + (at.empty() ? "" : ", " + at) + ": " + what);
    }

    bool equal(const json& was, const json& is) const {
        if (!was.is_number_float() && !is.is_number_float()) return was == is;
        if (!was.is_number() || !is.is_number()) return false;
        const double a = was.get<double>(), b = is.get<double>();
        const double rounding = extent_ == Extent::withoutLayout ? kLayoutsRounding : kProcessorsRounding;
        return std::abs(a - b) <= rounding * std::max(1.0, std::abs(a));
    }

    void compareObjects(const json& was, const json& is, const std::string& at) {
        const std::string inside = at.empty() ? "" : at + '/';
        for (const auto& [key, value] : was.items())
            if (is.contains(key))
                compare(value, is[key], inside + key);
            else
                report(inside + key, "was " + shown(value) + ", is gone");
        if (part_.kind == Part::Kind::state) return;
        for (const auto& [key, value] : is.items())
            if (!was.contains(key)) report(inside + key, "is new: " + shown(value));
    }

    void compareArrays(const json& was, const json& is, const std::string& at) {
        if (was.size() != is.size()) return reportLengths(was, is, at);
        const bool isColourOrPoint = !was.empty() && was.front().is_number();
        if (isColourOrPoint && !std::equal(was.begin(), was.end(), is.begin(),
                                           [this](const json& a, const json& b) { return equal(a, b); }))
            return report(at, "was " + shown(was) + ", is " + shown(is));
        for (std::size_t i = 0; i < was.size() && !isColourOrPoint; ++i)
            compare(was[i], is[i], at + '/' + std::to_string(i));
    }

    void reportLengths(const json& was, const json& is, const std::string& at) {
        std::size_t i = 0;
        while (i < std::min(was.size(), is.size()) && was[i] == is[i])
            ++i;
        const auto entry = [i](const json& array) { return i < array.size() ? shown(array[i]) : "none"; };
        report(at, "had " + std::to_string(was.size()) + " entries, has " + std::to_string(is.size()) +
                       "; entry " + std::to_string(i) + " was " + entry(was) + ", is " + entry(is));
    }

    /// New lines may stand anywhere between the old ones.
    void compareLogs(const json& was, const json& is) {
        auto next = is.begin();
        for (const json& line : was) {
            next = std::find(next, is.end(), line);
            if (next == is.end()) return report("log", "had " + shown(line) + ", is " + shown(is));
            ++next;
        }
    }

    const Part& part_;
    Extent extent_;
    std::vector<std::string>& found_;
};

/// Takes out of a state what follows from where things stand and how large they are: the harmonies too are
/// pixels of the wheel's picture, and outside of it near the rim.
json withoutLayout(json state) {
    for (const char* key : {"wheel", "alpha2"})
        state.erase(key);
    for (json& outlet : state["outlets"])
        outlet.erase("frame");
    for (const char* well : {"complementColor", "equi1Color", "equi2Color", "triHarmoni1Color",
                             "triHarmoni2Color", "quadri1Color", "quadri2Color", "quadri3Color"})
        if (state["outlets"].contains(well)) state["outlets"][well].erase("color");
    for (json& list : state["lists"])
        for (const char* key : {"scroller", "scrollY", "contentHeight", "hits"})
            list.erase(key);
    return state;
}

/// Takes out of a state what a person is told: titles, counts in words, the quiet line, and of an alert all
/// but that there was one.
json withoutTexts(json state) {
    for (auto& [name, outlet] : state["outlets"].items()) {
        outlet.erase("title");
        if (outlet.contains("fault")) outlet["fault"] = outlet["fault"] != "";
        outlet.erase("frame"); // from right to left a list's scroll bar stands on its other side
        if (name == "found1" || name == "found2") outlet.erase("text");
    }
    state["status"] = state.value("status", "").empty();
    for (json& alert : state["alerts"])
        alert = alert["buttons"].size();
    return state;
}

/// What of a part is compared.
json reduced(const Part& part, Extent extent) {
    if (part.kind != Part::Kind::state || extent == Extent::everything) return part.value;
    return extent == Extent::withoutLayout ? withoutLayout(part.value) : withoutTexts(part.value);
}

/// Runs, and what they leave, and states: a script has grown. A file that the same run did not write before
/// is no such thing.
bool mayBeNew(const Part& part, const Record& stored) {
    return part.kind != Part::Kind::file || !findPart(stored, Part::Kind::run, part.where, "");
}

} // namespace

std::vector<std::string> differences(const Record& stored, const Record& now, Extent extent) {
    std::vector<std::string> found;
    for (const Part& was : stored) {
        const Part* is = findPart(now, was.kind, was.where, was.name);
        if (!is)
            found.push_back(was.title() + ": is gone");
        else
            Comparison(was, extent, found).compare(reduced(was, extent), reduced(*is, extent), "");
    }
    for (const Part& is : now)
        if (!mayBeNew(is, stored) && !findPart(stored, is.kind, is.where, is.name))
            found.push_back(is.title() + ": is new: " + shown(is.value));
    return found;
}

} // namespace chromalog::golden
