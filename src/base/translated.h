#pragma once

#include <concepts>
#include <cstddef>
#include <initializer_list>
#include <map>
#include <string>
#include <string_view>

namespace chromalog {

/// Languages that can be chosen by their codes; English has no table, it is the text itself.
inline constexpr std::string_view kLanguages[] = {"en", "de", "fr"};
/// For developers: English in brackets and longer, from right to left.
inline constexpr std::string_view kPseudoLanguage = "ar-XB";

bool isLanguage(std::string_view code); ///< one of those above

/// A language's texts by our English ones. Both have the same placeholders, %1 to %9.
struct Language {
    std::string code;
    bool noneIsSingular = false; ///< of no colours: "%1 color" counts, not "%1 colors"
    std::map<std::string, std::string, std::less<>> texts{};
};

/// The language that `translated` speaks from here on; null, and at the start: English. The process has one,
/// like its locale. It stays until another is set; not while another thread may say something.
void speak(const Language*);
const Language* spokenLanguage();

/// Marks a text of a constant table that is given to `translated` where it is shown.
constexpr const char* translatable(const char* english) {
    return english;
}

/// An English text of ours in the language that is spoken: the same text where it is English, or has no
/// translation. In sources the texts stand as literals: the tables are compared with them.
std::string translated(std::string_view english);

std::string withArguments(const std::string& text, std::initializer_list<std::string> arguments);
std::string_view formFor(std::size_t count, std::string_view one, std::string_view many);

inline std::string argumentText(std::string_view text) {
    return std::string(text);
}
std::string argumentText(std::integral auto number) {
    return std::to_string(number);
}

/// With %1, %2, ... replaced by the arguments: texts as they stand, whole numbers.
template <typename... Arguments>
requires(sizeof...(Arguments) > 0) std::string
    translated(std::string_view english, const Arguments&... arguments) {
    return withArguments(translated(english), {argumentText(arguments)...});
}

/// "%1 color" or "%1 colors", as the language has it for the count, which is %1; the arguments follow.
template <typename... Arguments>
std::string translatedCount(std::size_t count, std::string_view one, std::string_view many,
                            const Arguments&... arguments) {
    return withArguments(translated(formFor(count, one, many)),
                         {std::to_string(count), argumentText(arguments)...});
}

} // namespace chromalog
