#pragma once

class QIcon;
class QWidget;

namespace chromalog {

/// The product's, in the sizes that window managers, tasks and boxes show; read from the module where it is
/// drawn first.
QIcon productIcon();

/// Shows the sheet above the window, or brings the one that is open to the front: the product and its
/// version, how colours are to be read, and whose work is used. It goes away with the window.
void showAboutSheet(QWidget& window);

} // namespace chromalog
