// What is thrown within a pick, and calls of the host while one runs.
#include "dialog/pick_fixture.h"

#include <gmock/gmock.h>

#include <new>
#include <stdexcept>

namespace chromalog::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::SizeIs;

class PickFailures : public PickTest {
  public:
    void log(std::string_view line) override { lines.emplace_back(line); }

  protected:
    PickFailures() {
        for (int i = 0; i < 4; ++i)
            record.pickParms.colorComponents[i] = static_cast<std::uint16_t>(1000 + i);
    }
    /// Nothing of the pick is left behind, and the host's colour is as it was offered.
    void expectTidy(int locks = 1) {
        EXPECT_THAT(record.pickParms.colorComponents, ElementsAre(1000, 1001, 1002, 1003));
        EXPECT_EQ(unlocks, locks);
        EXPECT_EQ(acquired, released);
        EXPECT_EQ(gData, nullptr);
        EXPECT_EQ(gChromalogControler, nullptr);
        EXPECT_EQ(gProtocolController, nullptr);
    }
    void expectNextPickWorks() {
        prepare = nullptr;
        pick([](ChromalogControler& c, HeadlessDesktop&) { c.okPressed(); });
        EXPECT_EQ(result, 0);
        EXPECT_EQ(record.pickParms.colorComponents[0], 58981);
    }

    std::vector<std::string> lines;
};

TEST_F(PickFailures, NoMemoryInTheDialogIsTheResultForNoMemory) {
    pick([](ChromalogControler&, HeadlessDesktop&) { throw std::bad_alloc(); });
    EXPECT_EQ(result, -108);
    EXPECT_THAT(lines, SizeIs(1));
    expectTidy();
    expectNextPickWorks();
}

TEST_F(PickFailures, ThePickEndsBeforeItsListsAreStored) {
    bool stored = true;
    pick([&](ChromalogControler& c, HeadlessDesktop& d) {
        d.whenStopped = [&] { stored = std::filesystem::exists(preferences()); };
        c.okPressed();
    });
    EXPECT_FALSE(stored) << "it ends also where they cannot be";
    EXPECT_TRUE(std::filesystem::exists(preferences()));
}

TEST_F(PickFailures, NobodyListensToADesktopWhoseDialogIsGone) {
    bool listens = true;
    pick([&listens](ChromalogControler&, HeadlessDesktop& d) {
        const auto last = [&listens, &d](void*) { listens = static_cast<bool>(d.status.onChange); };
        d.whenStopped = [goesWithTheDesktop = std::shared_ptr<void>(nullptr, last)] {};
    });
    EXPECT_FALSE(listens);
}

/// The stand-alone host, asked for a colour of the screen.
const StandaloneSuite3 kScreenHost{
    {{[](const char* key) -> const char* { return std::string_view(key) == "pick" ? "1" : nullptr; },
      {},
      {},
      {},
      {}},
     {}},
    [](std::uint16_t, std::uint16_t, std::uint16_t) { FAIL() << "nothing was taken"; }};

class LongProblem : public PickFailures {
  public:
    ScreenColours pickFromScreen() override { return {{}, std::string(290, 'x')}; }
};

TEST_F(LongProblem, IsHeldToItsLengthByte) {
    basic.AcquireSuite = [](const char*, std::int32_t, const void** suite) -> std::int32_t {
        return ++acquired, *suite = &kScreenHost, 0;
    };
    std::vector<unsigned char> text(300, 0x55);
    record.errorString = text.data();
    pick();
    EXPECT_EQ(result, errReportString);
    EXPECT_EQ(text[0], 255);
    EXPECT_EQ(text[255], 'x');
    EXPECT_EQ(text[256], 0x55);
    EXPECT_EQ(acquired, released);
}

TEST_F(PickFailures, AnythingElseEndsThePickAsCancelWithALineOfTheLog) {
    pick([](ChromalogControler&, HeadlessDesktop&) { throw std::runtime_error("a slip of ours"); });
    EXPECT_EQ(result, 0);
    EXPECT_THAT(lines, ElementsAre(HasSubstr("a slip of ours")));
    expectTidy();
    result = 7;
    pick([](ChromalogControler&, HeadlessDesktop&) { throw 3; });
    EXPECT_EQ(result, 0);
    EXPECT_THAT(lines, SizeIs(2));
    expectTidy(2);
    expectNextPickWorks();
}

TEST_F(PickFailures, AnAnswerThatWasGivenAlreadyIsTakenBack) {
    pick([](ChromalogControler& c, HeadlessDesktop&) {
        c.okPressed();
        throw std::runtime_error("after OK");
    });
    EXPECT_EQ(result, 0);
    expectTidy();
}

TEST_F(PickFailures, ADialogThatIsNeverCompleteLeavesNoControllerBehind) {
    onReady = [](ChromalogControler&, HeadlessDesktop&) { throw std::bad_alloc(); };
    pick();
    EXPECT_EQ(result, -108);
    expectTidy();
    onReady = nullptr;
    record.pickParms.sourceSpace = plugIncolorServicesCMYKSpace;
    record.colorServices = [](ColorServicesInfo*) -> std::int16_t { throw std::bad_alloc(); };
    pick();
    EXPECT_EQ(result, -108);
    expectTidy(2);
    record.pickParms.sourceSpace = 0;
    record.colorServices = nullptr;
    expectNextPickWorks();
}

TEST_F(PickFailures, ADesktopThatCannotBeMadeLocksNothing) {
    prepare = [](HeadlessDesktop&) { throw std::bad_alloc(); };
    pick();
    EXPECT_EQ(result, -108);
    EXPECT_EQ(data, 0);
    expectTidy(0);
    expectNextPickWorks();
}

/// The host's second call, with a result and a slot of its own.
struct SecondCall {
    PickerRecord record{};
    std::intptr_t data = 0;
    std::int16_t result = 77;
    void make(std::int16_t selector, Platform& platform) {
        runPluginMain(selector, &record, &data, &result, platform);
    }
};

class CallsInACall : public PickFailures {
  protected:
    static inline std::function<void()> atFirstConversion;
    SecondCall second;
    int shown = 0;

    void SetUp() override {
        PickFailures::SetUp();
        second.record = record;
        onReady = [this](ChromalogControler&, HeadlessDesktop&) { ++shown; };
    }
    void expectNothingButALine() {
        EXPECT_EQ(second.result, 77);
        EXPECT_EQ(second.data, 0);
        EXPECT_THAT(second.record.pickParms.colorComponents, ElementsAre(1000, 1001, 1002, 1003));
        EXPECT_EQ(shown, 1);
        EXPECT_EQ(unlocks, 1);
        EXPECT_EQ(acquired, released);
        EXPECT_THAT(lines, SizeIs(1));
        EXPECT_EQ(result, 0) << "the pick that ran is none the worse";
    }
};

TEST_F(CallsInACall, WhileThePickOpensReturnAtOnce) {
    record.pickParms.sourceSpace = plugIncolorServicesCMYKSpace;
    atFirstConversion = [this] { second.make(pickerSelectorPick, *this); };
    record.colorServices = [](ColorServicesInfo*) -> std::int16_t {
        if (const auto once = std::exchange(atFirstConversion, nullptr)) once();
        return 0;
    };
    pick();
    EXPECT_EQ(atFirstConversion, nullptr);
    expectNothingButALine();
}

TEST_F(CallsInACall, WhileTheDialogIsOpenReturnAtOnce) {
    GlobalRecord* during = nullptr;
    pick([&](ChromalogControler& c, HeadlessDesktop&) {
        second.make(pickerSelectorPick, *this);
        during = gData;
        c.cancelPressed();
    });
    EXPECT_NE(during, nullptr) << "the open pick keeps its record";
    expectNothingButALine();
}

TEST_F(CallsInACall, TheAboutCallIsNoExceptionAndNoSuiteIsTakenOver) {
    AboutRecord about{};
    pick([&](ChromalogControler&, HeadlessDesktop&) {
        runPluginMain(pickerSelectorAbout, &about, &second.data, &second.result, *this);
        EXPECT_EQ(sSPBasic, &basic);
    });
    expectNothingButALine();
}

TEST_F(CallsInACall, AreFollowedAgainOnceThePickIsOver) {
    pick([](ChromalogControler&, HeadlessDesktop&) { throw std::bad_alloc(); });
    second.make(pickerSelectorPick, *this);
    EXPECT_EQ(second.result, -108) << "the same step, in a pick of its own";
    EXPECT_EQ(shown, 2);
    handles.disposeProc(reinterpret_cast<Handle>(second.data));
}

} // namespace
} // namespace chromalog::test
