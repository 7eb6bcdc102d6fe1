#pragma once

class QWidget;

namespace chromalog {

/// The property of a widget that is painted as out of date.
inline constexpr const char* kDimmed = "dimmed";

/// Paints the widget faded, or as it is again. It stays enabled, and works and sounds as before.
void setDimmed(QWidget&, bool);

} // namespace chromalog
