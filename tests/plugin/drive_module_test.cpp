// What plays scripts is a module of its own: a host never loads it, and it shares no state with the plug-in.
#include "plugin_check/elf_file.h"

#include <gmock/gmock.h>

namespace chromalog {
namespace {

using testing::AnyOf;
using testing::Contains;
using testing::Each;
using testing::HasSubstr;
using testing::Not;
using testing::UnorderedElementsAre;

const ElfFile& plugIn() {
    static const ElfFile file(CHROMALOG_MODULE);
    return file;
}

const ElfFile& player() {
    static const ElfFile file(CHROMALOG_DRIVE_MODULE);
    return file;
}

constexpr const char* kPlayer = "9chromalog5drive"; ///< its namespace, as symbols spell it

TEST(DriveModule, ThePlugInHoldsNothingOfThePlayer) {
    EXPECT_THAT(player().ownSymbols(), Contains(HasSubstr(kPlayer))) << "there are no names to look at";
    EXPECT_THAT(plugIn().ownSymbols(), Contains(HasSubstr("9QtDesktop"))) << "there are no names to look at";
    EXPECT_THAT(plugIn().ownSymbols(), Each(Not(HasSubstr(kPlayer))));
}

TEST(DriveModule, ThePlayerAloneMakesUpKeys) {
    EXPECT_THAT(player().importedSymbols(), Contains(HasSubstr("qt_handleKeyEvent")));
    EXPECT_THAT(plugIn().importedSymbols(), Each(Not(HasSubstr("qt_handle"))));
}

TEST(DriveModule, NeitherNeedsTheToolkitsTestLibrary) {
    for (const ElfFile* file : {&plugIn(), &player()}) {
        EXPECT_THAT(file->neededLibraries(), Contains(HasSubstr("Widgets")));
        EXPECT_THAT(file->neededLibraries(), Each(Not(HasSubstr("Test"))));
    }
}

TEST(DriveModule, ThePlayerHasItsEntriesAndNoStateOfThePlugIn) {
    EXPECT_THAT(player().exportedSymbols(), UnorderedElementsAre("chromalogDrive", "chromalogReadForm"));
    EXPECT_THAT(plugIn().ownSymbols(), Contains("_ZN9chromalog5gDataE"));
    EXPECT_THAT(player().ownSymbols(),
                Each(Not(AnyOf(HasSubstr("5gDataE"), HasSubstr("9QtDesktop"), HasSubstr("12GlobalRecord"),
                               HasSubstr("18ChromalogControler"), HasSubstr("12DialogWindow")))));
}

} // namespace
} // namespace chromalog
