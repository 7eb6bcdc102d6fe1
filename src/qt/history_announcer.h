#pragma once

class QWidget;

namespace chromalog {

/// Lets assistive technology hear of every undo and redo by a button of the form: on the screen the lists
/// alone tell. To be called after the buttons' actions are connected.
void announceHistory(QWidget& form);

} // namespace chromalog
