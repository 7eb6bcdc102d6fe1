#include "spaces/colour_texts.h"

#include "spaces/ascii_text.h"

namespace chromalog {
namespace {

using Colours = std::vector<NamedColour>;

constexpr std::size_t kLongestFunction = 100; ///< bytes from the name to the closing bracket
constexpr std::size_t kLongestLine = 1 << 20; ///< bytes; what follows in a longer line is not looked at

bool isIn(char c, std::string_view set) {
    return set.find(c) != std::string_view::npos;
}
bool isWordPart(char c) {
    return isLetter(c) || isDigit(c) || c == '_' || static_cast<unsigned char>(c) >= 0x80;
}

/// Bullets, dashes and spaces beyond ASCII that stand between a colour and its name.
constexpr std::string_view kMarks[] = {"\u2022", "\u00b7", "\u2013", "\u2014", "\u00a0"};

std::string_view withoutMarks(std::string_view text) {
    for (const std::string_view mark : kMarks) {
        if (text.starts_with(mark)) text.remove_prefix(mark.size());
        if (text.ends_with(mark)) text.remove_suffix(mark.size());
    }
    return text;
}

/// A name without what sets it off: quotes, bullets, the sign of a variable or a comment, colons.
std::string nameFrom(std::string_view text) {
    constexpr std::string_view either = ":=,;\"'`|-*/\\[]{}#";
    for (std::size_t before = text.size() + 1; before != text.size();) {
        before = text.size();
        text = trimmedStart(text, [&](char c) { return isSpace(c) || isIn(c, either) || isIn(c, "$@)"); });
        text = trimmedEnd(text, [&](char c) { return isSpace(c) || isIn(c, either) || c == '('; });
        text = withoutMarks(text);
    }
    std::string name(text);
    for (char& c : name)
        if (static_cast<unsigned char>(c) < ' ' || c == 0x7F) c = ' ';
    return name;
}

/// The pieces of a list or of a block of declarations; what stands in round brackets stays whole.
std::vector<std::string_view> piecesOf(std::string_view line) {
    std::vector<std::string_view> pieces;
    int depth = 0;
    std::size_t start = 0;
    const auto add = [&](std::size_t end) {
        const std::string_view piece = trimmed(line.substr(start, end - start));
        if (!piece.empty()) pieces.push_back(piece);
        start = end + 1;
    };
    for (std::size_t i = 0; i < line.size(); ++i) {
        if (line[i] == '(') ++depth;
        if (line[i] == ')' && depth > 0) --depth;
        if (depth == 0 && isIn(line[i], ",;{}[]")) add(i);
    }
    add(line.size());
    return pieces;
}

/// A named colour, of what reads as a colour: no name is made of hexadecimal digits alone.
bool isColourWord(std::string_view colour) {
    return std::ranges::all_of(colour, isLetter) && !std::ranges::all_of(colour, isHexDigit);
}

/// A piece that is a colour and no more, or a declaration of one.
std::optional<NamedColour> wholePiece(std::string_view piece) {
    const auto colour = readCssColour(piece);
    if (!colour) return std::nullopt;
    const std::size_t colon = piece.find(':');
    if (colon != std::string_view::npos) return NamedColour{nameFrom(piece.substr(0, colon)), *colour};
    const std::string word = nameFrom(piece);
    return NamedColour{isColourWord(word) ? word : std::string(), *colour};
}

/// Where every piece is a colour alike: all with a property or all without.
Colours wholeLine(const std::vector<std::string_view>& pieces) {
    Colours colours;
    for (const std::string_view piece : pieces) {
        const bool declares = isIn(':', piece);
        const auto colour = wholePiece(piece);
        if (!colour || declares != isIn(':', pieces.front())) return {};
        colours.push_back(*colour);
    }
    return colours;
}

struct Found {
    std::size_t begin, end;
    ReadColour colour;
};

/// The length of what starts here and may be a colour by its look: '#' and its word, or a word and its
/// brackets; 0 for none.
std::size_t candidateLength(std::string_view text) {
    std::size_t length = 1;
    while (length < text.size() && isWordPart(text[length]))
        ++length;
    if (text[0] == '#') return length;
    if (length == text.size() || text[length] != '(') return 0;
    const std::size_t close = text.substr(0, kLongestFunction).find(')', length);
    return close == std::string_view::npos ? 0 : close + 1;
}

/// Colours that no prose contains by chance: '#' and digits, functions.
std::vector<Found> markedColours(std::string_view line) {
    std::vector<Found> found;
    for (std::size_t i = 0; i < line.size();) {
        const bool entity = line[i] == '#' && i > 0 && line[i - 1] == '&'; // "&#123;"
        const bool starts = !entity && (line[i] == '#' || isWordPart(line[i]));
        const std::size_t length = starts ? candidateLength(line.substr(i)) : 0;
        if (const auto colour = readCssColour(line.substr(i, length))) {
            found.push_back({i, i + length, *colour});
            i += length;
            continue;
        }
        const bool word = isWordPart(line[i]);
        for (++i; word && i < line.size() && isWordPart(line[i]);)
            ++i;
    }
    return found;
}

/// Names lead where a name stands before the first colour, else they follow.
Colours namedAround(std::string_view line, const std::vector<Found>& found) {
    const auto between = [&](std::size_t begin, std::size_t end) { return line.substr(begin, end - begin); };
    const auto last = [](std::string_view text) { return text.substr(text.find_last_of("{};") + 1); };
    const auto first = [](std::string_view text) { return text.substr(0, text.find_first_of("{};")); };
    const bool lead = !nameFrom(last(between(0, found.front().begin))).empty();
    Colours colours;
    for (std::size_t i = 0; i < found.size(); ++i) {
        const std::size_t before = i > 0 ? found[i - 1].end : 0;
        const std::size_t after = i + 1 < found.size() ? found[i + 1].begin : line.size();
        const std::string_view name =
            lead ? last(between(before, found[i].begin)) : first(between(found[i].end, after));
        colours.push_back({nameFrom(name), found[i].colour});
    }
    return colours;
}

std::vector<std::string_view> wordsOf(std::string_view text) {
    std::vector<std::string_view> words;
    for (text = trimmed(text); !text.empty(); text = trimmedStart(text, isSpace)) {
        const std::string_view rest = trimmedStart(text, [](char c) { return !isSpace(c); });
        words.push_back(text.substr(0, text.size() - rest.size()));
        text = rest;
    }
    return words;
}

/// Bare hex beside a name: with a digit or a letter three times, which keeps "facade" and "decade" out.
bool isLongHex(std::string_view word) {
    if ((word.size() != 6 && word.size() != 8) || !std::ranges::all_of(word, isHexDigit)) return false;
    return std::ranges::any_of(word, isDigit) ||
           std::ranges::any_of(word, [&](char c) { return std::ranges::count(word, c) >= 3; });
}

/// Bare words: a list by white space, or one bare hex beside its name.
Colours bareColours(std::string_view piece) {
    if (const auto whole = wholePiece(piece)) return {*whole};
    const std::vector<std::string_view> words = wordsOf(piece);
    if (words.size() < 2) return {};
    const auto hexes = static_cast<std::size_t>(std::ranges::count_if(words, isLongHex));
    Colours list = wholeLine(words);
    if (!list.empty() && (hexes == 0 || hexes == words.size())) return list; // not "ffffff white"
    if (isLongHex(words.front()))
        return {{nameFrom(piece.substr(words.front().size())), *readCssColour(words.front())}};
    if (isLongHex(words.back()))
        return {
            {nameFrom(piece.substr(0, piece.size() - words.back().size())), *readCssColour(words.back())}};
    return {};
}

Colours coloursOfLine(std::string_view line) {
    const std::vector<std::string_view> pieces = piecesOf(line);
    if (Colours whole = wholeLine(pieces); !whole.empty()) return whole;
    if (const auto found = markedColours(line); !found.empty()) return namedAround(line, found);
    Colours colours;
    for (const std::string_view piece : pieces)
        for (NamedColour& colour : bareColours(piece))
            colours.push_back(std::move(colour));
    return colours;
}

} // namespace

std::vector<NamedColour> readColourTexts(std::string_view text, std::size_t limit) {
    Colours colours;
    while (!text.empty() && colours.size() < limit) {
        const std::size_t end = std::min(text.find_first_of("\r\n"), text.size());
        for (NamedColour& colour : coloursOfLine(text.substr(0, std::min(end, kLongestLine))))
            if (colours.size() < limit) colours.push_back(std::move(colour));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return colours;
}

} // namespace chromalog
