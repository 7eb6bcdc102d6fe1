#pragma once

#include <string>

namespace chromalog::drive {

/// A command that cannot run here. Thrown by what commands are made of, caught by the player alone; never
/// thrown through the toolkit.
struct CommandError {
    std::string message;
};

} // namespace chromalog::drive
