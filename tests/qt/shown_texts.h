#pragma once

#include <QString>
#include <QStringList>

#include <map>
#include <set>
#include <string>

namespace chromalog::test {

/// Every text of ours that a person can see or is told, by where it stands: in the forms, and in the sources
/// between the words that give it to a language's table.
std::map<std::string, std::string> shownTexts();

/// Texts of forms that are the same in every language.
const std::set<std::string>& untranslatedTexts();

/// Properties of the forms that hold texts for people, and those that hold names.
const std::set<std::string>& shownProperties();
const std::set<std::string>& technicalProperties();

/// Of all forms: property name to a form that has it.
std::map<std::string, std::string> textProperties();

/// Literals that are given to a person, and not marked.
QStringList unmarkedLiterals();

} // namespace chromalog::test
