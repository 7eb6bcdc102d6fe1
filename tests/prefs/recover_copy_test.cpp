#include "files/system_calls.h"
#include "prefs/recover_copy.h"
#include "prefs/store_fixture.h"

#include <gmock/gmock.h>

namespace chromalog {
namespace {

using test::FailingCall;
using test::listsOf;
using testing::HasSubstr;

class RecoverCopyTest : public test::StoreTest {};

TEST_F(RecoverCopyTest, ARecoveredCopyTakesThePlaceOfTheListsWhichAreKept) {
    makeCopy("before", listsOf(1));
    writeForeign(listsOf(2));
    for (const char* name : {"lists.prf.before", ".before", "before"}) {
        const Recovery recovery = recoverCopy(path, name);
        EXPECT_EQ(recovery.problem, "");
        EXPECT_EQ(file(), listsOf(1));
        EXPECT_EQ(file(".before"), listsOf(1));
    }
    EXPECT_TRUE(isAnywhere(listsOf(2)));
    for (const char* name : {"kept-nothing", "lists.prf.gone", "..", ""})
        EXPECT_EQ(recoverCopy(path, name).problem, "no copy is named '" + std::string(name) + "'");
}

TEST_F(RecoverCopyTest, ARecoveredCopyIsNotPrunedForWhatItReplaces) {
    for (int i = 1; i <= 4; ++i)
        makeCopy(nameOf(24 * i + 1), listsOf(static_cast<std::uint8_t>(i)));
    const std::string oldest = nameOf(24 * 5 + 1); // once: a second later it is another
    makeCopy(oldest, listsOf(5));
    writeForeign(listsOf(9));
    ASSERT_EQ(recoverCopy(path, oldest).problem, "");
    EXPECT_EQ(file(), listsOf(5));
    EXPECT_TRUE(isAnywhere(listsOf(9)));
}

TEST_F(RecoverCopyTest, NothingIsRecoveredWhereThePresentListsCannotBeKeptOrAreOpen) {
    makeCopy("before", listsOf(1));
    writeForeign(listsOf(2));
    {
        const FailingCall noLinks("link", EPERM);
        const FailingCall full("pwrite", ENOSPC);
        EXPECT_THAT(recoverCopy(path, "before").problem, HasSubstr("No space left"));
    }
    const PreferencesStore open(path);
    EXPECT_THAT(recoverCopy(path, "before").problem, HasSubstr("open"));
    EXPECT_EQ(file(), listsOf(2));
}

} // namespace
} // namespace chromalog
