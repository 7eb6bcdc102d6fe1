// Random sessions in the whole dialog, beside a plain model of the two lists.
#include "dialog/list_model.h"
#include "dialog/pick_fixture.h"
#include "support/recording_canvas.h"
#include "support/swatch_files.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>

#include <random>

namespace chromalog::test {
namespace {

/// One session: an operation at a time on the dialog, as its controls and views would send it, and on the
/// model.
class Session {
  public:
    Session(ChromalogControler& dialog, HeadlessDesktop& desktop, unsigned seed, bool large)
        : dialog_(dialog), desktop_(desktop), random_(seed) {
        model.selected = {0, 0};
        if (large)
            makeFiles(4'990, 4'999, 600, 12);
        else
            makeFiles(0, 3, 17, 40);
    }

    void step() {
        using Operation = void (Session::*)();
        static constexpr Operation kOperations[] = {
            &Session::load,  &Session::append, &Session::drop, &Session::drop,   &Session::drop,
            &Session::drop,  &Session::move,   &Session::move, &Session::erase,  &Session::erase,
            &Session::edit,  &Session::edit,   &Session::sort, &Session::search, &Session::search,
            &Session::click, &Session::clear,  &Session::undo, &Session::undo,   &Session::redo,
            &Session::undo,  &Session::redo,   &Session::draw,
        };
        list_ = pick(2);
        (this->*kOperations[pick(std::size(kOperations))])();
    }

    /// Everything that the program holds is what the model holds.
    void compare(bool whole) {
        GlobalRecord& data = dialog_.record();
        FCOStruct* const lists[] = {data.swatchList1, data.swatchList2};
        for (int i = 0; i < 2; ++i) {
            const int reach =
                whole ? kListCapacity : std::min(kListCapacity, std::max(model.shown[i], 60) + 2);
            ASSERT_EQ(std::memcmp(lists[i], model.now.lists[i].data(), reach * sizeof(FCOStruct)), 0) << last;
            ASSERT_EQ(view(i).getNumberOfColors(), model.shown[i]) << last;
            ASSERT_EQ(view(i).getSelected(), model.selected[i]) << last;
            const std::uint8_t* name = i == 0 ? data.swatchName1 : data.swatchName2;
            ASSERT_EQ(std::string(reinterpret_cast<const char*>(name) + 1, name[0]), model.now.storedNames[i])
                << last;
        }
        ASSERT_EQ(data.numColors1, model.now.stored[0]) << last;
        ASSERT_EQ(data.numColors2, model.now.stored[1]) << last;
        ASSERT_EQ(dialog_.history().manager()->undoNames().size(), model.undo.size()) << last;
        ASSERT_EQ(dialog_.history().manager()->redoNames().size(), model.redo.size()) << last;
        ASSERT_EQ(dialog_.history().undoSteps(), model.undoCount) << last;
        ASSERT_EQ(dialog_.history().undoStepsAtMost(), model.maxUndo) << last;
        ASSERT_EQ(static_cast<int>(desktop_.alerts.size()), model.alerts) << last;
    }

    void undoAll() {
        if (model.undo.empty()) return;
        const ModelRecord oldest = model.undo.front();
        while (!model.undo.empty() && model.undoCount > 0)
            undo();
        // Restoring a record ends its list names; nothing else may differ from the oldest step still held.
        for (int i = 0; i < 2; ++i)
            EXPECT_EQ(std::memcmp(i == 0 ? dialog_.record().swatchList1 : dialog_.record().swatchList2,
                                  oldest.lists[i].data(), kListCapacity * sizeof(FCOStruct)),
                      0);
        EXPECT_EQ(dialog_.record().numColors1, oldest.stored[0]);
        EXPECT_EQ(dialog_.record().numColors2, oldest.stored[1]);
    }

    ListModel model;
    std::string last; ///< the operation that came last

  private:
    int pick(std::size_t below) { return static_cast<int>(random_() % below); }
    bool chance(int percent) { return pick(100) < percent; }
    CSwatchList& view(int list) { return (list == 0 ? dialog_.panels().one : dialog_.panels().two).view; }
    CSwatchList& view() { return view(list_); }
    void send(const std::string& action) {
        last = action + std::to_string(list_ + 1) + ":";
        desktop_.forms.at("chromalogWindow")->send(last);
    }
    int row() { return pick(model.there(list_) + 3); }

    void makeFiles(int a, int b, int c, int d) {
        for (const int count : {a, b, c, d}) {
            FileBuilder file;
            file.header(2, count);
            Swatches& swatches = files_.emplace_back();
            for (int i = 0; i < count; ++i) {
                static constexpr std::string_view kWords[] = {"Blue",    "red", "Light Blue",
                                                              "Gr\xFCn", "",    "a"};
                std::string name(kWords[pick(6)]);
                if (chance(5)) name.assign(255, 'w');
                FCOStruct& s = swatches.emplace_back();
                s.Namen[0] = static_cast<std::uint8_t>(name.size());
                std::copy(name.begin(), name.end(), s.Namen + 1);
                s.SRed = pick(65'536), s.SGreen = pick(4) * 20'000, s.SBlue = pick(4) * 20'000;
                file.colour(0, static_cast<int>(s.SRed), static_cast<int>(s.SGreen),
                            static_cast<int>(s.SBlue))
                    .name(name);
            }
            const std::string path = folder_ / (std::to_string(files_.size()) + ".aco");
            std::ofstream(path, std::ios::binary)
                .write(reinterpret_cast<const char*>(file.bytes.data()),
                       static_cast<std::streamsize>(file.bytes.size()));
        }
    }

    void loadFrom(int start, const std::string& action) {
        send(action);
        model.recordStep();
        model.recordStep();
        if (chance(15)) return desktop_.answerPanel(std::nullopt);
        const std::size_t file = static_cast<std::size_t>(pick(files_.size()));
        const std::string name = std::to_string(file + 1) + ".aco";
        desktop_.answerPanel(folder_ / name);
        model.load(list_, start, files_[file], name);
    }
    void load() { loadFrom(0, "loadSwatch"); }
    void append() {
        if (model.shown[list_] > kListCapacity) return load(); // the count would leave its 16 bits
        loadFrom(model.shown[list_], "appendSwatch");
    }

    void clear() {
        if (chance(70)) return drop(); // a session of empty lists would test little
        send("killSwatch");
        model.recordStep();
        model.shown[list_] = 0;
    }

    void sort() {
        const bool hue = chance(50);
        send(hue ? "sortHue" : "sortAlpha");
        model.recordStep();
        if (hue)
            model.sort(list_, [](const FCOStruct& a, const FCOStruct& b) { return hueOf(a) < hueOf(b); });
        else
            model.sort(list_, [](const FCOStruct& a, const FCOStruct& b) {
                const std::string x = ListModel::text_(a), y = ListModel::text_(b);
                return std::lexicographical_compare(x.begin(), x.end(), y.begin(), y.end(),
                                                    [](unsigned char p, unsigned char q) { return p < q; });
            });
    }
    static float hueOf(const FCOStruct& s) {
        const auto c = [](std::int64_t v) { return static_cast<float>(v) / 65535.0; };
        return static_cast<float>(Colour::rgb(c(s.SRed), c(s.SGreen), c(s.SBlue)).hue());
    }

    void drop() {
        last = "drop";
        DragInfo info;
        const int to = row();
        info.location = {10, 22.0 * to + 10};
        info.pasteboard.colourType = true;
        Colour c = chance(20) ? dialog_.colours().getFirstColor()
                              : Colour::rgb(pick(12) / 11.0, pick(12) / 11.0, random_() / 4294967296.0);
        if (chance(30) && model.shown[list_] > 0) { // close to a swatch of the list
            const FCOStruct& near = model.now.lists[list_][pick(model.there(list_))];
            c = Colour::rgb((near.SRed + pick(14)) / 65535.0, near.SGreen / 65535.0, near.SBlue / 65535.0);
        }
        info.pasteboard.colour = c;
        const bool named = chance(50);
        std::string name = "dropped " + std::to_string(pick(100)) + std::string(chance(5) ? 300 : 0, 'x');
        if (named) {
            info.pasteboard.textType = true;
            info.pasteboard.text = name;
        } else {
            const bool isFirst = c.sameRgb(dialog_.colours().getFirstColor());
            name = isFirst ? dialog_.colours().colorName->text() : "New Color";
        }
        view().performDragOperation(info);
        model.recordStep();
        model.drop(list_, to, {c.red(), c.green(), c.blue()}, plain(name),
                   named ? std::nullopt : std::optional(9));
    }
    /// The names of this test hold one letter that ASCII does not have, as the first colour's field shows it.
    static std::string plain(std::string name) {
        for (std::size_t at; (at = name.find("\u00b8")) != name.npos;)
            name.replace(at, 2, "?");
        return name;
    }

    void move() {
        last = "move";
        DragInfo info;
        const int to = row();
        info.location = {10, 22.0 * to + 10};
        info.source = &view();
        info.pasteboard.colourType = true;
        info.pasteboard.colour = Colour();
        view().performDragOperation(info);
        model.recordStep();
        model.moveWithin(list_, to);
    }

    void erase() {
        send("deleteSwatch");
        model.erase(list_);
    }

    void edit() {
        last = "writeToSwatch:";
        desktop_.forms.at("chromalogWindow")->send(last);
        const Colour& c = dialog_.colours().getFirstColor();
        model.recordStep();
        model.overwrite({c.red(), c.green(), c.blue()}, plain(dialog_.colours().colorName->text()));
    }

    void search() {
        auto& field = control<HeadlessTextField>(desktop_, "findColor" + std::to_string(list_ + 1));
        if (chance(40)) {
            last = "next hit";
            field.onReturn();
            return model.nextHit(list_);
        }
        static const std::string kTexts[] = {"Blue", "e", "dropped", "nothing", "", "New"};
        const std::string& text = kTexts[pick(6)];
        last = "search " + text;
        field.type(text);
        desktop_.advance(0.3);
        model.search(list_, text);
    }

    void click() {
        last = "click";
        const int at = row();
        view().mouseDown({{10, 22.0 * at + 10}});
        model.selected[list_] = at;
    }

    void draw() {
        last = "draw";
        RecordingCanvas canvas(true, {0, 0, 200, 100});
        view().drawRect(canvas);
        model.endNames(list_, model.there(list_));
    }

    void undo() {
        last = "doUndo:";
        const bool fromPanel = chance(30);
        desktop_.forms.at(fromPanel ? "ProtocolPanel" : "chromalogWindow")
            ->send(fromPanel ? "undoAction:" : last);
        model.undoStep();
    }

    void redo() {
        last = "doRedo:";
        const bool fromPanel = chance(30);
        desktop_.forms.at(fromPanel ? "ProtocolPanel" : "chromalogWindow")
            ->send(fromPanel ? "redoAction:" : last);
        model.redoStep();
    }

    ChromalogControler& dialog_;
    HeadlessDesktop& desktop_;
    std::mt19937 random_;
    TemporaryFolder folder_;
    std::vector<Swatches> files_;
    int list_ = 0; ///< 0 or 1: the list that the operation is on
};

class RandomSession : public PickTest {
  protected:
    void run(unsigned seed, int steps, bool large) {
        prepare = [](HeadlessDesktop& d) { d.applications.clear(); }; // no file: it has its own tests
        pick([=](ChromalogControler& dialog, HeadlessDesktop& desktop) {
            Session session(dialog, desktop, seed, large);
            session.model.now.stored = {dialog.record().numColors1, dialog.record().numColors2};
            for (int i = 0; i < steps && !HasFatalFailure(); ++i) {
                session.step();
                session.compare(i % 64 == 0 || large);
            }
            if (HasFatalFailure()) return;
            session.compare(true);
            session.undoAll();
            session.compare(true);
        });
    }
};

/// A quarter of 100 sessions of 1,000 operations each, so that the quarters run side by side.
class RandomSessions : public RandomSession, public testing::WithParamInterface<unsigned> {};

TEST_P(RandomSessions, AQuarterOf100000OperationsAgreesWithThePlainModel) {
    for (unsigned seed = GetParam(); seed < GetParam() + 25 && !HasFatalFailure(); ++seed) {
        TearDown();
        data = 0;
        SetUp();
        run(seed, 1'000, false);
    }
}
INSTANTIATE_TEST_SUITE_P(Quarters, RandomSessions, testing::Values(1, 26, 51, 76));

TEST_F(RandomSession, FullListsAgreeWithThePlainModel) {
    run(7'000, 1'500, true);
}

} // namespace
} // namespace chromalog::test
