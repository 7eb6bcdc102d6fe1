#pragma once

class QLineEdit;

namespace chromalog {

/// A button at the field's end that empties it; there while the field holds text. Its glyph is painted here:
/// the toolkit's own clear button looks through the desktop's icon themes when it is made, and the dialog
/// would open later for it.
void addClearButton(QLineEdit&);

} // namespace chromalog
