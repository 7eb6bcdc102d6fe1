// One allocation after the other fails, in every command on the lists and wherever the lists are written or
// read. A command leaves the lists as they were before it, or it is complete and only its display is not.
#include "dialog/pick_fixture.h"
#include "support/failing_new.h"
#include "support/swatch_files.h"
#include "support/temporary_folder.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <unistd.h>

namespace chromalog::test {
namespace {

using testing::AnyOf;
using testing::Eq;
using testing::IsEmpty;

/// One list as a person would tell it: what is shown, and its names.
struct ToldList {
    std::vector<std::string> swatches;
    int viewCount = 0, storedCount = 0;
    std::string viewName, storedName;
    bool operator==(const ToldList&) const = default;
};

void PrintTo(const ToldList& list, std::ostream* out) {
    *out << list.viewName << '/' << list.storedName << ' ' << list.viewCount << '/' << list.storedCount << ' '
         << testing::PrintToString(list.swatches);
}

ToldList tell(ChromalogControler& dialog, int number) {
    const SwatchPanel& panel = *dialog.panels().both()[static_cast<std::size_t>(number - 1)];
    const CSwatchList& view = panel.view;
    const std::uint8_t* name = panel.storedName.data();
    ToldList told{{},
                  view.getNumberOfColors(),
                  panel.storedCount,
                  view.getSwatchName(),
                  std::string(name + 1, name + 1 + name[0])};
    for (const FCOStruct& swatch : view.shownRecords())
        told.swatches.push_back(std::string(nameBytes(swatch)) + ' ' + std::to_string(swatch.SRed) + ' ' +
                                std::to_string(swatch.SGreen) + ' ' + std::to_string(swatch.SBlue));
    return told;
}

using ToldLists = std::pair<ToldList, ToldList>;

class OutOfMemory : public PickTest {
  protected:
    using Step = std::function<void()>;

    void SetUp() override {
        PickTest::SetUp();
        files.emplace();
        write("three.aco", FileBuilder().header(2, 3), {"a", "c", "b"});
        write("two.aco", FileBuilder().header(2, 2), {"x", "y"});
        writeBookFile();
        version.getPropertyProc = [](std::uint32_t, std::uint32_t, std::int32_t, std::intptr_t* simple,
                                     Handle*) -> std::int16_t { return *simple = 16 << 16, 0; };
        record.propertyProcs = &version;
    }

    void write(const std::string& name, FileBuilder file, const std::vector<std::string>& swatches) {
        for (std::size_t i = 0; i < swatches.size(); ++i)
            file.colour(0, 60'000 - static_cast<int>(i) * 9'000, static_cast<int>(i) * 9'000, 500)
                .name(swatches[i]);
        write(name, file);
    }
    void write(const std::string& name, const FileBuilder& file) {
        std::ofstream(*files / name, std::ios::binary)
            .write(reinterpret_cast<const char*>(file.bytes.data()),
                   static_cast<std::streamsize>(file.bytes.size()));
    }
    /// Two sections, the second with references to a colour book and a colour of a space that none knows.
    void writeBookFile() {
        FileBuilder file;
        file.header(1, 3).colour(0, 1, 2, 3).colour(0, 4, 5, 6).colour(0, 7, 8, 9).word(2).word(3);
        file.reference(11, "DIC001").name("of a book, by a name that is long enough to need memory");
        file.colour(77, 1, 2, 3).name("of nowhere").reference(11, "DIC002").name("of the book again");
        write("books.aco", file);
        FileBuilder book;
        book.bookHeader(2, 0)
            .bookColour("one", "DIC001", {10, 20, 30})
            .bookColour("two", "DIC002", {1, 2, 3});
        write("DIC Color Guide.acb", book);
    }

    void send(const std::string& action) { desktop->forms.at("chromalogWindow")->send(action); }
    Step sends(const std::string& action) {
        return [this, action] { send(action); };
    }
    Step answers(const std::string& name) {
        return [this, path = *files / name] { desktop->answerPanel(path); };
    }
    Step drops(double y, std::optional<std::string> text) {
        DragInfo info;
        info.location = {10, y};
        info.pasteboard = {true, text.has_value(), Colour::rgb(0.1, 0.9, 0.4), text};
        return [this, info] { dialog->panels().one.view.performDragOperation(info); };
    }
    void load(const std::string& action, const std::string& name) {
        send(action);
        answers(name)();
    }
    ToldLists lists() { return {tell(*dialog, 1), tell(*dialog, 2)}; }

    /// One pick with three swatches in list 1 and two in list 2, and the step in its dialog.
    void inDialog(const Step& step) {
        if (data) handles.disposeProc(reinterpret_cast<Handle>(data));
        data = 0;
        std::filesystem::remove_all(applications);
        prepare = [this](HeadlessDesktop& d) {
            d.books = files->path();
            if (!savesLists) d.applications.clear();
        };
        pick([&](ChromalogControler& c, HeadlessDesktop& d) {
            dialog = &c;
            desktop = &d;
            load("loadSwatch1:", "three.aco");
            load("loadSwatch2:", "two.aco");
            step();
        });
    }

    /// The command with each of its allocations failing once, each time in a pick of its own. Returns how
    /// many there are.
    long sweep(const Step& prepareCommand, const Step& command) {
        ToldLists complete;
        inDialog([&] {
            if (prepareCommand) prepareCommand();
            command();
            complete = lists();
        });
        for (long n = 1;; ++n) {
            bool failed = false;
            inDialog([&] {
                if (prepareCommand) prepareCommand();
                const ToldLists before = lists();
                failed = fails(n, command);
                EXPECT_THAT(lists(), AnyOf(Eq(before), Eq(complete))) << "allocation " << n;
                expectHistoryIsWhole();
            });
            if (!failed || HasFailure()) return n - 1;
        }
    }
    /// As the slots of the real dialog do: what is thrown ends with the command.
    static bool fails(long n, const Step& command) {
        FailingNew failing(n);
        try {
            command();
        } catch (const std::bad_alloc&) {
        }
        return failing.stop();
    }

    /// Every step can be taken back, to the empty lists of the start, and made again.
    void expectHistoryIsWhole() {
        const ToldLists now = lists();
        const std::size_t done = dialog->history().manager()->undoNames().size();
        EXPECT_EQ(dialog->history().undoSteps(), static_cast<int>(done));
        for (std::size_t i = 0; i < done; ++i)
            send("doUndo:");
        EXPECT_THAT(lists().first.swatches, IsEmpty());
        EXPECT_THAT(lists().second.swatches, IsEmpty());
        EXPECT_EQ(dialog->history().undoSteps(), 0);
        for (std::size_t i = 0; i < done; ++i)
            send("doRedo:");
        EXPECT_EQ(lists().first.swatches, now.first.swatches);
        EXPECT_EQ(lists().second.swatches, now.second.swatches);
    }

    std::optional<TemporaryFolder> files;
    PropertyProcs version{};
    bool savesLists = false;
    ChromalogControler* dialog = nullptr;
    HeadlessDesktop* desktop = nullptr;
};

TEST_F(OutOfMemory, ACommandThatRecordsAStepIsDoneOrNot) {
    for (const char* action : {"killSwatch1:", "sortAlpha1:", "sortHue1:", "deleteSwatch1:", "writeToSwatch:",
                               "loadSwatch1:", "appendSwatch2:", "loadASE:"})
        EXPECT_GT(sweep(nullptr, sends(action)), 0) << action;
}

/// Grows where a file is left open.
int nextDescriptor() {
    const int next = ::open("/dev/null", O_RDONLY);
    ::close(next);
    return next;
}

TEST_F(OutOfMemory, AListThatIsReadIsReplacedAsAWholeOrNotAtAll) {
    const int descriptor = nextDescriptor();
    EXPECT_GT(sweep(sends("loadSwatch1:"), answers("two.aco")), 0);
    EXPECT_GT(sweep(sends("appendSwatch1:"), answers("two.aco")), 0);
    EXPECT_GT(sweep(sends("loadSwatch2:"), answers("books.aco")), 5) << "the book and its index as well";
    EXPECT_GT(sweep(sends("loadASE:"), answers("DIC Color Guide.acb")), 0);
    EXPECT_EQ(nextDescriptor(), descriptor);
}

TEST_F(OutOfMemory, ADroppedColourComesWithItsNameOrNotAtAll) {
    EXPECT_GT(sweep(nullptr, drops(30, "a text that is long enough to need some memory")), 0);
    EXPECT_GT(sweep(nullptr, drops(30, std::nullopt)), 0);
    EXPECT_GT(sweep(nullptr, drops(900, std::nullopt)), 0) << "behind the last";
}

TEST_F(OutOfMemory, AStepIsUndoneOrRedoneOrStaysWhereItWas) {
    EXPECT_GT(sweep(sends("sortAlpha1:"), sends("doUndo:")), 0);
    const Step undone = [this] {
        send("sortAlpha1:");
        send("doUndo:");
    };
    EXPECT_GT(sweep(undone, sends("doRedo:")), 0);
}

TEST_F(OutOfMemory, AChangeThatCouldNotBeSavedFirstIsNotMade) {
    savesLists = true;
    EXPECT_GT(sweep(nullptr, sends("killSwatch1:")), 3) << "the path and the file's names as well";
}

std::vector<char> contents(const std::filesystem::path& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

TEST_F(OutOfMemory, ThePickEndsAsChosenAndTheFileHoldsTheOldListsOrTheNewOnes) {
    savesLists = true;
    int failures = 0;
    std::vector<char> complete;
    for (const char* action : {"okPressed:", "cancelPressed:"})
        for (long n = 0;; ++n) { // none fails at first
            std::vector<char> before;
            bool failed = false;
            inDialog([&] {
                send("killSwatch1:");
                desktop->stops.reserve(1); // the real one notes no more than that it was told
                before = contents(preferences());
                failed = fails(n, sends(action));
                EXPECT_EQ(desktop->stops.size(), 1u) << "the dialog is not kept open";
                desktop->modalSteps.clear();
            });
            if (n == 0) complete = contents(preferences());
            const auto now = contents(preferences());
            EXPECT_TRUE(now == before || now == complete) << n;
            EXPECT_EQ(result, 0);
            if (HasFailure()) return;
            if (n == 0) continue;
            if (!failed) break;
            ++failures;
        }
    EXPECT_GT(failures, 3);
}

/// From the host's call to the dialog: no dialog, the result for no memory, and the next pick is as ever.
TEST_F(OutOfMemory, APickThatCannotOpenReportsItAndKeepsNothingOfTheHosts) {
    savesLists = true;
    inDialog([] {});
    const std::vector<char> saved = contents(preferences());
    EXPECT_FALSE(saved.empty());
    const auto offered = record.pickParms;
    for (long n = 1, step = 1;; n += step, step = 1 + n / 25) {
        unlocks = acquired = released = 0;
        std::optional<FailingNew> failing;
        prepare = [&](HeadlessDesktop&) { failing.emplace(n); };
        bool wordless = false; // no words of the history are worth a pick
        onReady = [&](ChromalogControler&, HeadlessDesktop& shown) {
            failing->stop();
            wordless = shown.forms.at("ProtocolPanel")->outlet<HeadlessRowList>("historySteps").rows.empty();
        };
        result = 7;
        pick();
        const bool failed = failing->stop();
        EXPECT_EQ(result, failed && !wordless ? -108 : 0) << n;
        EXPECT_EQ(unlocks, 1) << n;
        EXPECT_EQ(acquired, released) << n;
        EXPECT_EQ(std::memcmp(&record.pickParms.colorComponents, &offered.colorComponents, 8), 0) << n;
        EXPECT_EQ(gChromalogControler, nullptr);
        EXPECT_TRUE(!failed || contents(preferences()) == saved) << n;
        if (!failed || HasFailure()) break;
    }
    EXPECT_EQ(globals().numColors1, 3) << "the lists are all there";
    EXPECT_EQ(globals().numColors2, 2);
}

} // namespace
} // namespace chromalog::test
