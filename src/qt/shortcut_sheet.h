#pragma once

class QWidget;

namespace chromalog {

/// Shows the sheet of all keys above the window, or brings the one that is open to the front. It also says
/// how colours are to be read.
void showShortcutSheet(QWidget& window);

} // namespace chromalog
