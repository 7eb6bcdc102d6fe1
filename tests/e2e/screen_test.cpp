// What stands on the screen is what a fresh rendering shows, view by view, after every kind of change: a
// picture that is rendered anew does not tell whether anything was marked for redraw.
#include "e2e/x_server.h"
#include "support/swatch_files.h"
#include "support/temporary_folder.h"

#include "desktop/qt/application_guard.h"
#include "desktop/qt/drive/commands.h"
#include "desktop/qt/drive/prompts.h"
#include "desktop/qt/qt_desktop.h"
#include "host/chromalog_controler.h"

#include <QApplication>
#include <QScreen>
#include <QTest>

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <fstream>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace chromalog::test {
namespace {

constexpr int swatches = 40;

/// A server with the toolkit on it, at a scale; the platform is chosen when the application starts.
struct OnServer {
    explicit OnServer(const char* scale) {
        if (!server.runs()) return;
        setenv("QT_QPA_PLATFORM", "xcb", 1);
        setenv("DISPLAY", server.display().c_str(), 1);
        setenv("QT_SCALE_FACTOR", scale, 1);
        setenv("XDG_CONFIG_HOME", folder.path().c_str(), 1);
        application.emplace();
        QApplication::setCursorFlashTime(0);
    }
    TemporaryFolder folder;
    XServer server;
    std::optional<ApplicationGuard> application;
};

class OnTheScreen : OnServer, public testing::TestWithParam<const char*> {
  protected:
    OnTheScreen() : OnServer(GetParam()) {}

    void SetUp() override {
        if (!server.runs()) GTEST_SKIP() << "needs Xvfb";
        writeSwatches();
        record->pickerRecord = &picker;
        for (int i = 0; i < 3; ++i)
            picker.pickParms.colorComponents[i] = static_cast<std::uint16_t>(0x3300 * (i + 1));
        QtDesktopSettings settings;
        settings.dataDirectory = folder.path();
        desktop = std::make_unique<QtDesktop>(settings);
        controler = std::make_unique<ChromalogControler>(*record, *desktop);
        commands = std::make_unique<drive::Commands>(*desktop, *controler, nullptr);
        controler->getChromalogWindow().makeKeyAndOrderFront();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window()));
        compare("the dialog has opened");
    }

    void writeSwatches() const {
        FileBuilder builder;
        builder.header(2, swatches);
        for (int i = 0; i < swatches; ++i)
            builder.colour(0, 65535 - i * 1500, i * 1500, 30000 + i % 7 * 4000)
                .name("Swatch " + std::to_string(i * 7 % swatches));
        std::ofstream(folder / "forty.aco", std::ios::binary)
            .write(reinterpret_cast<const char*>(builder.bytes.data()),
                   static_cast<std::streamsize>(builder.bytes.size()));
    }

    QWidget& window() const { return *desktop->widget("chromalogWindow"); }

    /// Performs commands of a script; the screen is looked at after each.
    void play(const std::vector<std::string>& lines) {
        for (const std::string& line : lines) {
            const auto script = drive::readScript(line);
            ASSERT_TRUE(std::holds_alternative<drive::Script>(script)) << line;
            commands->perform(std::get<drive::Script>(script).front());
            if (QFileDialog* panel = desktop->panels().current())
                drive::answer(*panel, QString::fromStdString(folder / "forty.aco"));
            compare(line);
        }
    }

    void scrollTo(double y) {
        for (const int list : {1, 2})
            controler->listScroller(list).scrollToPoint({0, y});
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

    PickerRecord picker{};
    std::unique_ptr<GlobalRecord> record = std::make_unique<GlobalRecord>();
    std::unique_ptr<QtDesktop> desktop;
    std::unique_ptr<ChromalogControler> controler;
    std::unique_ptr<drive::Commands> commands;
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
