#include "golden_states/script_file.h"

#include "drive/script_words.h"

#include <sstream>

namespace chromalog::golden {
namespace {

bool isCommand(const std::string& line) {
    const std::size_t first = line.find_first_not_of(" \t");
    return first != std::string::npos && line[first] != '#';
}

std::vector<std::string> optionsOf(const std::string& line) {
    return drive::splitWords(line, [](std::string_view) { return drive::kNoColour; }).words;
}

} // namespace

std::vector<Step> stepsOf(const std::string& file) {
    std::vector<Step> steps;
    std::istringstream lines(file);
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with("#>")) {
            steps.push_back({Step::Kind::run, optionsOf(line.substr(2)), ""});
        } else if (line.starts_with("#!")) {
            steps.push_back({Step::Kind::shell, {}, line.substr(2)});
        } else if (isCommand(line)) {
            if (steps.empty() || steps.back().kind == Step::Kind::shell) steps.emplace_back();
            steps.back().text += line + '\n';
        }
    }
    return steps;
}

} // namespace chromalog::golden
