// What stands on the screen is what a fresh rendering shows, view by view, after every kind of change: a
// picture that is rendered anew does not tell whether anything was marked for redraw.
#include "e2e/dialog_on_server.h"

#include "drive/prompts.h"

#include <QScreen>

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

namespace chromalog::test {
namespace {

class OnTheScreen : protected DialogOnServer, public testing::TestWithParam<const char*> {
  protected:
    OnTheScreen() : DialogOnServer(GetParam()) {}

    void SetUp() override {
        if (!server.runs()) GTEST_SKIP() << "needs Xvfb";
        ASSERT_TRUE(open());
        compare("the dialog has opened");
    }

    /// Performs commands of a script; the screen is looked at after each.
    void play(const std::vector<std::string>& lines) {
        for (const std::string& line : lines) {
            perform(line);
            if (QFileDialog* panel = desktop->panels().current())
                drive::answer(*panel, QString::fromStdString(folder / "swatches.aco"));
            compare(line);
        }
    }

    void scrollTo(double y) {
        for (SwatchPanel* panel : controler->panels().both())
            panel->scroller->scrollToPoint({0, y});
        compare("scrolled to " + std::to_string(y));
    }

    /// Where an outlet shows on the screen, in device pixels; nothing of it where it is hidden.
    QRect place(const char* outlet) const {
        const QWidget& widget = *desktop->widget(outlet);
        const QRect shown = widget.visibleRegion().boundingRect();
        const double scale = widget.devicePixelRatioF();
        const QPointF corner = QPointF(widget.mapTo(&window(), shown.topLeft())) * scale;
        return QRectF(corner, QSizeF(shown.size()) * scale).toAlignedRect();
    }

    /// The toolkit's own controls among the outlets are exact at whole scales alone.
    std::vector<const char*> compared() const {
        std::vector<const char*> names{
            "chromaView",       "lumiView",         "myToneView",      "myDegrade",      "swatch1",
            "swatch2",          "origFirstColor",   "origSecondColor", "origComplement", "origHarmony",
            "origTrichrome",    "origQuadrichrome", "complementColor", "equi1Color",     "equi2Color",
            "triHarmoni1Color", "triHarmoni2Color", "quadri1Color",    "quadri2Color",   "quadri3Color",
            "nearColor",        "baterieSwatch",    "okButton"};
        const double scale = window().devicePixelRatioF();
        if (scale == std::floor(scale)) names.push_back("chromalogWindow");
        return names;
    }

    void compare(const std::string& after) const {
        for (QWidget* window : QApplication::topLevelWidgets()) // a tool tip would lie over the picture
            if (window->windowType() == Qt::ToolTip) window->hide();
        for (int turn = 0; turn < 5; ++turn)
            QApplication::processEvents();
        const QImage screen = QGuiApplication::primaryScreen()->grabWindow(window().winId()).toImage();
        const QImage onScreen = screen.convertToFormat(QImage::Format_RGB32);
        const QImage fresh = window().grab().toImage().convertToFormat(QImage::Format_RGB32);
        ASSERT_EQ(onScreen.size(), fresh.size());
        for (const char* name : compared())
            EXPECT_TRUE(onScreen.copy(place(name)) == fresh.copy(place(name)))
                << name << " is not what it was, after: " << after;
    }
};

TEST_P(OnTheScreen, EveryViewShowsWhatItWouldShowAnew) {
    const std::vector<std::string> colours{"click chromaView 60 60",
                                           "sweep chromaView 60 60 90 140 4",
                                           "click lumiView 5 200",
                                           "sweep lumiView 5 200 5 20 4",
                                           "type secondR 12",
                                           "append secondG 1",
                                           "type secondC 40",
                                           "type secondK 10",
                                           "type firstR 10",
                                           "type firstM 30",
                                           "drop origFirstColor 5 5 red",
                                           "drop origSecondColor 5 5 #804010",
                                           "drag origSecondColor 9 9 origFirstColor 9 9",
                                           "drag chromaView 60 60 chromaView 90 90",
                                           "key Right chromaView",
                                           "key Up lumiView",
                                           "press toggleSecondColor:"};
    const std::vector<std::string> lists{"press loadSwatch1:",   "press loadSwatch2:",
                                         "click swatch1 30 30",  "click swatch2 30 50",
                                         "key Down swatch1",     "press sortAlpha1:",
                                         "press sortHue2:",      "press doUndo:",
                                         "press doUndo:",        "press doRedo:",
                                         "press appendSwatch1:", "drag swatch1 30 30 swatch1 30 80",
                                         "key Delete swatch1",   "press killSwatch2:",
                                         "press doUndo:",        "drop swatch1 30 60 #7fff00 New"};
    const std::vector<std::string> modes{"press complementOn:", "press complementOn:", "press harmoniquesOn:",
                                         "press triComplementOn:", "press quadriOn:"};
    play(lists);
    for (const double y : {1.0, 7.0, 30.0, 31.0, 200.0, 401.0, 402.0, 1e6, 0.0})
        scrollTo(y);
    for (const char* chart : {"set toneOrDegrade 1", "set toneOrDegrade 0"}) {
        play({chart});
        play(colours);
        play(modes);
    }
    play({"drop myDegrade 20 20 #00ff00", "click myDegrade 100 100", "set toneOrDegrade 1",
          "set toneSlider 80", "set absOrRel 1", "click myToneView 50 50", "key Right myToneView",
          "set toneSlider 20", "set absOrRel 0"});
}

INSTANTIATE_TEST_SUITE_P(Scales, OnTheScreen, testing::Values("1", "1.1", "1.25", "1.5", "1.75"));

} // namespace
} // namespace chromalog::test
