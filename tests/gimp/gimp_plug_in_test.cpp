// What GIMP's plug-in asks of the loader.
#include "plugin_check/elf_file.h"

#include <gmock/gmock.h>

namespace chromalog {
namespace {

using testing::AnyOf;
using testing::Contains;
using testing::Each;
using testing::HasSubstr;
using testing::Not;

// GTK 2 in the process and the toolkit's theme gtk3 would end it.
TEST(GimpPlugIn, NeedsTheLibraryOfPlugInsAndNoneOfTheUserInterface) {
    const auto needed = ElfFile(CHROMALOG_GIMP).neededLibraries();
    EXPECT_THAT(needed, Contains(HasSubstr("libgimp-2.0.")));
    EXPECT_THAT(needed, Each(Not(AnyOf(HasSubstr("gimpui"), HasSubstr("gimpwidgets"), HasSubstr("gtk"),
                                       HasSubstr("gdk"), HasSubstr("Qt")))));
}

} // namespace
} // namespace chromalog
