#include "base/translated.h"

#include <gtest/gtest.h>

using namespace chromalog;

namespace {

struct Spoken {
    explicit Spoken(const Language& language) { speak(&language); }
    ~Spoken() { speak(nullptr); }
};

const Language kGerman{"de",
                       false,
                       {{"Undo", "Rückgängig"},
                        {"%1 of list %2", "aus Liste %2: %1"},
                        {"%1 color", "%1 Farbe"},
                        {"%1 colors", "%1 Farben"}}};

TEST(Translated, EnglishIsTheTextItself) {
    EXPECT_EQ(translated("Undo"), "Undo");
    EXPECT_EQ(translated("%1 of list %2", "red", 2), "red of list 2");
    EXPECT_EQ(translated("100%"), "100%");
    EXPECT_EQ(spokenLanguage(), nullptr);
}

TEST(Translated, ALanguagesTextsStandForTheEnglishOnesWhileItIsSpoken) {
    {
        const Spoken spoken(kGerman);
        EXPECT_EQ(translated("Undo"), "Rückgängig");
        EXPECT_EQ(translated("%1 of list %2", "red", 2), "aus Liste 2: red");
        EXPECT_EQ(translated("Redo"), "Redo"); // not in the table
    }
    EXPECT_EQ(translated("Undo"), "Undo");
}

TEST(Translated, ArgumentsStandAsTheyAre) {
    EXPECT_EQ(translated("%1 and %2", "%2", "%1"), "%2 and %1");
    EXPECT_EQ(translated("%1 %", std::string("a")), "a %");
    EXPECT_EQ(translated("%1 %3 %0 %x", 7), "7 %3 %0 %x"); // there is no third
    EXPECT_EQ(translated("%1", std::string_view("%")), "%");
}

TEST(Translated, EveryLanguageCountsInItsOwnWay) {
    const auto colours = [](std::size_t count) { return translatedCount(count, "%1 color", "%1 colors"); };
    EXPECT_EQ(colours(0) + colours(1) + colours(2), "0 colors1 color2 colors");
    Language french{"fr", true, {{"%1 color", "%1 couleur"}, {"%1 colors", "%1 couleurs"}}};
    const Spoken spoken(french);
    EXPECT_EQ(colours(0) + colours(1) + colours(2), "0 couleur1 couleur2 couleurs");
}

TEST(Translated, LanguagesHaveCodes) {
    for (const char* known : {"en", "de", "fr", "ar-XB"})
        EXPECT_TRUE(isLanguage(known)) << known;
    for (const char* unknown : {"", "DE", "de_DE", "it", "e"})
        EXPECT_FALSE(isLanguage(unknown)) << unknown;
}

} // namespace
