#include "base/translated.h"

#include <algorithm>

namespace chromalog {
namespace {

const Language* spoken = nullptr; // not owned

} // namespace

bool isLanguage(std::string_view code) {
    return code == kPseudoLanguage || std::ranges::find(kLanguages, code) != std::end(kLanguages);
}

void speak(const Language* language) {
    spoken = language;
}

const Language* spokenLanguage() {
    return spoken;
}

std::string translated(std::string_view english) {
    if (!spoken) return std::string(english);
    const auto found = spoken->texts.find(english);
    return found == spoken->texts.end() ? std::string(english) : found->second;
}

std::string withArguments(const std::string& text, std::initializer_list<std::string> arguments) {
    std::string filled;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool marks = text[i] == '%' && i + 1 < text.size();
        const auto number = marks ? static_cast<std::size_t>(text[i + 1] - '0') : 0; // huge below '0'
        if (number < 1 || number > arguments.size()) {
            filled += text[i];
            continue;
        }
        filled += arguments.begin()[number - 1];
        ++i;
    }
    return filled;
}

std::string_view formFor(std::size_t count, std::string_view one, std::string_view many) {
    const bool isOne = count == 1 || (count == 0 && spoken && spoken->noneIsSingular);
    return isOne ? one : many;
}

} // namespace chromalog
