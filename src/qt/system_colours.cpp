#include "qt/system_colours.h"

namespace chromalog {

// The toolkit's own type is the desktop's.
struct SystemColours::Converter {};

SystemColours::SystemColours() = default;
SystemColours::~SystemColours() = default;

std::optional<QColor> SystemColours::on(SystemBoard) {
    return std::nullopt;
}

} // namespace chromalog
