#pragma once

#include <QString>

namespace chromalog {

/// Whether a platform without a window system finds what it shows on: a framebuffer, or a graphics card that
/// may be opened. Without it the toolkit ends the process. `entry` is one of QT_QPA_PLATFORM, options
/// included; platforms that need no device have it.
bool hasScreenDevice(const QString& entry);

} // namespace chromalog
