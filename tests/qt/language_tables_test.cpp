// The tables of the languages: every text that can be shown has its translation, and nothing else is in them.
#include "qt/shown_texts.h"

#include "base/translated.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>

#include <gmock/gmock.h>

#include <algorithm>

using namespace chromalog;
using namespace chromalog::test;
using testing::IsEmpty;

namespace {

QJsonObject tableOf(std::string_view code) {
    QFile file(QString(RESOURCES "/languages/%1.json").arg(QString::fromStdString(std::string(code))));
    return file.open(QIODevice::ReadOnly) ? QJsonDocument::fromJson(file.readAll()).object() : QJsonObject();
}

class LanguageTable : public testing::TestWithParam<std::string_view> {
  protected:
    const QJsonObject table = tableOf(GetParam());
};

QStringList placeholders(const QString& text) {
    static const QRegularExpression mark("%\\d");
    QStringList all;
    for (auto at = mark.globalMatch(text); at.hasNext();)
        all.append(at.next().captured());
    all.sort();
    return all;
}

/// "&" before a letter; "&&" is none.
QString mnemonicOf(const QString& text) {
    static const QRegularExpression mark("(?<!&)&([^& ])");
    return mark.match(text).captured(1).toLower();
}

TEST_P(LanguageTable, HasEveryTextThatCanBeShownAndNoOther) {
    std::vector<std::string> missing, unused;
    const auto shown = shownTexts();
    EXPECT_GT(shown.size(), 600u);
    for (const auto& [text, where] : shown)
        if (!table.contains(QString::fromStdString(text))) missing.push_back(where + ": " + text);
    for (const QString& text : table.keys())
        if (table[text].isString() && !shown.contains(text.toStdString()))
            unused.push_back(text.toStdString());
    EXPECT_THAT(missing, IsEmpty());
    EXPECT_THAT(unused, IsEmpty());
}

TEST_P(LanguageTable, SaysWhatTheEnglishTextSays) {
    for (const QString& english : table.keys()) {
        if (!table[english].isString()) continue;
        const QString text = table[english].toString();
        EXPECT_FALSE(text.trimmed().isEmpty()) << english.toStdString();
        EXPECT_EQ(placeholders(text), placeholders(english)) << english.toStdString();
        for (const QString& alternative : text.split('|')) {
            EXPECT_FALSE(alternative.isEmpty()) << english.toStdString();
            EXPECT_EQ(mnemonicOf(alternative).isEmpty(), mnemonicOf(english).isEmpty())
                << english.toStdString();
            EXPECT_EQ(mnemonicOf(alternative), mnemonicOf(text)) << english.toStdString();
        }
        EXPECT_EQ(text.section('|', 0, 0).endsWith("…"), english.section('|', 0, 0).endsWith("…"))
            << english.toStdString();
    }
}

TEST_P(LanguageTable, HasTheToolkitsFewTextsToo) {
    const QJsonObject ours = table["toolkit"].toObject(), german = tableOf("de")["toolkit"].toObject();
    EXPECT_EQ(ours.keys(), german.keys());
    EXPECT_TRUE(ours.contains("&Cancel"));
    for (const QString& english : ours.keys())
        EXPECT_FALSE(ours[english].toString().isEmpty()) << english.toStdString();
}

INSTANTIATE_TEST_SUITE_P(Languages, LanguageTable,
                         testing::ValuesIn(std::begin(kLanguages) + 1, std::end(kLanguages)),
                         [](const auto& info) { return std::string(info.param); });

TEST(ShownTexts, OfTheFormsStandInPropertiesThatAreKnown) {
    for (const auto& [property, form] : textProperties())
        EXPECT_TRUE(shownProperties().contains(property) || technicalProperties().contains(property))
            << property << " in " << form << ": for people, or a name?";
}

TEST(ShownTexts, AreMarkedWhereTheyAreGivenToAControl) {
    std::vector<std::string> unmarked;
    for (const QString& found : unmarkedLiterals())
        unmarked.push_back(found.toStdString());
    EXPECT_THAT(unmarked, IsEmpty());
}

} // namespace
