// The lists in the whole dialog: their actions, their history, and what shows them.
#include "dialog/pick_fixture.h"
#include "support/swatch_files.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>

namespace chromalog::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class ListActions : public PickTest {
  protected:
    using Step = std::function<void()>;
    /// One pick in which the test's own words are sent to the dialog.
    void dialog(const Step& step) {
        pick([&](ChromalogControler& c, HeadlessDesktop& d) {
            controler = &c;
            desktop = &d;
            step();
        });
    }
    void send(const std::string& action) { desktop->forms.at("chromalogWindow")->send(action); }
    std::string file(const std::string& name, const FileBuilder& builder) {
        std::ofstream(folder / name, std::ios::binary)
            .write(reinterpret_cast<const char*>(builder.bytes.data()),
                   static_cast<std::streamsize>(builder.bytes.size()));
        return folder / name;
    }
    void load(const std::string& action, const std::string& name, const std::vector<std::string>& swatches) {
        FileBuilder builder;
        builder.header(2, static_cast<int>(swatches.size()));
        for (std::size_t i = 0; i < swatches.size(); ++i)
            builder.colour(0, 65535, static_cast<int>(i) * 5000, 0).name(swatches[i]);
        send(action);
        desktop->answerPanel(file(name, builder));
    }
    SwatchPanel& panel(int list) { return list == 1 ? controler->panels().one : controler->panels().two; }
    std::vector<std::string> names(int list) {
        std::vector<std::string> all;
        for (const FCOStruct& record : panel(list).view.shownRecords())
            all.emplace_back(nameBytes(record));
        return all;
    }
    std::string text(const std::string& outlet) {
        return control<HeadlessTextField>(*desktop, outlet).text();
    }
    bool enabled(const std::string& button) { return control<HeadlessButton>(*desktop, button).enabled(); }

    TemporaryFolder folder;
    ChromalogControler* controler = nullptr;
    HeadlessDesktop* desktop = nullptr;
};

TEST_F(ListActions, FilePanelsSayWhatTheyAreFor) {
    dialog([&] {
        const std::pair<const char*, const char*> opened[] = {
            {"loadSwatch1:", "Load into list 1"},        {"loadSwatch2:", "Load into list 2"},
            {"appendSwatch1:", "Append to list 1"},      {"appendSwatch2:", "Append to list 2"},
            {"loadASE:", "Load color book into list 1"}, {"importPalette1:", "Import into list 1"},
            {"importPalette2:", "Import into list 2"}};
        for (const auto& [action, title] : opened) {
            send(action);
            EXPECT_EQ(desktop->openPanels.back().title, title) << action;
        }
        for (const char* list : {"1", "2"}) {
            send(std::string("saveSwatch") + list + ":");
            EXPECT_EQ(desktop->savePanels.back().title, std::string("Save list ") + list);
        }
    });
}

TEST_F(ListActions, UndoAfterALoadBringsBackListCountAndNameAndRedoTheLoadedOne) {
    dialog([&] {
        EXPECT_FALSE(enabled("undoButton") || enabled("redoButton"));
        load("loadSwatch1:", "one.aco", {"a", "b", "c"});
        load("loadSwatch1:", "two.aco", {"x"});
        EXPECT_EQ(controler->history().undoSteps(), 4) << "two steps for each load";
        send("doUndo:");
        EXPECT_EQ(names(1), (std::vector<std::string>{"a", "b", "c"}));
        EXPECT_EQ(text("swatch1Name"), "one.aco");
        EXPECT_EQ(controler->record().numColors1, 3);
        EXPECT_TRUE(enabled("undoButton") && enabled("redoButton"));
        send("doRedo:");
        EXPECT_THAT(names(1), ElementsAre("x"));
        EXPECT_EQ(text("swatch1Name"), "two.aco");
        EXPECT_FALSE(enabled("redoButton"));
        for (int i = 0; i < 4; ++i)
            send("doUndo:");
        EXPECT_THAT(names(1), IsEmpty());
        EXPECT_EQ(text("swatch1Name"), "one.aco") << "an empty list leaves its name field";
        EXPECT_FALSE(enabled("undoButton"));
    });
}

TEST_F(ListActions, ASaveProposesTheNameThatTheListShowsNow) {
    const auto proposed = [&](const std::string& action = "saveSwatch1:") {
        send(action);
        desktop->answerPanel(std::nullopt);
        return desktop->savePanels.back().suggestedName;
    };
    dialog([&] {
        EXPECT_EQ(proposed(), "");
        load("loadSwatch1:", "one.aco", {"a", "b", "c"});
        load("loadSwatch1:", "two.aco", {"x"});
        EXPECT_EQ(proposed(), "two.aco");
        send("doUndo:");
        send("doUndo:");
        EXPECT_EQ(proposed(), "one.aco") << "two.aco would be replaced by the list of one.aco";
        EXPECT_EQ(proposed("saveSwatch2:"), "");
        send("doRedo:");
        send("doRedo:");
        EXPECT_EQ(proposed(), "two.aco");
    });
    dialog([&] { EXPECT_EQ(proposed(), "two.aco") << "from the preferences"; });
}

TEST_F(ListActions, AStoredNameThatIsAPathProposesItsLastPart) {
    dialog([&] {
        load("loadSwatch1:", "one.aco", {"a"});
        const std::string path = "/etc/../shadow";
        std::copy(path.begin(), path.end(), controler->record().swatchName1 + 1);
        controler->record().swatchName1[0] = static_cast<std::uint8_t>(path.size());
        send("sortAlpha1:");
        send("doUndo:");
        EXPECT_EQ(text("swatch1Name"), path);
        send("saveSwatch1:");
        EXPECT_EQ(desktop->savePanels.back().suggestedName, "shadow.aco");
    });
}

TEST_F(ListActions, AnUndoEndsAListNameOf255InTheNextField) {
    dialog([&] {
        load("loadSwatch1:", "one.aco", {"a"});
        GlobalRecord& record = controler->record();
        std::fill(std::begin(record.swatchName1), std::end(record.swatchName1), std::uint8_t{'n'});
        record.swatchName1[0] = 255;
        record.swatchName2[0] = 4;
        send("sortAlpha1:");
        EXPECT_EQ(record.swatchName2[0], 4) << "only what shows the name ends it";
        send("doUndo:");
        EXPECT_EQ(text("swatch1Name"), std::string(255, 'n'));
        EXPECT_EQ(record.swatchName2[0], 0) << "the first byte after the name field";
    });
}

TEST_F(ListActions, UndoRestoresTheChoiceOfColourButNotTheButtonsTitle) {
    dialog([&] {
        send("killSwatch1:");
        controler->toggleSecondColor();
        EXPECT_EQ(control<HeadlessButton>(*desktop, "okButton").title(), "Use 2nd color");
        EXPECT_EQ(control<HeadlessButton>(*desktop, "toggleSecondColor").state(), 1);
        send("doUndo:");
        EXPECT_EQ(controler->record().useSecondColor, 0);
        EXPECT_EQ(control<HeadlessButton>(*desktop, "toggleSecondColor").state(), 0) << "what OK will return";
        EXPECT_EQ(control<HeadlessButton>(*desktop, "okButton").title(), "Use 2nd color");
        control<HeadlessTextField>(*desktop, "firstR").type("1"); // whatever refreshes it
        EXPECT_EQ(control<HeadlessButton>(*desktop, "okButton").title(), "Use 1st color");
    });
}

TEST_F(ListActions, AClearLeavesTheStoredCountUntilThePreferencesAreSaved) {
    dialog([&] {
        load("loadSwatch2:", "one.aco", {"a", "b"});
        send("killSwatch2:");
        EXPECT_EQ(panel(2).view.getNumberOfColors(), 0);
        EXPECT_EQ(controler->record().numColors2, 2);
        controler->cancelPressed();
    });
    EXPECT_EQ(globals().numColors2, 0);
}

TEST_F(ListActions, ABookSetsTheStoredCountAloneAndTheNextStepOverwritesIt) {
    FileBuilder book;
    book.bookHeader(2, 0).bookColour("n", "KEY001", {1, 2, 3}).bookColour("n", "KEY002", {1, 2, 3});
    dialog([&] {
        send("loadASE:");
        desktop->answerPanel(file("Book.acb", book));
        EXPECT_EQ(controler->record().numColors1, 2);
        EXPECT_EQ(panel(1).view.getNumberOfColors(), 0);
        EXPECT_EQ(controler->history().undoSteps(), 0);
        send("sortAlpha1:");
        EXPECT_EQ(controler->record().numColors1, 0);
    });
}

TEST_F(ListActions, EditDeleteAndWriteWorkOnTheSelectedSwatch) {
    dialog([&] {
        load("loadSwatch1:", "one.aco", {"red", "brick", "rust"});
        load("loadSwatch2:", "two.aco", {"x", "y"});
        panel(1).view.setSelectedColor(2);
        send("editSwatch:");
        EXPECT_EQ(text("colorName"), "rust");
        panel(1).view.setSelectedColor(9);
        send("editSwatch:");
        EXPECT_EQ(text("colorName"), "rust") << "past the count there is no swatch";
        panel(1).view.setSelectedColor(0);
        send("writeToSwatch:");
        EXPECT_THAT(names(1), ElementsAre("rust", "brick", "rust"));
        EXPECT_EQ(controler->record().swatchList1[0].SRed, -1);
        send("deleteSwatch1:");
        EXPECT_THAT(names(1), ElementsAre("brick", "rust"));
        send("deleteSwatch2:");
        EXPECT_THAT(names(2), ElementsAre("y"));
        EXPECT_THAT(controler->history().manager()->undoNames(),
                    ElementsAre("!Load Swatch!", "!LoadSwatch!", "!Load Swatch!", "!LoadSwatch!",
                                "!Swatch Color Changed!", "!Swatch Color deleted!",
                                "!Swatch Color deleted!"));
    });
}

TEST_F(ListActions, StepsCarryTheTranslatedLabel) {
    prepare = [](HeadlessDesktop& d) { d.translations["!Sort Swatch Hue!"] = "!Sort by hue!"; };
    dialog([&] {
        send("sortHue2:");
        EXPECT_THAT(controler->history().manager()->undoNames(), ElementsAre("!Sort by hue!"));
    });
}

TEST_F(ListActions, EveryStepSavesThePreferencesFirst) {
    dialog([&] {
        load("loadSwatch1:", "one.aco", {"a"});
        std::filesystem::remove(preferences());
        send("killSwatch1:");
        ASSERT_TRUE(std::filesystem::exists(preferences()));
        std::ifstream in(preferences(), std::ios::binary);
        in.seekg(3'040'006);
        EXPECT_EQ(in.get(), 1) << "the state before the change";
    });
}

TEST_F(ListActions, TheNearestSwatchFollowsTheSecondColourAlone) {
    dialog([&] {
        load("loadSwatch1:", "one.aco", {"first", "second", "third"});
        EXPECT_NE(text("nearName"), "third") << "a load does not move it";
        controler->colours().changeSecondColor(Colour::rgb(1, 10'000 / 65535.0, 0));
        EXPECT_EQ(text("nearName"), "third");
        EXPECT_EQ(text("nearR"), "255");
        EXPECT_EQ(control<HeadlessLevelIndicator>(*desktop, "baterieSwatch").value(), 10);
        send("killSwatch1:");
        EXPECT_EQ(text("nearName"), "third");
        controler->colours().changeSecondColor(Colour::rgb(0, 0, 1));
        EXPECT_EQ(text("nearName"), "first") << "an empty list shows its record 0";
        EXPECT_LT(control<HeadlessLevelIndicator>(*desktop, "baterieSwatch").value(), -1000);
    });
}

TEST_F(ListActions, TypingInASearchFieldFindsAfterAPause) {
    dialog([&] {
        load("loadSwatch1:", "one.aco", {"Light Blue", "blue", "Blueberry"});
        control<HeadlessTextField>(*desktop, "findColor1").type("Blue");
        desktop->advance(0.3);
        EXPECT_EQ(text("found1"), " 2 found");
        EXPECT_EQ(panel(1).view.getSelected(), 0);
        control<HeadlessStepper>(*desktop, "seachStep1").current = 1;
        send("jumpFirst:");
        EXPECT_EQ(panel(1).view.getSelected(), 2);
        EXPECT_THAT(desktop->sounds, ElementsAre("Frog"));
        load("loadSwatch2:", "two.aco", {"a", "b"});
        control<HeadlessTextField>(*desktop, "findColor2").type("b");
        desktop->advance(0.3);
        EXPECT_EQ(panel(2).view.getSelected(), 1);
        send("jumpSecond:");
        EXPECT_EQ(text("found2"), " 1 found");
    });
}

TEST_F(ListActions, ASearchThatWaitsEndsWithThePick) {
    dialog([&] {
        control<HeadlessTextField>(*desktop, "findColor1").type("Blue");
        controler->cancelPressed();
    });
    EXPECT_EQ(gChromalogControler, nullptr);
}

TEST_F(ListActions, ADropOfTheFirstColourTakesItsName) {
    dialog([&] {
        load("loadSwatch1:", "one.aco", {"Twelve chars"});
        panel(1).view.mouseDown({{10, 10}});
        DragInfo info;
        info.location = {10, 10};
        info.pasteboard.colourType = true;
        info.pasteboard.colour = controler->colours().getFirstColor();
        panel(2).view.performDragOperation(info);
        EXPECT_THAT(names(2), ElementsAre("Twelve ch"));
        EXPECT_EQ(controler->history().undoSteps(), 3) << "one step for the drop";
        send("doUndo:");
        EXPECT_THAT(names(2), IsEmpty());
        send("doRedo:");
        EXPECT_THAT(names(2), ElementsAre("Twelve ch"));
    });
}

int versionCalls = 0;

TEST_F(ListActions, OneLoadAsksTheHostsVersionOnceAndReadsItsBooks) {
    static const PropertyProcs properties{
        1, 2,
        [](std::uint32_t, std::uint32_t, std::int32_t, std::intptr_t* simple, Handle*) -> std::int16_t {
            ++versionCalls;
            *simple = 16 << 16;
            return 0;
        },
        nullptr};
    record.propertyProcs = const_cast<PropertyProcs*>(&properties);
    prepare = [&](HeadlessDesktop& d) { d.books = folder.path(); };
    FileBuilder book, aco;
    book.bookHeader(1, 0).bookColour("n", "KEY001", {1, 2, 3});
    file("TRUMATCH.acb", book);
    aco.header(1, 1).reference(5, "KEY001").header(2, 1).reference(5, "KEY001").name("Warm");
    versionCalls = 0;
    dialog([&] {
        send("loadSwatch1:");
        desktop->answerPanel(file("refs.aco", aco));
        EXPECT_EQ(controler->record().swatchList1[0].SGreen, 2 * 256 * 256);
        EXPECT_EQ(versionCalls, 1);
    });
}

TEST_F(ListActions, AHostWithoutPropertiesFindsNoBook) {
    prepare = [&](HeadlessDesktop& d) { d.books = folder.path(); };
    FileBuilder aco;
    aco.header(1, 1).reference(5, "KEY001").header(2, 1).reference(5, "KEY001").name("Warm");
    dialog([&] {
        send("loadSwatch1:");
        desktop->answerPanel(file("refs.aco", aco));
        EXPECT_THAT(names(1), ElementsAre("Warm"));
        EXPECT_EQ(controler->record().swatchList1[0].SRed, 0);
    });
}

TEST_F(ListActions, ThePanelIsShownFromTheDialogAndUndoesToo) {
    dialog([&] {
        auto& panelForm = *desktop->forms.at("ProtocolPanel");
        auto& panel = panelForm.outlet<HeadlessWindow>("protocolWindow");
        EXPECT_FALSE(panel.visible());
        send("showProtocolWindow");
        EXPECT_TRUE(panel.visible());
        load("loadSwatch1:", "one.aco", {"a"});
        panelForm.send("undoAction:");
        EXPECT_THAT(names(1), IsEmpty());
        panelForm.send("redoAction:");
        EXPECT_THAT(names(1), ElementsAre("a"));
        send("dumpUndo");
        EXPECT_EQ(panelForm.outlet<HeadlessTextView>("undoView").text(), " ");
    });
}

TEST_F(ListActions, WithoutThePanelsFormTheDialogStillWorks) {
    prepare = [](HeadlessDesktop& d) { d.missingForms = {"ProtocolPanel"}; };
    dialog([&] {
        EXPECT_THAT(desktop->logLines, Contains("failed to load ProtocolPanel xib"));
        load("loadSwatch1:", "one.aco", {"a"});
        send("doUndo:");
        EXPECT_THAT(names(1), ElementsAre("a")) << "steps are only counted";
        EXPECT_EQ(controler->history().undoSteps(), 2);
        send("showProtocolWindow");
    });
}

} // namespace
} // namespace chromalog::test
