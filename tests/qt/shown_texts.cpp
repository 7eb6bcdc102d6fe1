#include "qt/shown_texts.h"

#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <QXmlStreamReader>

#include <functional>

namespace chromalog::test {
namespace {

QString contentsOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

const QString kLiteral = R"re((?:"(?:[^"\\]|\\.)*"\s*)+)re"; // one or more, which the compiler joins

std::string joined(const QString& literals) {
    static const QRegularExpression each(R"re("((?:[^"\\]|\\.)*)")re");
    QString text;
    for (auto at = each.globalMatch(literals); at.hasNext();)
        text += at.next().captured(1);
    return text.replace("\\\"", "\"").toStdString();
}

void forEachSource(const std::function<void(const QString& name, const QString& text)>& look) {
    QDirIterator files(CHROMALOG_SOURCES, {"*.cpp", "*.h"}, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString path = files.next();
        look(path.mid(QString(CHROMALOG_SOURCES).size() + 1), contentsOf(path));
    }
}

void forEachForm(
    const std::function<void(const QString& form, const QString& property, const QString& text)>& look) {
    QDirIterator forms(RESOURCES, {"*.ui"}, QDir::Files);
    while (forms.hasNext()) {
        QFile file(forms.next());
        if (!file.open(QIODevice::ReadOnly)) continue;
        QXmlStreamReader xml(&file);
        QString property;
        while (!xml.atEnd()) {
            if (!xml.readNextStartElement() && !xml.isStartElement()) continue;
            if (xml.name() == u"property") property = xml.attributes().value("name").toString();
            if (xml.name() == u"string") look(forms.fileName(), property, xml.readElementText());
        }
    }
}

} // namespace

const std::set<std::string>& untranslatedTexts() {
    static const std::set<std::string> all{"",        "R",     "G",     "B",    "C",        "M",
                                           "Y",       "K",     "0",     "1",    "°",        "#rrggbb",
                                           "c m y k", "3 x 3", "5 x 5", "CMYK", "Chromalog"};
    return all;
}

const std::set<std::string>& shownProperties() {
    static const std::set<std::string> all{
        "windowTitle",    "toolTip", "accessibleName", "accessibleDescription",
        "text",           "title",   "texts",          "terms",
        "hint",           "left",    "right",          "between",
        "placeholderText"};
    return all;
}

const std::set<std::string>& technicalProperties() {
    static const std::set<std::string> all{"action",   "initialFocus", "menuName", "part",
                                           "shortcut", "shows",        "sign",     "surround"};
    return all;
}

std::map<std::string, std::string> textProperties() {
    std::map<std::string, std::string> found;
    forEachForm([&](const QString& form, const QString& property, const QString&) {
        found[property.toStdString()] = form.toStdString();
    });
    return found;
}

std::map<std::string, std::string> shownTexts() {
    std::map<std::string, std::string> found;
    forEachForm([&](const QString& form, const QString& property, const QString& text) {
        if (shownProperties().contains(property.toStdString()) &&
            !untranslatedTexts().contains(text.toStdString()))
            found[text.toStdString()] = form.toStdString();
    });
    static const QRegularExpression one(R"re(\btransla(?:ted|table)\(\s*)re" + ("(" + kLiteral + ")"));
    static const QRegularExpression two(R"re(\btranslatedCount\([^"]*?,\s*)re" +
                                        ("(" + kLiteral + R"re(),\s*()re" + kLiteral + ")"));
    forEachSource([&](const QString& name, const QString& text) {
        for (auto at = one.globalMatch(text); at.hasNext();)
            found[joined(at.next().captured(1))] = name.toStdString();
        for (auto at = two.globalMatch(text); at.hasNext();) {
            const auto match = at.next();
            for (const int form : {1, 2})
                found[joined(match.captured(form))] = name.toStdString();
        }
    });
    return found;
}

namespace {

/// The arguments of a call whose parenthesis opens at `open`.
QString argumentsAt(const QString& text, qsizetype open) {
    int depth = 0;
    bool quoted = false;
    for (qsizetype at = open; at < text.size(); ++at) {
        const QChar c = text[at];
        if (quoted && c == '\\') {
            ++at;
        } else if (c == '"') {
            quoted = !quoted;
        } else if (!quoted && c == '(') {
            ++depth;
        } else if (!quoted && c == ')' && --depth == 0) {
            return text.mid(open, at - open + 1);
        }
    }
    return text.mid(open);
}

} // namespace

QStringList unmarkedLiterals() {
    static const QRegularExpression call(
        R"re(\b(?:setText|setTitle|setHelp|setFault|say|remark|setToolTip|setAccessibleName|setWindowTitle|)re"
        R"re(addAction|describeSteps?|PaletteError|setPlaceholderText|runAlert|QObject::tr|tr|Fault)\()re");
    static const QRegularExpression marked(R"re(\btransla(?:ted|table|tedCount)\((?:[^"]*?,\s*)?)re" +
                                           kLiteral + R"re((?:,\s*)re" + kLiteral + ")?");
    static const QRegularExpression literal(R"re("(?:[^"\\]|\\.)*")re"), word("[A-Za-z]{2}");
    QStringList found;
    forEachSource([&](const QString& name, const QString& text) {
        for (const char* other : {"standalone/", "drive/", "gimp/"})
            if (name.startsWith(other)) return; // in English, on a terminal
        for (auto at = call.globalMatch(text); at.hasNext();) {
            const QString left = argumentsAt(text, at.next().capturedEnd() - 1).remove(marked);
            for (auto each = literal.globalMatch(left); each.hasNext();)
                if (const QString words = each.next().captured(); words.contains(word))
                    found.append(name + ": " + words);
        }
    });
    return found;
}

} // namespace chromalog::test
