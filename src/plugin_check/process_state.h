#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <vector>

namespace chromalog::plugin_check {

// What a plug-in could leave changed in the host's process.

/// Each thing by a name, with its value: variables, the working directory, the mask of new files.
std::map<std::string, std::string> environmentNow();
/// Handlers by the signals' numbers, and which are blocked.
std::map<std::string, std::string> signalsNow();
std::string localeNow();
/// Descriptors by number, with what they lead to. Empty without /proc.
std::map<std::string, std::string> descriptorsNow();
/// 0 without /proc.
std::size_t threadsNow();
/// What is allocated and not freed, in bytes; 0 where that is not known.
std::size_t memoryNow();

/// A line each: "PATH was 'a' and is 'b'", "X is new: 'c'", "Y is gone: 'd'".
std::vector<std::string> differences(const std::map<std::string, std::string>& before,
                                     const std::map<std::string, std::string>& now);

} // namespace chromalog::plugin_check
