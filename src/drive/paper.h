#pragma once

#include "base/print_info.h"

#include <optional>
#include <span>
#include <string>

namespace chromalog::drive {

/// The print settings that NAME [landscape] [margins L R T B] [scale S] asks for, NAME a paper or WxH in
/// points. Nothing where the words are anything else, or where no paper is left between the margins.
std::optional<PrintInfo> readPaper(std::span<const std::string> words);

} // namespace chromalog::drive
