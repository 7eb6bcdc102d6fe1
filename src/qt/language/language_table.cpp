#include "qt/language/language_table.h"

#include "qt/convert.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLocale>

#include <algorithm>

namespace chromalog {
namespace {

constexpr const char* kToolkit = "toolkit"; ///< a table in the table
constexpr const char* kModel = "de";        ///< whose texts the pseudo language has

QJsonObject readTable(const std::string& code) {
    QFile file(toQt(":/chromalog/languages/" + code + ".json"));
    return file.open(QIODevice::ReadOnly) ? QJsonDocument::fromJson(file.readAll()).object() : QJsonObject();
}

/// Of a language, or of the pseudo language.
std::unique_ptr<LanguageTable> tableOf(const std::string& code, const QJsonObject& texts) {
    const bool isPseudo = code == kPseudoLanguage;
    const auto shown = [isPseudo](const QString& english, const QJsonValue& text) {
        return isPseudo ? pseudoText(fromQt(english)) : fromQt(text.toString());
    };
    auto table = std::make_unique<LanguageTable>();
    table->language.code = code;
    table->language.noneIsSingular = code == "fr";
    table->fromRightToLeft = isPseudo;
    for (auto text = texts.begin(); text != texts.end(); ++text)
        if (text->isString()) table->language.texts.emplace(fromQt(text.key()), shown(text.key(), *text));
    const QJsonObject toolkit = texts[kToolkit].toObject();
    for (auto text = toolkit.begin(); text != toolkit.end(); ++text)
        table->toolkit.insert(text.key(), toQt(shown(text.key(), *text)));
    return table;
}

} // namespace

std::unique_ptr<LanguageTable> readLanguage(const std::string& code) {
    if (code == kLanguages[0] || !isLanguage(code)) return nullptr;
    return tableOf(code, readTable(code == kPseudoLanguage ? kModel : code));
}

std::string languageAmong(const QStringList& names) {
    for (const QString& name : names) {
        std::string code = fromQt(name.section('-', 0, 0).section('_', 0, 0));
        if (std::ranges::find(kLanguages, code) != std::end(kLanguages)) return code;
    }
    return std::string(kLanguages[0]);
}

std::string languageOfDesktop() {
    return languageAmong(QLocale::system().uiLanguages());
}

std::string pseudoText(const std::string& english) {
    QStringList all;
    for (const QString& text : toQt(english).split('|'))
        all.append('[' + text + QString(text.size() / 3, 's') + ']'); // a letter of middling width
    return fromQt(all.join('|'));
}

} // namespace chromalog
