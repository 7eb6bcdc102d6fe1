#include "desktop/status_line.h"

#include "base/file_name.h"
#include "base/translated.h"

namespace chromalog {

void StatusLine::say(About about, std::string text) {
    const std::string before = this->text();
    std::erase_if(said_, [about](const auto& each) { return each.first == about; });
    if (!text.empty()) said_.emplace_back(about, std::move(text));
    if (onChange && this->text() != before) onChange();
}

void StatusLine::sayNotWritten(About about, const std::string& path, const std::string& why) {
    notWritten_.push_back(path + ": " + why);
    say(about, translated("%1 was not written: %2", fileNameOf(path), why));
}

} // namespace chromalog
