#pragma once

#include <string>
#include <vector>

namespace chromalog {

/// The files that were loaded last. The base remembers nothing.
class FileMemory {
  public:
    virtual ~FileMemory() = default;
    virtual std::vector<std::string> recent() { return {}; } ///< paths, the latest first
    virtual void loaded(const std::string&) {}
    virtual void forget(const std::string&) {} ///< it could not be read
};

} // namespace chromalog
