#include "drive/script.h"

#include "base/number_text.h"
#include "drive/paper.h"
#include "drive/script_words.h"

#include <algorithm>
#include <optional>

namespace chromalog::drive {
namespace {

/// A command's words, a letter each: o outlet, t text, n number, i whole number from 0, s the same from 1, c
/// colour, a the word "alt", m the word "shift" or "ctrl", p the words of a paper. What stands after ? may
/// be left out, what stands before + may be repeated.
struct Row {
    Verb verb;
    std::string_view name;
    std::string_view words;
    std::string_view usage;
    bool inPanels = false;
};

constexpr Row kCommands[] = {
    {Verb::click, "click", "onn?a", "OUTLET X Y [alt]"},
    {Verb::dclick, "dclick", "onn", "OUTLET X Y"},
    {Verb::clickwith, "clickwith", "monn", "shift|ctrl OUTLET X Y"},
    {Verb::rclick, "rclick", "onn", "OUTLET X Y"},
    {Verb::press, "press", "t?a", "NAME [alt]"},
    {Verb::drag, "drag", "onnonn", "OUTLET X Y OUTLET2 X2 Y2"},
    {Verb::sweep, "sweep", "onnnns", "OUTLET X Y X2 Y2 STEPS"},
    {Verb::drop, "drop", "onnc?t", "OUTLET X Y COLOUR [TEXT]"},
    {Verb::dropfile, "dropfile", "onnt", "OUTLET X Y PATH"},
    {Verb::dropfiles, "dropfiles", "onnt+", "OUTLET X Y PATH..."},
    {Verb::type, "type", "ot", "OUTLET TEXT"},
    {Verb::append, "append", "ot", "OUTLET TEXT"},
    {Verb::clip, "clip", "t+", "LINE..."},
    {Verb::key, "key", "t?o", "NAME [OUTLET]"},
    {Verb::set, "set", "on", "OUTLET VALUE"},
    {Verb::menu, "menu", "ot", "OUTLET ACTION"},
    {Verb::choose, "choose", "t", "PATH, or cancel", true},
    {Verb::answer, "answer", "", "", true},
    {Verb::print, "print", "t", "FILE.pdf"},
    {Verb::paper, "paper", "p", "NAME [landscape] [margins L R T B] [scale S]"},
    {Verb::wait, "wait", "i", "MS", true},
    {Verb::shot, "shot", "t", "FILE.png", true},
    {Verb::picture, "picture", "ot", "OUTLET FILE.png"},
    {Verb::state, "state", "t", "FILE.json", true},
    {Verb::ok, "ok", "", ""},
    {Verb::cancel, "cancel", "", ""},
};

const Row& rowOf(Verb verb) {
    return *std::ranges::find(kCommands, verb, &Row::verb);
}

std::size_t colourPlace(std::string_view name) {
    const auto* const row = std::ranges::find(kCommands, name, &Row::name);
    const auto place = row == std::end(kCommands) ? std::string_view::npos : row->words.find('c');
    return place == std::string_view::npos ? kNoColour : place + 1;
}

bool isWhole(const std::string& word, double least) {
    const auto value = finiteNumber(word);
    return value && *value >= least && *value <= 1e9 && *value == static_cast<long>(*value);
}

std::optional<std::string> wrongColour(const std::string& word) {
    if (readWrittenColour(word, WithAlpha::yes)) return std::nullopt;
    const std::string missing = missingComponents(word);
    return "'" + word + "' is not a colour" + (missing.empty() ? missing : "; " + missing);
}

bool heldKey(const std::string& word) {
    return word == "shift" || word == "ctrl";
}

/// What is wrong with the word, or nothing.
std::optional<std::string> wrongWord(char kind, const std::string& word) {
    const auto quoted = "'" + word + "'";
    switch (kind) {
    case 'n':
        return finiteNumber(word) ? std::nullopt : std::optional(quoted + " is not a number");
    case 'i':
        return isWhole(word, 0) ? std::nullopt : std::optional(quoted + " is not a whole number");
    case 's':
        return isWhole(word, 1) ? std::nullopt : std::optional(quoted + " is not a number of steps");
    case 'c':
        return wrongColour(word);
    case 'm':
        return heldKey(word) ? std::nullopt : std::optional(quoted + " stands where only shift or ctrl may");
    case 'a':
        return word == "alt" ? std::nullopt : std::optional(quoted + " stands where only alt may");
    default:
        return std::nullopt;
    }
}

std::string wrongCount(const Row& row) {
    std::string message(row.name);
    message += row.usage.empty() ? " takes no words" : " takes the words ";
    return message.append(row.usage);
}

std::optional<std::string> wrongWords(const Row& row, const std::vector<std::string>& words) {
    if (row.words == "p")
        return readPaper(words) ? std::nullopt : std::optional("no such paper: " + wrongCount(row));
    const auto optional = row.words.find_first_of("?+");
    const auto least = std::min(optional, row.words.size());
    const bool repeats = row.words.ends_with('+');
    const auto most = repeats                              ? words.size()
                      : optional == std::string_view::npos ? least
                                                           : row.words.size() - 1;
    if (words.size() < least || words.size() > most) return wrongCount(row);
    for (std::size_t i = 0; i < words.size(); ++i)
        if (auto wrong = wrongWord(row.words[i < least ? i : repeats ? least - 1 : i + 1], words[i]))
            return wrong;
    return std::nullopt;
}

} // namespace

double Command::number(std::size_t index) const {
    return *finiteNumber(words[index]);
}

WrittenColour Command::colour(std::size_t index) const {
    return *readWrittenColour(words[index], WithAlpha::yes);
}

std::variant<Script, ScriptError> readScript(std::string_view text) {
    Script script;
    for (int line = 1; !text.empty(); ++line) {
        const auto end = text.find('\n');
        auto [words, error] = splitWords(text.substr(0, end), colourPlace);
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
        if (!error.empty()) return ScriptError{line, error};
        if (words.empty()) continue;
        const auto* const row = std::ranges::find(kCommands, words.front(), &Row::name);
        if (row == std::end(kCommands)) return ScriptError{line, "unknown command '" + words.front() + "'"};
        words.erase(words.begin());
        if (auto wrong = wrongWords(*row, words)) return ScriptError{line, *wrong};
        script.push_back({row->verb, line, std::move(words)});
    }
    return script;
}

bool allowedInPanels(Verb verb) {
    return rowOf(verb).inPanels;
}

std::string_view nameOf(Verb verb) {
    return rowOf(verb).name;
}

} // namespace chromalog::drive
