// Palettes of every kind come into a list and go out of it.
#include "dialog/pick_fixture.h"

#include <gmock/gmock.h>

namespace chromalog::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class PaletteExchangeTest : public PickTest {
  protected:
    void SetUp() override {
        PickTest::SetUp();
        std::filesystem::create_directories(applications);
        write("a.gpl", "GIMP Palette\n255 0 0\tRed\n0 0 255\t\u017Bblue\n");
    }
    std::string path(const std::string& name) const { return applications / name; }
    void write(const std::string& name, const std::string& text) const {
        std::ofstream(path(name), std::ios::binary) << text;
    }
    std::string contents(const std::string& name) const {
        std::ifstream file(path(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    std::vector<std::uint8_t> bytesOf(const std::string& name) const {
        const std::string text = contents(name);
        return {text.begin(), text.end()};
    }
    static std::vector<std::string> names(ChromalogControler& c) {
        std::vector<std::string> names;
        for (int i = 0; i < c.panels().one.view.getNumberOfColors(); ++i)
            names.emplace_back(nameBytes(c.record().swatchList1[i]));
        return names;
    }
    /// Sends an operation that opens a panel; the step runs inside it, and Escape follows.
    static void inPanel(HeadlessDesktop& d, const std::string& form, const std::function<void()>& open,
                        const std::function<void(HeadlessForm&)>& step) {
        const auto rest = std::exchange(d.modalSteps, {});
        d.modalSteps.push_back([&] {
            step(*d.forms.at(form));
            d.stopModal(0);
        });
        open();
        d.modalSteps = rest;
    }
    static void press(LibraryView& view, double y) {
        MouseEvent event;
        event.location = {10, y};
        view.mouseDown(event);
    }
    static void type(LibraryView& view, Key key) {
        KeyEvent event;
        event.key = key;
        view.keyDown(event);
    }
    void bringIn(HeadlessDesktop& d, const std::string& file, const std::function<void(HeadlessForm&)>& step,
                 const std::string& action = "importPalette1:") const {
        d.forms.at("chromalogWindow")->send(action);
        inPanel(
            d, "ImportPanel", [&] { d.answerPanel(path(file)); }, step);
    }
};

TEST_F(PaletteExchangeTest, ThePanelTellsWhatComesBeforeAnythingChanges) {
    pick([this](ChromalogControler& c, HeadlessDesktop& d) {
        bringIn(d, "a.gpl", [](HeadlessForm& panel) {
            EXPECT_EQ(panel.outlet<HeadlessTextField>("importNote").text(),
                      "a.gpl: GIMP palette, 2 colors, into list 1");
            EXPECT_EQ(panel.outlet<HeadlessTextView>("importLoss").text(), "1 name changed\n");
            EXPECT_EQ(panel.outlet<HeadlessButton>("importReplace").title(), "Replace by 2");
        });
        EXPECT_THAT(d.openPanels.back().types, testing::IsSupersetOf({"aco", "ase", "gpl", "json", "soc"}));
        EXPECT_EQ(c.panels().one.view.getNumberOfColors(), 0);
        EXPECT_EQ(c.history().undoSteps(), 0) << "closed without a choice";
    });
}

TEST_F(PaletteExchangeTest, EachWayIsOneStepOfUndo) {
    write("b.hex", "#0000ff Blue again\n#00ff00 Green\n#00ff00 Green twice\n");
    pick([this](ChromalogControler& c, HeadlessDesktop& d) {
        bringIn(d, "a.gpl", [](HeadlessForm& panel) { panel.send("importReplace:"); });
        EXPECT_THAT(names(c), ElementsAre("Red", "Zblue"));
        EXPECT_EQ(c.record().swatchList1[1].SBlue, 65535);
        EXPECT_EQ(c.record().numColors1, 2);
        EXPECT_EQ(c.panels().one.view.getSwatchName(), "a.gpl");
        EXPECT_EQ(control<HeadlessTextField>(d, "swatch1Name").text(), "a.gpl");
        bringIn(d, "b.hex", [](HeadlessForm& panel) {
            EXPECT_EQ(panel.outlet<HeadlessButton>("importNew").title(), "Add new 1");
            panel.send("importNew:");
        });
        EXPECT_THAT(names(c), ElementsAre("Red", "Zblue", "Green"));
        EXPECT_EQ(c.panels().one.view.getSwatchName(), "a.gpl");
        bringIn(d, "b.hex", [](HeadlessForm& panel) { panel.send("importAppend:"); });
        EXPECT_EQ(c.panels().one.view.getNumberOfColors(), 6);
        EXPECT_THAT(c.history().manager()->undoNames(), ElementsAre("!Import!", "!Import!", "!Import!"));
        c.history().undoOutAction();
        EXPECT_THAT(names(c), ElementsAre("Red", "Zblue", "Green"));
        c.history().undoOutAction();
        c.history().undoOutAction();
        EXPECT_EQ(c.panels().one.view.getNumberOfColors(), 0);
    });
}

TEST_F(PaletteExchangeTest, EveryRowThatCameCanBeScrolledTo) {
    std::string many;
    for (int i = 10; i < 99; ++i)
        many += "#0000" + std::to_string(i) + " n\n";
    write("many.hex", many);
    write("more.hex", many + "#ffffff White\n");
    pick([this](ChromalogControler& c, HeadlessDesktop& d) {
        const CSwatchList& list = c.panels().one.view;
        bringIn(d, "many.hex", [](HeadlessForm& panel) { panel.send("importReplace:"); });
        EXPECT_EQ(list.frame().h, 22.0 * 90);
        bringIn(d, "more.hex", [](HeadlessForm& panel) { panel.send("importNew:"); });
        EXPECT_EQ(list.frame().h, 22.0 * 91);
        bringIn(d, "more.hex", [](HeadlessForm& panel) { panel.send("importAppend:"); });
        EXPECT_EQ(list.frame().h, 22.0 * 181);
    });
}

TEST_F(PaletteExchangeTest, AFullListTakesNoMore) {
    std::string many = "GIMP Palette\n";
    for (int i = 0; i < 5001; ++i)
        many += std::to_string(i % 256) + " " + std::to_string(i / 256) + " 0 n\n";
    write("many.gpl", many);
    pick([this](ChromalogControler& c, HeadlessDesktop& d) {
        bringIn(
            d, "many.gpl",
            [](HeadlessForm& panel) {
                EXPECT_EQ(panel.outlet<HeadlessTextView>("importLoss").text(),
                          "1 color left out for want of room\n");
                panel.send("importReplace:");
            },
            "importPalette2:");
        EXPECT_EQ(c.panels().two.view.getNumberOfColors(), 5000);
        bringIn(
            d, "a.gpl",
            [](HeadlessForm& panel) {
                EXPECT_FALSE(panel.outlet<HeadlessButton>("importAppend").enabled());
                EXPECT_FALSE(panel.outlet<HeadlessButton>("importNew").enabled());
                EXPECT_TRUE(panel.outlet<HeadlessButton>("importReplace").enabled());
            },
            "importPalette2:");
    });
}

TEST_F(PaletteExchangeTest, WhatIsNoPaletteIsSaidAndChangesNothing) {
    write("letter.txt", "Dear all");
    pick([this](ChromalogControler& c, HeadlessDesktop& d) {
        for (const char* name : {"letter.txt", "nowhere.gpl"}) {
            d.forms.at("chromalogWindow")->send("importPalette1:");
            d.answerPanel(path(name));
            EXPECT_THAT(d.statusLine().text(), HasSubstr(std::string(name) + " could not be read: "));
        }
        d.forms.at("chromalogWindow")->send("importPalette1:");
        d.answerPanel(std::nullopt);
        EXPECT_EQ(c.history().undoSteps(), 0);
        EXPECT_EQ(d.forms.count("ImportPanel"), 0u);
    });
}

TEST_F(PaletteExchangeTest, DroppedFilesOpenTheirImportOnceTheDropIsOver) {
    write("b.hex", "#00ff00 Green\n");
    pick([this](ChromalogControler& c, HeadlessDesktop& d) {
        CSwatchList& list = c.panels().two.view;
        EXPECT_TRUE(list.acceptsFiles());
        EXPECT_TRUE(list.filesDropped({path("a.gpl"), path("b.hex")}, false));
        EXPECT_EQ(d.forms.count("ImportPanel"), 0u) << "the other program waits for the end of the drop";
        inPanel(
            d, "ImportPanel", [&d] { d.advance(0.01); },
            [&](HeadlessForm& panel) {
                EXPECT_EQ(panel.outlet<HeadlessTextField>("importNote").text(),
                          "a.gpl: 2 files, 3 colors, into list 2");
                EXPECT_EQ(c.history().undoSteps(), 0);
                panel.send("importAppend:");
            });
        EXPECT_EQ(list.getNumberOfColors(), 3);
        EXPECT_THAT(c.history().manager()->undoNames(), ElementsAre("!Import!"));
        EXPECT_EQ(c.panels().one.view.getNumberOfColors(), 0);
    });
}

TEST_F(PaletteExchangeTest, ADroppedSwatchFileLoadsAtOnceWithShiftAlone) {
    const auto bytes =
        rulesOf(PaletteFormat::aco).write(rulesOf(PaletteFormat::gpl).read(bytesOf("a.gpl")).palette);
    write("a.ACO", {bytes.begin(), bytes.end()});
    pick([this](ChromalogControler& c, HeadlessDesktop& d) {
        CSwatchList& list = c.panels().one.view;
        EXPECT_TRUE(list.filesDropped({path("a.gpl"), path("a.ACO")}, true));
        EXPECT_THAT(c.history().manager()->undoNames(), ElementsAre("!Swatch File loaded!"));
        EXPECT_EQ(list.getSwatchName(), "a.ACO");
        d.advance(1);
        EXPECT_EQ(d.forms.count("ImportPanel"), 0u);
        EXPECT_TRUE(list.filesDropped({path("a.ACO")}, false));
        inPanel(
            d, "ImportPanel", [&d] { d.advance(0.01); },
            [](HeadlessForm& panel) {
                EXPECT_EQ(panel.outlet<HeadlessTextField>("importNote").text(),
                          "a.ACO: Swatch file, 2 colors, into list 1");
            });
        EXPECT_TRUE(list.filesDropped({path("a.gpl")}, true)) << "the key is about swatch files";
        inPanel(
            d, "ImportPanel", [&d] { d.advance(0.01); },
            [](HeadlessForm& panel) { panel.send("importReplace:"); });
        EXPECT_EQ(list.getSwatchName(), "a.gpl");
    });
}

TEST_F(PaletteExchangeTest, ADroppedFileThatIsNoPaletteIsRefusedAndSaid) {
    write("photo.jpg", "\xFF\xD8\xFF");
    pick([this](ChromalogControler& c, HeadlessDesktop& d) {
        for (const bool shift : {false, true})
            for (const char* name : {"photo.jpg", "nowhere.gpl"}) {
                d.statusLine().takeBack(StatusLine::About::files);
                EXPECT_FALSE(c.panels().one.view.filesDropped({path("a.gpl"), path(name)}, shift));
                EXPECT_THAT(d.statusLine().text(), HasSubstr(std::string(name) + " could not be read: "));
                d.advance(1);
            }
        EXPECT_EQ(d.forms.count("ImportPanel"), 0u);
        EXPECT_EQ(c.history().undoSteps(), 0);
    });
}

TEST_F(PaletteExchangeTest, AListGoesOutAsTheKindThatIsChosen) {
    pick([this](ChromalogControler&, HeadlessDesktop& d) {
        const auto choose = [&d](int row, const char* action) {
            inPanel(
                d, "ExportPanel", [&d] { d.forms.at("chromalogWindow")->send("exportPalette1:"); },
                [row, action](HeadlessForm& panel) {
                    auto& kinds = panel.outlet<HeadlessRowList>("exportKinds");
                    EXPECT_EQ(kinds.rows.at(3), "GIMP palette (.gpl): keeps everything");
                    EXPECT_EQ(kinds.rows.at(4),
                              "Color table (.act): 2 names lost; the palette's name is lost");
                    kinds.selected = row;
                    panel.send(action);
                });
        };
        bringIn(d, "a.gpl", [](HeadlessForm& panel) { panel.send("importReplace:"); });
        choose(9, "exportAll:");
        EXPECT_EQ(d.savePanels.back().suggestedName, "a.css");
        EXPECT_EQ(d.savePanels.back().extension, "css");
        d.answerPanel(path("out.css"));
        EXPECT_EQ(contents("out.css"), ":root {\n  --Red: #ff0000;\n  --Zblue: #0000ff;\n}\n");
        choose(8, "exportSelected:");
        d.answerPanel(path("out.hex"));
        EXPECT_EQ(contents("out.hex"), "#ff0000 Red\n");
        choose(8, "exportAll:");
        d.answerPanel(path("no/folder.hex"));
        EXPECT_THAT(d.statusLine().text(), HasSubstr("folder.hex was not written"));
    });
}

TEST_F(PaletteExchangeTest, RowsThatAreSelectedTogetherGoOutTogether) {
    write("four.hex", "#ff0000 Red\n#0000ff Blue\n#00ff00 Green\n#ffff00 Yellow\n");
    pick([this](ChromalogControler& c, HeadlessDesktop& d) {
        bringIn(
            d, "four.hex", [](HeadlessForm& panel) { panel.send("importReplace:"); }, "importPalette2:");
        CSwatchList& list = c.panels().two.view;
        const auto press = [&list](int row, bool shift) {
            MouseEvent event;
            event.location = {50, 22.0 * row + 15};
            event.shift = shift;
            list.mouseDown(event);
        };
        press(1, false);
        press(3, true);
        inPanel(
            d, "ExportPanel", [&d] { d.forms.at("chromalogWindow")->send("exportPalette2:"); },
            [](HeadlessForm& panel) {
                EXPECT_EQ(panel.outlet<HeadlessButton>("exportAll").title(), "Export all 4…");
                EXPECT_EQ(panel.outlet<HeadlessButton>("exportSelected").title(), "Export selected 3…");
                panel.outlet<HeadlessRowList>("exportKinds").selected = 8;
                panel.send("exportSelected:");
            });
        d.answerPanel(path("out.hex"));
        EXPECT_EQ(contents("out.hex"), "#0000ff Blue\n#00ff00 Green\n#ffff00 Yellow\n");
    });
}

TEST_F(PaletteExchangeTest, AnEmptyListHasNothingToExport) {
    pick([](ChromalogControler&, HeadlessDesktop& d) {
        inPanel(
            d, "ExportPanel", [&d] { d.forms.at("chromalogWindow")->send("exportPalette2:"); },
            [](HeadlessForm& panel) {
                EXPECT_FALSE(panel.outlet<HeadlessButton>("exportAll").enabled());
                EXPECT_FALSE(panel.outlet<HeadlessButton>("exportSelected").enabled());
            });
        EXPECT_TRUE(d.savePanels.empty());
    });
}

TEST_F(PaletteExchangeTest, TheLibraryFollowsItsFolderAndAClickLoads) {
    pick([this](ChromalogControler& c, HeadlessDesktop& d) {
        bringIn(d, "a.gpl", [](HeadlessForm& panel) { panel.send("importReplace:"); });
        d.forms.at("chromalogWindow")->send("keepInLibrary1:");
        d.forms.at("chromalogWindow")->send("keepInLibrary1:");
        EXPECT_EQ(d.statusLine().text(), "a 2.aco is in the library.");
        EXPECT_EQ(d.forms.count("LibraryPanel"), 0u) << "not shown yet";
        d.forms.at("chromalogWindow")->send("showLibrary2:");
        HeadlessForm& panel = *d.forms.at("LibraryPanel");
        EXPECT_EQ(panel.outlet<HeadlessTextField>("libraryNote").text(), "A click replaces list 2.");
        auto& view = dynamic_cast<LibraryView&>(*panel.views.at("library"));
        ASSERT_EQ(view.accessibleRowCount(), 2);
        EXPECT_EQ(view.accessibleRow(0).name, "a 2.aco");
        EXPECT_EQ(view.accessibleRow(0).value, "2 colors");
        write("chromalog/palettes/b.hex", "#00ff00 Green\n");
        write("chromalog/palettes/notes.txt", "no palette");
        d.advance(1.5);
        ASSERT_EQ(view.accessibleRowCount(), 3);
        const int steps = c.history().undoSteps();
        press(view, 100);
        EXPECT_EQ(c.panels().two.view.getNumberOfColors(), 1);
        EXPECT_EQ(c.panels().two.view.getSwatchName(), "b.hex");
        EXPECT_EQ(c.history().undoSteps(), steps + 1);
        press(view, 1000); // below the last row
        press(view, -1);
        EXPECT_EQ(c.history().undoSteps(), steps + 1);
        std::filesystem::remove(path("chromalog/palettes/b.hex"));
        press(view, 100); // before the next look
        EXPECT_THAT(d.statusLine().text(), HasSubstr("b.hex could not be read"));
        write("chromalog/palettes/.hidden.hex", "#00ff00 Green\n");
        auto& host = dynamic_cast<HeadlessViewHost&>(*view.host());
        const int before = host.redisplays;
        d.advance(1.5);
        EXPECT_EQ(view.accessibleRowCount(), 2);
        EXPECT_EQ(view.accessibleSelectedRow(), 1) << "the last of those that are left";
        EXPECT_GT(host.redisplays, before);
        type(view, Key::up);
        type(view, Key::down);
        type(view, Key::down);
        EXPECT_EQ(view.accessibleSelectedRow(), 1);
        type(view, Key::enter);
        EXPECT_EQ(c.panels().two.view.getSwatchName(), "a.aco");
    });
}

TEST_F(PaletteExchangeTest, TheLibrarysKeyboardStaysOnItsPaletteWhenOneComesBefore) {
    pick([this](ChromalogControler&, HeadlessDesktop& d) {
        d.forms.at("chromalogWindow")->send("showLibrary2:");
        auto& view = dynamic_cast<LibraryView&>(*d.forms.at("LibraryPanel")->views.at("library"));
        std::filesystem::create_directories(path("chromalog/palettes"));
        write("chromalog/palettes/b.hex", "#00ff00\n");
        d.advance(1.5);
        write("chromalog/palettes/a.hex", "#ff0000\n");
        d.advance(1.5);
        EXPECT_EQ(view.accessibleSelectedRow(), 1);
    });
}

TEST_F(PaletteExchangeTest, WhatOtherProgramsKeepIsShownAndNeverWritten) {
    std::filesystem::create_directories(path(".config/inkscape/palettes"));
    write(".config/inkscape/palettes/theirs.gpl", "GIMP Palette\n1 2 3\tA\n");
    std::vector<LibraryFolder> folders;
    for (const LibraryFolder& folder : foldersOfOtherPrograms(applications))
        if (folder.path.starts_with(applications.string())) folders.push_back(folder);
    ASSERT_EQ(folders.size(), 1u) << "of those that are there";
    const PaletteLibrary library(path("own"), folders);
    const std::uint64_t before = library.state();
    Palette palette;
    palette.title = "../a/b:";
    palette.colours.resize(1);
    EXPECT_EQ(library.keep(palette), "_a_b_.aco");
    EXPECT_NE(library.state(), before);
    const auto entries = library.entries();
    ASSERT_EQ(entries.size(), 2u);
    EXPECT_EQ(entries[0].label, "_a_b_.aco");
    EXPECT_EQ(entries[1].label, "theirs.gpl (Inkscape)");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folders[0].path), {}), 1);
    EXPECT_THROW(PaletteLibrary("", {}).keep(palette), PaletteError);
}

TEST_F(PaletteExchangeTest, ALibraryThatCannotBeMadeIsSaid) {
    write("chromalog", "a file");
    pick([this](ChromalogControler&, HeadlessDesktop& d) {
        d.forms.at("chromalogWindow")->send("keepInLibrary2:");
        EXPECT_THAT(d.statusLine().text(), HasSubstr("The list is empty"));
        bringIn(
            d, "a.gpl", [](HeadlessForm& panel) { panel.send("importReplace:"); }, "importPalette2:");
        d.forms.at("chromalogWindow")->send("keepInLibrary2:");
        EXPECT_THAT(d.statusLine().text(), HasSubstr("the library's folder cannot be made: "));
    });
}

TEST_F(PaletteExchangeTest, AMissingFormIsLogged) {
    prepare = [](HeadlessDesktop& d) { d.missingForms = {"ImportPanel", "ExportPanel", "LibraryPanel"}; };
    pick([this](ChromalogControler& c, HeadlessDesktop& d) {
        d.forms.at("chromalogWindow")->send("importPalette1:");
        d.answerPanel(path("a.gpl"));
        d.forms.at("chromalogWindow")->send("exportPalette1:");
        EXPECT_THAT(d.logLines, testing::IsSupersetOf({"failed to load the form ImportPanel",
                                                       "failed to load the form ExportPanel"}));
        EXPECT_EQ(c.history().undoSteps(), 0);
    });
}

} // namespace
} // namespace chromalog::test
