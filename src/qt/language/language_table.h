#pragma once

#include "base/translated.h"

#include <QHash>
#include <QString>
#include <QStringList>

#include <memory>
#include <string>

namespace chromalog {

/// A language with its table, and the toolkit's few texts that our windows show ("&Cancel").
struct LanguageTable {
    Language language;
    QHash<QString, QString> toolkit; ///< by the toolkit's English
    bool fromRightToLeft = false;
};

/// Null for English, and for a code that is not known.
std::unique_ptr<LanguageTable> readLanguage(const std::string& code);

/// The code of the first of these ("de-AT", "fr_FR", "C") of which there is a table; English where there is
/// none.
std::string languageAmong(const QStringList& names);
std::string languageOfDesktop();

/// "&Open…|Open" as "[&Open…ss]|[Opens]": every alternative in brackets, a third longer.
std::string pseudoText(const std::string& english);

} // namespace chromalog
