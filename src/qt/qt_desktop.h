#pragma once

#include "base/translated.h"
#include "desktop/desktop.h"
#include "qt/background_work.h"
#include "qt/controls/plain_text.h"
#include "qt/drags.h"
#include "qt/form_reading.h"
#include "qt/host_process.h"
#include "qt/language/session_language.h"
#include "qt/log_ring.h"
#include "qt/mishap.h"
#include "qt/modal_loops.h"
#include "qt/panels/completions.h"
#include "qt/panels/file_panels.h"
#include "qt/panels/page_habits.h"
#include "qt/panels/print_jobs.h"
#include "qt/string_table.h"

#include <QIcon>
#include <QMessageBox>
#include <QObject>
#include <QPointer>

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace chromalog {

class QtForm;

/// What a host or the environment sets beside the plug-in interface. Empty texts: the platform's own.
struct QtDesktopSettings {
    std::string dataDirectory;              ///< stands for the user's applications directory
    std::string booksDirectory;             ///< stands for the host's colour books
    std::string formsDirectory;             ///< its interface files come before the compiled ones
    ReadForm readForm = nullptr;            ///< reads them; has to be there where the folder is
    std::vector<std::string> filesToImport; ///< named after the program
    std::string language;                   ///< its code; empty: English
    bool ownApplication = false;            ///< the toolkit's texts are ours to translate too
    bool logToSystem = false;
    bool copyReturned = false;       ///< the colour that OK returns goes to the clipboard
    bool optionWhileOpening = false; ///< the Option key counts as held until the first modal loop runs

    /// From CHROMALOG_DATA_DIR, CHROMALOG_BOOKS, CHROMALOG_FORMS and CHROMALOG_LOG.
    static QtDesktopSettings fromEnvironment();
};

/// The desktop for people. An application object must exist before it and after it.
class QtDesktop : public Desktop {
  public:
    explicit QtDesktop(QtDesktopSettings);
    ~QtDesktop() override;

    std::unique_ptr<Form> loadForm(std::string_view name, const FormOwner&) override;
    void setHostWindow(std::intptr_t window) override { hostWindow_ = hostWindow(window); }
    std::int64_t runModal(Window&) override;
    void stopModal(std::int64_t code) override;
    void runAlert(const Alert&) override;
    void showAbout(Window& parent) override;
    void beginOpenPanel(const OpenPanel&, Window& parent, PanelAnswer) override;
    void beginSavePanel(const SavePanel&, Window& parent, PanelAnswer) override;
    const Pasteboard& generalPasteboard() const override;
    void setGeneralPasteboard(const Pasteboard&) override;
    void returned(const Colour&) override;
    void beginDrag(const DragRequest&) override;
    std::unique_ptr<Timer> startTimer(double seconds, std::function<void()>) override;
    void inBackground(std::function<void()> work, std::function<void()> then) override;
    void finishBackground() override { background_.finish(); }
    std::unique_ptr<Worker> makeWorker() override;
    PictureSource pictureFile(const std::string& path) const override;
    void playSound(std::string_view name) override;
    bool optionKeyHeld() const override;
    std::string userName() const override;
    std::tm localTime() const override;
    std::string localized(std::string_view key) const override;
    void log(std::string_view line) override { log_.add(line); }
    std::string applicationsDirectory() const override;
    bool hasDataFolderOfItsOwn() const override { return !settings_.dataDirectory.empty(); }
    std::string colourBooksDirectory() const override { return settings_.booksDirectory; }
    std::vector<std::string> filesToImport() const override { return settings_.filesToImport; }
    StatusLine& statusLine() override { return status_; }
    FileMemory& fileMemory() override { return fileHabits_; }
    double keptNumber(std::string_view name, double otherwise) const override;
    void keepNumber(std::string_view name, double value) override;
    bool animates() const override;
    std::unique_ptr<ScreenPick> pickFromScreen(Window& parent, ScreenAnswer) override;
    Bitmap capture(View&) override;
    PrintInfo& sharedPrintInfo() override { return printJobs_.info; }
    void runPageLayout(Window& parent) override;
    PrintOutcome runPrintOperation(const PrintJob&) override;

    // For whoever drives or reports the dialog.
    QWidget* widget(std::string_view outlet) const; ///< of any loaded form, or null
    const std::vector<QtForm*>& forms() const { return forms_; }
    ModalLoops& modalLoops() { return modalLoops_; }
    FilePanels& panels() { return panels_; }
    Drags& drags() { return drags_; }
    PrintJobs& printJobs() { return printJobs_; }
    /// Waits for all that workers do, and for what follows from it; false where they rest.
    bool finishWork();
    QMessageBox* openAlert() const { return openAlert_; }              ///< the alert that waits, or null
    const std::vector<Alert>& alerts() const { return alerts_; }       ///< all that were shown
    const std::vector<std::string>& sounds() const { return sounds_; } ///< all that were asked for
    const LogRing& logRing() const { return log_; }
    std::function<Qt::KeyboardModifiers()> keyboard; ///< asks the keyboard now; a script replaces it

    /// For a person: the unit of lengths, and the paper that the print settings begin with.
    void takePageHabits(const PageHabits&);
    /// For a person: files and numbers are remembered in the settings file, and marks may fade.
    void rememberFiles(const std::string& settingsPath);

    void forget(QtForm&); ///< the form goes away

  private:
    QWidget* frontWindow() const;
    void adoptHostWindow(QWidget&);
    void giveIcon();

    QtDesktopSettings settings_;
    LogRing log_;
    StatusLine status_;
    struct Resources {
        Resources();
    } resources_; ///< before what reads them
    StringTable texts_;
    SessionLanguage language_; ///< before all that says something
    PlainLabels plainLabels_;
    QObject context_; ///< timers live as long as it does
    ModalLoops modalLoops_;
    Mishaps mishaps_{modalLoops_, log_};
    BackgroundWork background_;
    std::vector<QPointer<BackgroundWork>> workers_;
    SystemColours systemColours_;
    Drags drags_;
    PrintJobs printJobs_{status_};
    Completions completions_;
    FileHabits fileHabits_;
    FilePanels panels_{fileHabits_};
    QIcon icon_; ///< of the windows in another's application, once one was shown
    std::vector<QtForm*> forms_;
    QPointer<QMessageBox> openAlert_;
    std::vector<Alert> alerts_;
    std::vector<std::string> sounds_;
    mutable Pasteboard pasteboard_;  ///< the clipboard as last read
    WId hostWindow_ = hostWindow(0); ///< as the window system names it
    bool modalRan_ = false;
    bool copied_ = false; ///< the clipboard may hold what is ours
    bool forPerson_ = false;
    std::string settingsPath_; ///< empty where nothing is remembered
    LengthUnit lengthUnit_ = LengthUnit::points;
};

} // namespace chromalog
