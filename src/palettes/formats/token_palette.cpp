#include "palettes/formats/token_palette.h"

#include "base/translated.h"
#include "palettes/formats/token_groups.h"
#include "palettes/formats/token_value.h"
#include "palettes/palette_text.h"
#include "palettes/shared_names.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <unordered_map>
#include <utility>

namespace chromalog {
namespace {

constexpr std::size_t kDeepest = 64;
constexpr std::size_t kLongestType = 16; // a type that is longer is none of colours
constexpr int kMostHops = 16;            // of aliases that lead to aliases

std::string joined(const std::vector<std::string>& keys, char separator) {
    std::string text;
    for (const std::string& key : keys)
        if (!key.empty()) text.append(text.empty() ? 0 : 1, separator).append(key);
    return text;
}

/// Takes the parser's events. It never holds the document, and recurses nowhere.
class TokenReader {
  public:
    ReadPalette take();
    bool tooDeep() const { return tooDeep_; }

    // What the parser calls; false ends it.
    bool null() { return true; }
    bool boolean(bool) { return true; }
    bool number_integer(std::int64_t value) { return number(static_cast<double>(value)); }
    bool number_unsigned(std::uint64_t value) { return number(static_cast<double>(value)); }
    bool number_float(double value, const std::string&) { return number(value); }
    bool binary(nlohmann::json::binary_t&) { return true; }
    bool string(std::string& text);
    bool key(std::string& text);
    bool start_object(std::size_t) { return start(false); }
    bool end_object();
    bool start_array(std::size_t) { return start(true); }
    bool end_array();
    bool parse_error(std::size_t, const std::string&, const nlohmann::json::exception&) { return false; }

  private:
    /// A group or token, a token's value, a list of colours, or anything else.
    enum class Kind { group, value, components, list, other };
    struct Frame {
        Kind kind;
        std::string type; ///< of the tokens inside
        bool hasValue = false;
        TokenValue value = {};
    };

    bool start(bool isArray);
    Kind kindInside(bool isArray) const;
    bool number(double);
    void add(const TokenValue&);
    void resolveAliases();

    ReadPalette read_;
    std::vector<std::string> paths_;   ///< of the colours, by full stops
    std::vector<std::string> targets_; ///< of those that are aliases; else empty
    SharedNames shared_;
    std::vector<Frame> frames_;
    std::vector<std::string> keys_; ///< of the open frames
    std::string key_;               ///< the latest
    bool tooDeep_ = false;
};

TokenReader::Kind TokenReader::kindInside(bool isArray) const {
    if (frames_.empty()) return isArray ? Kind::list : Kind::group;
    const Kind outer = frames_.back().kind;
    if (outer == Kind::value) return isArray && key_ == "components" ? Kind::components : Kind::other;
    if (outer != Kind::group) return outer == Kind::list && !isArray ? Kind::group : Kind::other;
    if (key_ == "$value") return isArray ? Kind::other : Kind::value;
    return key_.starts_with('$') ? Kind::other : isArray ? Kind::list : Kind::group;
}

bool TokenReader::start(bool isArray) {
    tooDeep_ = frames_.size() >= kDeepest;
    if (tooDeep_) return false;
    const Kind kind = kindInside(isArray);
    Frame frame{kind, frames_.empty() ? std::string() : frames_.back().type};
    frames_.push_back(std::move(frame));
    const bool inList = frames_.size() > 1 && frames_[frames_.size() - 2].kind == Kind::list;
    const bool named = !inList && (kind == Kind::group || kind == Kind::list);
    keys_.push_back(named ? std::exchange(key_, {}) : std::string());
    return true;
}

bool TokenReader::key(std::string& text) {
    key_ = textOfBytes(text); // up to a zero
    return true;
}

bool TokenReader::number(double value) {
    if (frames_.empty()) return true;
    if (frames_.back().kind == Kind::components && frames_.back().value.components.size() < 4)
        frames_.back().value.components.push_back(value);
    else if (frames_.back().kind == Kind::value && key_ == "alpha")
        frames_.back().value.alpha = value;
    return true;
}

bool TokenReader::string(std::string& text) {
    if (frames_.empty()) return true;
    Frame& frame = frames_.back();
    if (frame.kind == Kind::components) return number(0); // "none"
    if (frame.kind == Kind::value) {
        if (key_ == "colorSpace") frame.value.colorSpace = text;
        if (key_ == "hex") frame.value.hex = text;
    } else if (frame.kind == Kind::group && (key_ == "$value" || key_ == "value")) {
        frame.hasValue = true;
        frame.value.text = text;
    } else if (frame.kind == Kind::group && key_ == "$type") {
        frame.type = text.substr(0, kLongestType);
    } else if (frame.kind == Kind::group && key_ == "$description" && frames_.size() == 1) {
        read_.palette.title = textOfBytes(text);
    } else if ((frame.kind == Kind::group || frame.kind == Kind::list) && text.starts_with('#') &&
               colourOfHex(std::string_view(text).substr(1))) {
        keys_.push_back(frame.kind == Kind::group ? key_ : std::string());
        TokenValue value;
        value.text = text;
        add(value);
        keys_.pop_back();
    }
    return true;
}

bool TokenReader::end_array() {
    const Frame frame = std::move(frames_.back());
    frames_.pop_back();
    keys_.pop_back();
    if (frame.kind == Kind::components) frames_.back().value.components = frame.value.components;
    return true;
}

bool TokenReader::end_object() {
    const Frame frame = std::move(frames_.back());
    frames_.pop_back();
    if (frame.kind == Kind::value) {
        frames_.back().hasValue = true;
        frames_.back().value = frame.value;
    } else if (frame.hasValue && (frame.type.empty() || frame.type == "color")) {
        add(frame.value);
    }
    keys_.pop_back();
    return true;
}

/// The token whose keys are open.
void TokenReader::add(const TokenValue& value) {
    auto colour = value.isAlias() ? PaletteColour() : value.colour();
    if (!colour) {
        ++read_.unread;
        return;
    }
    for (const std::string& key : keys_)
        shared_.take(key.size());
    paths_.push_back(joined(keys_, '.'));
    targets_.push_back(value.isAlias() ? value.text.substr(1, value.text.size() - 2) : std::string());
    std::vector<std::string> groups(keys_.begin(), keys_.end() - 1);
    colour->name = keys_.back();
    colour->group = joined(groups, '/');
    addColour(read_.palette, std::move(*colour));
}

void TokenReader::resolveAliases() {
    if (std::ranges::all_of(targets_, &std::string::empty)) return;
    std::unordered_map<std::string, std::size_t> byPath;
    for (std::size_t i = 0; i < paths_.size(); ++i)
        byPath.emplace(paths_[i], i);
    std::vector<PaletteColour> resolved;
    for (std::size_t i = 0; i < paths_.size(); ++i) {
        std::size_t at = i;
        for (int hops = 0; !targets_[at].empty() && hops < kMostHops; ++hops)
            if (const auto found = byPath.find(targets_[at]); found != byPath.end()) at = found->second;
        PaletteColour colour = read_.palette.colours[i];
        const PaletteColour& source = read_.palette.colours[at];
        colour.space = source.space, colour.components = source.components, colour.alpha = source.alpha;
        if (targets_[at].empty())
            resolved.push_back(std::move(colour));
        else
            ++read_.unread;
    }
    read_.palette.colours = std::move(resolved);
}

ReadPalette TokenReader::take() {
    resolveAliases();
    return std::move(read_);
}

/// Writes members one after the other, each on a line.
class TokenWriter {
  public:
    void member(std::string_view key) {
        text_.append(first_ ? "\n" : ",\n").append(2 * open_.size() + 2, ' ');
        appendJsonText(text_, key);
        text_ += ": ";
        first_ = false;
    }
    void value(std::string_view text) { appendJsonText(text_, text); }
    void raw(std::string_view json) { text_ += json; }

    /// Closes and opens groups until these are open.
    void enter(const std::vector<std::string>& groups) {
        const auto differs = std::ranges::mismatch(open_, groups).in1 - open_.begin();
        while (std::ssize(open_) > differs) {
            open_.pop_back();
            text_.append("\n").append(2 * open_.size() + 2, ' ').append("}");
            first_ = false;
        }
        for (std::size_t i = open_.size(); i < groups.size(); ++i) {
            member(groups[i]);
            text_ += "{";
            open_.push_back(groups[i]);
            first_ = true;
        }
    }
    std::vector<std::uint8_t> take() {
        enter({});
        text_ += "\n}\n";
        return {text_.begin(), text_.end()};
    }

  private:
    std::string text_ = "{";
    std::vector<std::string> open_;
    bool first_ = true;
};

} // namespace

ReadPalette readTokenPalette(Bytes file) {
    TokenReader reader;
    if (!nlohmann::json::sax_parse(file.begin(), file.end(), &reader))
        throw PaletteError(reader.tooDeep() ? translated("this JSON file is nested too deeply")
                                            : translated("this is no JSON file"));
    return reader.take();
}

std::vector<std::uint8_t> writeTokenPalette(const Palette& palette) {
    TokenWriter out;
    if (!palette.title.empty()) out.member("$description"), out.value(palette.title);
    const std::string* group = nullptr;
    for (const PaletteColour& colour : palette.colours) {
        if (!group || colour.group != *group) out.enter(groupNames(colour.group));
        group = &colour.group;
        out.member(colour.name);
        out.raw(R"({ "$type": "color", "$value": ")" + hexOf(colour) + R"(" })");
    }
    return out.take();
}

std::string tokenKey(std::string_view text) {
    std::string key(text);
    std::ranges::replace_if(
        key, [](char c) { return c == '.' || c == '{' || c == '}'; }, '_');
    if (key.starts_with('$')) key.front() = '_';
    return key;
}

} // namespace chromalog
