// What the dialog says of itself: what undo would do, what is out of date, which mode is on.
#include "dialog/pick_fixture.h"
#include "support/swatch_files.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>

namespace chromalog::test {
namespace {

using testing::ElementsAre;

class Readouts : public PickTest {
  protected:
    void dialog(const std::function<void()>& step) {
        pick([&](ChromalogControler& c, HeadlessDesktop& d) {
            controler = &c;
            desktop = &d;
            step();
        });
    }
    void send(const std::string& action) { desktop->forms.at("chromalogWindow")->send(action); }
    void answer(const std::string& name, const std::vector<int>& reds) {
        FileBuilder builder;
        builder.header(1, static_cast<int>(reds.size()));
        for (const int red : reds)
            builder.colour(0, red, 0, 0);
        std::ofstream(folder / name, std::ios::binary)
            .write(reinterpret_cast<const char*>(builder.bytes.data()),
                   static_cast<std::streamsize>(builder.bytes.size()));
        desktop->answerPanel(folder / name);
    }
    void load(const std::string& action, const std::string& name, const std::vector<int>& reds) {
        send(action);
        answer(name, reds);
    }
    /// The helps of undo and redo; the panel's own buttons say the same.
    std::string undo() { return help("undoButton", "undoAction"); }
    std::string redo() { return help("redoButton", "redoAction"); }
    std::string help(const std::string& button, const std::string& inPanel) {
        EXPECT_EQ(desktop->forms.at("ProtocolPanel")->outlet<HeadlessButton>(inPanel).help, of(button).help);
        return of(button).help;
    }
    HeadlessButton& of(const std::string& button) { return control<HeadlessButton>(*desktop, button); }
    std::vector<std::string> steps() {
        return desktop->forms.at("ProtocolPanel")->outlet<HeadlessRowList>("historySteps").rows;
    }
    CSwatchList& list1() { return controler->panels().one.view; }
    void drop(const Colour& colour, const DragSource* source = nullptr) {
        DragInfo info;
        info.source = source;
        info.pasteboard.colourType = true;
        info.pasteboard.colour = colour;
        list1().performDragOperation(info);
    }
    TemporaryFolder folder;
    ChromalogControler* controler = nullptr;
    HeadlessDesktop* desktop = nullptr;
};

TEST_F(Readouts, UndoAndRedoSayWhatTheyWouldDo) {
    dialog([&] {
        EXPECT_EQ(undo(), "nothing left to undo");
        EXPECT_EQ(redo(), "nothing left to redo");
        load("loadSwatch1:", "nord.aco", {1000, 2000});
        EXPECT_EQ(undo(), "Undo: Load nord.aco");
        send("doUndo:");
        EXPECT_EQ(undo(), "Undo: before Load");
        EXPECT_EQ(redo(), "Redo: Load nord.aco");
        send("doUndo:");
        EXPECT_EQ(undo(), "nothing left to undo");
        EXPECT_EQ(redo(), "Redo: before Load");
        send("doRedo:");
        send("doRedo:");
        EXPECT_EQ(redo(), "nothing left to redo");
        load("appendSwatch2:", "sud.aco", {3000});
        EXPECT_EQ(undo(), "Undo: Append sud.aco");
        send("sortHue1:");
        EXPECT_EQ(undo(), "Undo: Sort by hue");
        send("killSwatch1:");
        EXPECT_EQ(undo(), "Undo: Clear list");
    });
}

TEST_F(Readouts, APanelWithoutAFileChangedNothing) {
    dialog([&] {
        send("loadSwatch1:");
        EXPECT_EQ(undo(), "Undo: nothing changed") << "while the panel is open";
        desktop->answerPanel(std::nullopt);
        EXPECT_EQ(undo(), "Undo: nothing changed");
        send("doUndo:");
        EXPECT_EQ(undo(), "Undo: nothing changed") << "the first of its two steps";
        send("loadSwatch1:");
        desktop->answerPanel(folder / "missing.aco");
        EXPECT_EQ(undo(), "Undo: nothing changed");
    });
}

TEST_F(Readouts, ADropSaysWhatItDid) {
    dialog([&] {
        drop(Colour::rgb(0.5, 0, 0));
        EXPECT_EQ(undo(), "Undo: Drop of a color");
        desktop->onAlert = [&](const Alert&) { EXPECT_EQ(undo(), "Undo: nothing changed"); };
        drop(Colour::rgb(0.5, 0, 0));
        EXPECT_EQ(undo(), "Undo: nothing changed") << "the color was there";
        drop(Colour::rgb(0.5, 0, 0), &list1());
        EXPECT_EQ(undo(), "Undo: Move swatch");
        send("deleteSwatch1:");
        EXPECT_EQ(undo(), "Undo: Delete swatch");
    });
}

TEST_F(Readouts, TheHistorysOwnListHoldsEveryStepTheLatestFirst) {
    dialog([&] {
        EXPECT_THAT(steps(), ElementsAre("now"));
        load("loadSwatch1:", "nord.aco", {1000, 2000});
        send("sortAlpha1:");
        send("doUndo:");
        EXPECT_THAT(steps(),
                    ElementsAre("Redo: Sort by name", "now", "Undo: Load nord.aco", "Undo: before Load"));
        desktop->forms.at("ProtocolPanel")->send("dumpUndo");
        EXPECT_EQ(desktop->forms.at("ProtocolPanel")->outlet<HeadlessTextView>("undoView").text(), " ");
    });
}

TEST_F(Readouts, NoStepIsToldThatCannotBeUndone) {
    dialog([&] {
        for (int i = 0; i < 25; ++i)
            send("sortHue1:");
        for (int i = 0; i < 20; ++i)
            send("doUndo:");
        EXPECT_TRUE(of("undoButton").enabled()) << "kept";
        EXPECT_EQ(undo(), "nothing left to undo");
    });
}

} // namespace
} // namespace chromalog::test
