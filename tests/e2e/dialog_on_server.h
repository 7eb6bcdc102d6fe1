#pragma once

#include "e2e/x_server.h"
#include "support/swatch_files.h"
#include "support/temporary_folder.h"

#include "abi/picker_record.h"
#include "dialog/chromalog_controler.h"
#include "drive/commands.h"
#include "qt/application_guard.h"
#include "qt/driven_qt.h"
#include "qt/qt_desktop.h"

#include <QApplication>
#include <QTest>

#include <cstdlib>
#include <fstream>
#include <memory>
#include <optional>
#include <string>

namespace chromalog::test {

/// The dialog in the test's own process, on an X server. The host offers it a dull blue and no conversions.
class DialogOnServer {
  public:
    /// The toolkit's platform is chosen when the application starts.
    explicit DialogOnServer(const char* scale) {
        if (!server.runs()) return;
        setenv("QT_QPA_PLATFORM", "xcb", 1);
        setenv("DISPLAY", server.display().c_str(), 1);
        setenv("QT_SCALE_FACTOR", scale, 1);
        setenv("XDG_CONFIG_HOME", folder.path().c_str(), 1);
        application.emplace();
        QApplication::setCursorFlashTime(0);
        writeSwatches();
    }

    /// Whether the dialog is on the screen and has the keyboard.
    bool open() {
        record->pickerRecord = &picker;
        for (int i = 0; i < 3; ++i)
            picker.pickParms.colorComponents[i] = static_cast<std::uint16_t>(0x3300 * (i + 1));
        QtDesktopSettings settings;
        settings.dataDirectory = folder.path();
        desktop = std::make_unique<QtDesktop>(settings);
        controler = std::make_unique<ChromalogControler>(*record, *desktop);
        driven = std::make_unique<DrivenQt>(*desktop, *controler);
        commands = std::make_unique<drive::Commands>(*driven, nullptr);
        window().show();
        window().raise();
        window().activateWindow();
        return QTest::qWaitForWindowActive(&window());
    }

    QWidget& window() const { return *desktop->widget("chromalogWindow"); }

    /// Performs one command of a script.
    void perform(const std::string& line) {
        const auto script = drive::readScript(line);
        commands->perform(std::get<drive::Script>(script).at(0));
    }

    TemporaryFolder folder;                                    ///< holds swatches.aco, with forty swatches
    XServer server{XServer::WhenAlone::stays, "2600x1600x24"}; ///< takes the dialog at every scale
    std::optional<ApplicationGuard> application;
    PickerRecord picker{};
    std::unique_ptr<GlobalRecord> record = std::make_unique<GlobalRecord>();
    std::unique_ptr<QtDesktop> desktop;
    std::unique_ptr<ChromalogControler> controler;
    std::unique_ptr<DrivenQt> driven;
    std::unique_ptr<drive::Commands> commands;

  private:
    void writeSwatches() const {
        constexpr int count = 40;
        FileBuilder builder;
        builder.header(2, count);
        for (int i = 0; i < count; ++i)
            builder.colour(0, 65535 - i * 1500, i * 1500, 30000 + i % 7 * 4000)
                .name("Swatch " + std::to_string(i * 7 % count));
        std::ofstream(folder / "swatches.aco", std::ios::binary)
            .write(reinterpret_cast<const char*>(builder.bytes.data()),
                   static_cast<std::streamsize>(builder.bytes.size()));
    }
};

} // namespace chromalog::test
