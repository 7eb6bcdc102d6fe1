#pragma once

class QWidget;

namespace chromalog {

/// Of a button of a matrix: its title in English, by which it is told from the others.
inline constexpr const char* kEnglish = "english";

/// Puts a form's texts, which are English in its file, into the language that is spoken.
void translateForm(QWidget& form);

} // namespace chromalog
