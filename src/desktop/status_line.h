#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace chromalog {

/// What the quiet line at the foot of the dialog says: failures that end nothing, and what was kept. No box
/// is ever opened for them. The text said last stands until it is taken back, and then what was said before
/// it. Plain text, perhaps with names from outside.
class StatusLine {
  public:
    /// One text each; the next one about the same thing takes its place.
    enum class About { otherPicks, storing, keptCopies, files, printing, colours };

    void say(About about, std::string text);
    void takeBack(About about) { say(about, {}); }

    /// A file that a person named could not be written.
    void sayNotWritten(About about, const std::string& path, const std::string& why);
    /// Those files since this was last asked, as "PATH: why".
    std::vector<std::string> takeNotWritten() { return std::exchange(notWritten_, {}); }

    std::string text() const { return said_.empty() ? std::string() : said_.back().second; }

    std::function<void()> onChange; ///< after the text has changed

  private:
    std::vector<std::pair<About, std::string>> said_; ///< the latest at the back
    std::vector<std::string> notWritten_;
};

} // namespace chromalog
