#include "golden_states/digests.h"
#include "support/run_program.h"

#include <regex>
#include <sstream>

namespace chromalog::golden {
namespace {

std::vector<std::string> linesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);)
        lines.push_back(line);
    return lines;
}

/// The lines that people read; the foot of a page names a moment and a person.
json textOf(const std::string& path) {
    static const std::regex foot(R"(\d\d \d\d \d{4} \d\d:\d\d:\d\d \S+)");
    std::vector<std::string> lines;
    for (const std::string& line : linesOf(runProgram({"pdftotext", "-raw", path, "-"}).out))
        lines.push_back(std::regex_replace(line, foot, "DATE PERSON"));
    return shortened(lines);
}

/// Title, program and the pages' sizes.
json aboutOf(const std::string& path) {
    json about = json::array();
    for (const std::string& line : linesOf(runProgram({"pdfinfo", "-l", "-1", path}).out))
        if (line.starts_with("Title:") || line.starts_with("Creator:") || line.starts_with("Page "))
            about.push_back(line);
    return about;
}

/// Rectangles with their colour and place, and where texts begin, in the order of painting.
class Painting {
  public:
    void read(const std::string& line) {
        std::smatch match;
        if (std::regex_match(line, match, kColour)) colour_ = match[1];
        if (std::regex_match(line, match, kPlace)) place_ = match[1];
        if (std::regex_match(line, match, kRectangle))
            painted_.push_back(colour_ + " at " + match[1].str() + " of " + place_);
        if (std::regex_match(line, match, kFont)) size_ = match[1];
        if (std::regex_match(line, match, kText) && !size_.empty())
            painted_.push_back("text " + std::exchange(size_, "") + " at " + match[1].str());
    }
    json digest() const { return shortened(painted_); }

  private:
    const std::regex kColour{R"(/CSp cs ([\d. ]+) scn)"}, kPlace{R"(([-\d. ]+) cm)"},
        kRectangle{R"(([-\d. ]+) re)"}, kFont{R"(/F\d+ ([\d.]+) Tf .*)"}, kText{R"(([-\d.]+ [-\d.]+) Td .*)"};
    std::string colour_, place_, size_;
    std::vector<std::string> painted_;
};

} // namespace

json pdfDigest(const std::string& path) {
    const auto plain = runProgram({"qpdf", "--qdf", "--object-streams=disable", path, "-"});
    if (plain.exitCode != 0) return {{"pdf", "qpdf cannot read it: " + plain.err}};
    Painting painting;
    for (const std::string& line : linesOf(plain.out))
        if (line.size() < 200) painting.read(line); // longer ones are pieces of fonts
    return {{"about", aboutOf(path)}, {"text", textOf(path)}, {"painted", painting.digest()}};
}

} // namespace chromalog::golden
