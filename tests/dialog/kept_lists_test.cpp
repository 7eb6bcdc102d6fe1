// What a pick replaces, what it keeps, and what it says on the status line.
#include "dialog/pick_fixture.h"
#include "prefs/kept_copies.h"
#include "prefs/preferences_layout.h"

#include <gmock/gmock.h>

#include <algorithm>

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace chromalog::test {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;
using Bytes = std::vector<std::uint8_t>;

Bytes listsOf(std::uint8_t colours) {
    Bytes file(kPreferencesSize);
    file[kFileLists[0]] = file[kFileCounts[0]] = colours;
    return file;
}

class KeptListsTest : public PickTest {
  protected:
    std::vector<std::string> copies() {
        std::vector<std::string> names;
        for (const KeptCopy& copy : keptCopies(preferences()))
            names.push_back(copy.name);
        std::ranges::sort(names);
        return names;
    }
    Bytes at(const std::string& path) { return readDataFromFileAtURL(path).value_or(Bytes{}); }
    int coloursOf(const std::string& copy) {
        const Bytes file = at(preferences().string() + copy);
        return file.size() == kPreferencesSize ? file[kFileCounts[0]] : -1;
    }
    /// In the place of the file, as another program does.
    void writeForeign(const Bytes& bytes) {
        fs::remove(preferences());
        writePreferences(bytes);
    }
    /// As every recorded change does before it is made.
    static void store(ChromalogControler& c) { c.history().setUndoablePosition("step"); }
    std::string statusLine(HeadlessDesktop& d) { return control<HeadlessTextField>(d, "statusLine").text(); }
    /// As a person who owns the file and may write it, but not read it.
    void makeUnreadable() {
        fs::permissions(preferences(), fs::perms(0200));
        if (::geteuid() != 0) return;
        for (const fs::path& path : {applications, preferences().parent_path(), preferences()})
            ASSERT_EQ(::chown(path.c_str(), kNobody, kNobody), 0);
        ASSERT_EQ(::seteuid(kNobody), 0);
    }
    static void becomeOneself() { EXPECT_EQ(::seteuid(::getuid()), 0); }
    void TearDown() override {
        becomeOneself();
        PickTest::TearDown();
    }
    static constexpr uid_t kNobody = 65534;
};

TEST_F(KeptListsTest, APickWithoutTroubleSaysNothing) {
    writePreferences(listsOf(3));
    pick([&](ChromalogControler& c, HeadlessDesktop& d) {
        EXPECT_EQ(statusLine(d), "");
        store(c);
        EXPECT_EQ(statusLine(d), "");
    });
    EXPECT_THAT(copies(), ElementsAre("before"));
    EXPECT_EQ(coloursOf(".before"), 3);
}

TEST_F(KeptListsTest, CancelDoesNotReplaceListsThatCouldNotBeRead) {
    writePreferences(listsOf(3));
    prepare = [this](HeadlessDesktop&) { makeUnreadable(); };
    pick([&](ChromalogControler& c, HeadlessDesktop& d) {
        EXPECT_EQ(c.panels().one.view.getNumberOfColors(), 0);
        EXPECT_EQ(statusLine(d), "The stored lists could not be read: Permission denied");
        store(c);
        EXPECT_THAT(statusLine(d), StartsWith("Unread lists were kept (kept-2"));
    });
    becomeOneself();
    for (const std::string& copy : copies())
        fs::permissions(preferences().string() + "." + copy, fs::perms(0600));
    EXPECT_THAT(copies(), ElementsAre("before", StartsWith("kept-2")));
    EXPECT_EQ(coloursOf("." + copies().back()), 3);
}

TEST_F(KeptListsTest, ListsThatAnotherProgramStoredMeanwhileAreKept) {
    writePreferences(listsOf(3));
    pick([&](ChromalogControler& c, HeadlessDesktop& d) {
        writeForeign(listsOf(5));
        store(c);
        EXPECT_THAT(statusLine(d), StartsWith("Unread lists were kept"));
    });
    ASSERT_EQ(copies().size(), 1u);
    EXPECT_EQ(coloursOf("." + copies()[0]), 5);
    EXPECT_EQ(coloursOf(""), 3);
}

TEST_F(KeptListsTest, PicksOfOneHostRunKeepOnlyTheFileBefore) {
    writePreferences(listsOf(3));
    for (int i = 0; i < 3; ++i)
        pick([&](ChromalogControler& c, HeadlessDesktop& d) {
            store(c);
            EXPECT_EQ(statusLine(d), "");
        });
    EXPECT_THAT(copies(), ElementsAre("before"));
    prepare = [](HeadlessDesktop& d) { d.optionHeld = true; };
    pick();
    EXPECT_THAT(copies(), ElementsAre("before", "skipped"));
    EXPECT_EQ(coloursOf(".skipped"), 3);
}

TEST_F(KeptListsTest, WhereSkippedListsCannotBeKeptNothingIsWritten) {
    writePreferences(listsOf(3));
    fs::create_directory(preferences().string() + ".skipped");
    prepare = [](HeadlessDesktop& d) { d.optionHeld = true; };
    pick([&](ChromalogControler& c, HeadlessDesktop& d) {
        store(c);
        EXPECT_THAT(statusLine(d), StartsWith("The lists were not stored: what is there cannot be kept"));
    });
    EXPECT_EQ(coloursOf(""), 3);
}

TEST_F(KeptListsTest, AFailureIsTakenBackWhenTheListsAreStoredAfterAll) {
    writePreferences(listsOf(3));
    pick([&](ChromalogControler& c, HeadlessDesktop& d) {
        fs::remove_all(preferences());
        fs::create_directory(preferences());
        store(c);
        EXPECT_EQ(statusLine(d), "The lists were not stored: Is a directory");
        EXPECT_THAT(d.alerts, IsEmpty());
        fs::remove(preferences());
        store(c);
        EXPECT_EQ(statusLine(d), "");
    });
}

TEST_F(KeptListsTest, AFolderThatCannotBeWrittenIsSaidAtTheStart) {
    std::ofstream(applications) << "a file in the way";
    pick([&](ChromalogControler&, HeadlessDesktop& d) {
        EXPECT_THAT(statusLine(d), StartsWith("The lists cannot be stored in " + applications.string()));
    });
    EXPECT_EQ(result, 0);
}

TEST_F(KeptListsTest, WithoutAPlaceForThemTheListsAreNotStoredAndThatIsSaid) {
    prepare = [](HeadlessDesktop& d) { d.applications.clear(); };
    pick([&](ChromalogControler& c, HeadlessDesktop& d) {
        EXPECT_EQ(statusLine(d), "The lists are not stored: there is no home folder");
        d.status.takeBack(StatusLine::About::storing);
        store(c);
        EXPECT_EQ(statusLine(d), "") << "said once";
    });
}

TEST_F(KeptListsTest, AnotherPickOnTheSameListsIsSaid) {
    writePreferences(listsOf(3));
    int opened[2];
    ASSERT_EQ(::pipe(opened), 0);
    const pid_t child = ::fork(); // another host
    if (child == 0) {
        char go = 0;
        std::string said;
        if (::read(opened[0], &go, 1) != 1) ::_exit(2);
        pick([&](ChromalogControler&, HeadlessDesktop& d) { said = statusLine(d); });
        ::_exit(said == "Another pick is open on the same lists" ? 0 : 1);
    }
    pick([&](ChromalogControler&, HeadlessDesktop&) {
        int status = 1;
        EXPECT_EQ(::write(opened[1], "!", 1), 1);
        ::waitpid(child, &status, 0);
        EXPECT_EQ(status, 0);
    });
    ::close(opened[0]);
    ::close(opened[1]);
    pick([&](ChromalogControler&, HeadlessDesktop& d) { EXPECT_EQ(statusLine(d), ""); });
}

TEST_F(KeptListsTest, AFileThatCannotBeReadOrWrittenIsSaid) {
    pick([&](ChromalogControler& c, HeadlessDesktop& d) {
        auto& form = *d.forms.at("chromalogWindow");
        form.send("loadSwatch1:");
        d.answerPanel("/no/such/<b>colours.aco");
        EXPECT_EQ(statusLine(d), "<b>colours.aco could not be read: No such file or directory");
        form.send("saveSwatch2:");
        d.answerPanel("/no/such/folder/saved.txt");
        EXPECT_EQ(statusLine(d), "saved.aco was not written: No such file or directory");
        EXPECT_THAT(d.status.takeNotWritten(),
                    ElementsAre("/no/such/folder/saved.aco: No such file or directory"));
        form.send("saveSwatch2:");
        d.answerPanel((applications / "saved").string());
        EXPECT_EQ(statusLine(d), "");
        EXPECT_THAT(d.alerts, IsEmpty());
        EXPECT_EQ(c.panels().one.view.getNumberOfColors(), 0);
    });
}

} // namespace
} // namespace chromalog::test
