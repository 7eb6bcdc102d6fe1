#pragma once

#include <map>
#include <string>
#include <string_view>

namespace chromalog {

/// Texts by key for the language of the session. A key without a text, or with an empty one, stands for
/// itself.
class StringTable {
  public:
    explicit StringTable(const std::string& overridingFolder = {});
    std::string text(std::string_view key) const;

  private:
    std::map<std::string, std::string, std::less<>> texts_;
};

} // namespace chromalog
