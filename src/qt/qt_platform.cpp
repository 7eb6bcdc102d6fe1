#include "qt/qt_platform.h"

#include "abi/standalone_suite.h"
#include "dialog/chromalog_controler.h"
#include "files/size_limit_signal.h"
#include "qt/driven_qt.h"
#include "qt/language/language_table.h"
#include "qt/qt_desktop.h"
#include "qt/screen/begin_screen_pick.h"
#include "qt/search_habits.h"
#include "qt/settings_file.h"
#include "qt/window_memory.h"

#include <QDialog>
#include <QEventLoop>
#include <QFontInfo>
#include <QLocale>

#include <algorithm>
#include <optional>

namespace chromalog {
namespace {

std::vector<std::string> linesOf(std::string_view text) {
    std::vector<std::string> lines;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        if (end > 0) lines.emplace_back(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return lines;
}

/// A script's dialog is always the same, unless it asks for a language.
std::string languageFor(const StandaloneSuite* standalone) {
    if (const char* code = standalone ? standalone->option("language") : nullptr) return code;
    for (const char* script : {"drive", "accept", "cancel", "screenshot"})
        if (standalone && standalone->option(script)) return {};
    const std::string asked = qEnvironmentVariable("CHROMALOG_LANGUAGE").toStdString();
    return isLanguage(asked) ? asked : languageOfDesktop();
}

QtDesktopSettings settingsOf(const StandaloneSuite* standalone, ReadForm readForm, bool ownApplication) {
    QtDesktopSettings settings = QtDesktopSettings::fromEnvironment();
    settings.readForm = readForm;
    settings.language = languageFor(standalone);
    settings.ownApplication = ownApplication;
    if (!standalone) return settings;
    if (const char* folder = standalone->option("data-dir")) settings.dataDirectory = folder;
    if (const char* folder = standalone->option("books")) settings.booksDirectory = folder;
    if (const char* files = standalone->option("import")) settings.filesToImport = linesOf(files);
    settings.copyReturned = standalone->option("clipboard") != nullptr;
    settings.optionWhileOpening = standalone->option("option") != nullptr;
    return settings;
}

} // namespace

std::unique_ptr<Desktop> QtPlatform::makeDesktop(const StandaloneSuite* standalone) {
    const DisplayProbe display;
    if (!display.available()) {
        sayOnStandardError("Chromalog: there is no display to show the dialog on");
        return nullptr;
    }
    standalone_ = standalone;
    const SizeLimitSignalBlock onlyFails; // the toolkit keeps what it finds out about the system's fonts
    application_ = std::make_unique<ApplicationGuard>(atEnd_);
    QFontInfo(QApplication::font()).family(); // makes it look for them now
    return std::make_unique<QtDesktop>(settingsOf(standalone, readForm_, application_->owns()));
}

ScreenColours QtPlatform::pickFromScreen() {
    const DisplayProbe display;
    if (!display.available()) return {{}, "There is no display to pick a color from"};
    const ApplicationGuard application(atEnd_);
    QEventLoop loop;
    std::optional<ScreenColours> answer;
    const auto underWay = beginScreenPick(nullptr, [&](ScreenColours colours) {
        answer = std::move(colours);
        loop.quit();
    });
    if (!answer) loop.exec();
    return answer.value_or(ScreenColours());
}

void QtPlatform::log(std::string_view line) {
    guarded([line] { sayOnStandardError("Chromalog: " + std::string(line)); });
}

void QtPlatform::dialogReady(Desktop& desktop, ChromalogControler& controler) {
    dialog_ = std::make_unique<DrivenQt>(static_cast<QtDesktop&>(desktop), controler);
    if (standalone_) driven_ = attach_(*dialog_, *standalone_);
    QDialog* window = dialog_->window();
    if (driven_) return; // a script's dialog is always the same
    auto& screen = static_cast<QtDesktop&>(desktop);
    const std::string settings = settingsPath(desktop.applicationsDirectory());
    screen.takePageHabits(pageHabits(QLocale::system()));
    screen.rememberFiles(settings);
    keepSearchHabits(controler.panels().search, settings);
    if (window) new WindowMemory(*window, settings);
}

} // namespace chromalog
