#pragma once

#include <string>

namespace chromalog {

/// How a recovery went.
struct Recovery {
    std::string problem; ///< why nothing has changed; empty where the copy is in place
    std::string kept{};  ///< the copy in which the lists that were there stay; empty where there were none
};

/// Puts a kept copy in the place of the preferences file, which is kept first. The copy stays. `name` is its
/// name as KeptCopy has it, with or without the file's own before it.
Recovery recoverCopy(const std::string& preferences, const std::string& name);

} // namespace chromalog
