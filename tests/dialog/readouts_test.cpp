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
    /// All of the readout, or none of it.
    bool nearestIsDimmed() {
        const bool dimmed = control<HeadlessColorWell>(*desktop, "nearColor").dimmed;
        EXPECT_EQ(control<HeadlessTextField>(*desktop, "nearName").dimmed, dimmed);
        EXPECT_EQ(control<HeadlessLevelIndicator>(*desktop, "baterieSwatch").dimmed, dimmed);
        for (const char* field : {"nearR", "nearG", "nearB", "nearC", "nearM", "nearY", "nearK"})
            EXPECT_EQ(control<HeadlessTextField>(*desktop, field).dimmed, dimmed) << field;
        return dimmed;
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
        send("doUndo:");
        EXPECT_THAT(steps(),
                    ElementsAre("Redo: Sort by name", "Redo: Load nord.aco", "now", "Undo: before Load"));
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

TEST_F(Readouts, TheNearestSwatchIsDimmedOnceList1HasChanged) {
    dialog([&] {
        const auto expectDimmedBy = [&](const char* why, const std::function<void()>& change) {
            controler->colours().changeSecondColor(Colour::rgb(0.25, 0, 0));
            EXPECT_FALSE(nearestIsDimmed()) << "before " << why;
            const std::string before = control<HeadlessTextField>(*desktop, "nearR").text();
            change();
            EXPECT_TRUE(nearestIsDimmed()) << why;
            EXPECT_EQ(control<HeadlessTextField>(*desktop, "nearR").text(), before) << "not asked anew";
        };
        load("loadSwatch1:", "nord.aco", {60000, 2000, 30000});
        expectDimmedBy("a load", [&] { load("loadSwatch1:", "ost.aco", {40000, 10000, 30000}); });
        expectDimmedBy("a drop", [&] { drop(Colour::rgb(0, 1, 0)); });
        expectDimmedBy("an undo", [&] { send("doUndo:"); });
        expectDimmedBy("a redo", [&] { send("doRedo:"); });
        expectDimmedBy("a deletion", [&] { send("deleteSwatch1:"); });
        expectDimmedBy("a stored color", [&] { send("writeToSwatch:"); });
        controler->colours().changeSecondColor(Colour::rgb(0.25, 0, 0));
        list1().selectRow(1);
        load("loadSwatch2:", "west.aco", {1, 2, 3});
        list1().queryForColorsByName("");
        EXPECT_FALSE(nearestIsDimmed()) << "list 1 is as it was";
    });
}

TEST_F(Readouts, AnEmptyListHasNoNearestSwatch) {
    dialog([&] {
        EXPECT_FALSE(control<HeadlessTextField>(*desktop, "nearNone").hidden());
        EXPECT_TRUE(nearestIsDimmed());
        load("loadSwatch1:", "nord.aco", {30000});
        EXPECT_TRUE(control<HeadlessTextField>(*desktop, "nearNone").hidden());
        EXPECT_TRUE(nearestIsDimmed());
        const auto red = [&] { return control<HeadlessTextField>(*desktop, "nearR").text(); };
        const std::string before = red();
        send("refreshNearest:");
        EXPECT_FALSE(nearestIsDimmed());
        const std::string asked = red();
        EXPECT_NE(asked, before);
        send("killSwatch1:");
        EXPECT_FALSE(control<HeadlessTextField>(*desktop, "nearNone").hidden());
        EXPECT_EQ(red(), asked);
        send("doUndo:");
        EXPECT_TRUE(control<HeadlessTextField>(*desktop, "nearNone").hidden());
        EXPECT_FALSE(nearestIsDimmed()) << "the list is again the one that was asked";
    });
}

TEST_F(Readouts, AModesButtonIsPressedWhileTheModeIsItsOwn) {
    dialog([&] {
        const auto pressed = [&] {
            std::string names;
            for (const char* button : {"complementOn", "harmoniquesOn", "triComplementOn", "quadriOn"})
                if (of(button).state() == 1) names += button;
            return names;
        };
        /// A two-state button changes by itself before it sends its action.
        const auto press = [&](const std::string& button) {
            of(button).setState(1 - of(button).state());
            send(button + ":");
        };
        EXPECT_EQ(pressed(), "");
        for (const char* button : {"complementOn", "harmoniquesOn", "triComplementOn", "quadriOn"}) {
            press(button);
            EXPECT_EQ(pressed(), button);
        }
        press("quadriOn");
        EXPECT_EQ(pressed(), "quadriOn") << "no toggle";
        press("harmoniquesOn");
        press("harmoniquesOn");
        EXPECT_EQ(pressed(), "");
        EXPECT_EQ(controler->colours().getHarmonyMode(), 0);
    });
}

} // namespace
} // namespace chromalog::test
