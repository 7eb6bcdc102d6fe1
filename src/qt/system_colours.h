#pragma once

#include <QColor>

#include <memory>
#include <optional>

namespace chromalog {

enum class SystemBoard { general, drag }; ///< the clipboard, or what is dragged now

/// Colours in the type that the system's own programs exchange, where that is not the toolkit's: on macOS.
/// For its life the toolkit reads and writes them, if it can be taught.
class SystemColours {
  public:
    SystemColours();
    ~SystemColours();
    SystemColours(const SystemColours&) = delete;
    SystemColours& operator=(const SystemColours&) = delete;

    /// Read past a toolkit that cannot be taught (before 6.5); nothing where it can.
    static std::optional<QColor> on(SystemBoard);

  private:
    struct Converter;
    std::unique_ptr<Converter> converter_;
};

} // namespace chromalog
