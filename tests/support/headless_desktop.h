#pragma once

#include "desktop/desktop.h"
#include "support/headless_controls.h"
#include "support/recording_canvas.h"

#include <deque>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace chromalog::test {

class HeadlessTimer;

/// A form that has every outlet and action that its owner asks for.
class HeadlessForm : public Form {
  public:
    explicit HeadlessForm(const FormOwner&);
    ~HeadlessForm() override;

    template <typename T> T& outlet(const std::string& name) { return dynamic_cast<T&>(*controls.at(name)); }
    void send(const std::string& action) { actions.at(action)(); }

    std::map<std::string, std::unique_ptr<Control>> controls;
    std::map<std::string, std::unique_ptr<HeadlessMenu>> menus;
    std::map<std::string, View*> views;
    std::map<std::string, std::function<void()>> actions;
    std::vector<std::unique_ptr<ViewHost>> hosts;
    ColourOperations* colours; ///< the owner's; null where it has none
};

/// A view's host without a widget: counts what it is told.
class HeadlessViewHost : public ViewHost {
  public:
    int redisplays = 0, frameChanges = 0, announcements = 0;
    std::optional<Rect> clip;
    std::optional<TextEdit> edit; ///< that is open
    void editText(TextEdit text) override { edit = std::move(text); }
    void dropTextEdit() override { edit.reset(); }
    void needsDisplay() override { ++redisplays; }
    void frameChanged() override { ++frameChanges; }
    void hiddenChanged() override {}
    void accessibleChanged() override { ++announcements; }
    std::optional<Rect> superviewBounds() const override { return clip; }
};

/// Remembers every file for as long as the test.
class HeadlessFileMemory : public FileMemory {
  public:
    std::vector<std::string> files; ///< the latest first
    std::vector<std::string> recent() override { return files; }
    void loaded(const std::string& path) override { files.insert(files.begin(), path); }
    void forget(const std::string& path) override { std::erase(files, path); }
};

/// The platform without a screen, for tests: no layout, no pixels; it records what it is asked and answers as
/// the test set it.
class HeadlessDesktop : public Desktop {
  public:
    // What the test sets.
    std::set<std::string> missingForms;
    std::deque<std::function<void()>> modalSteps; ///< run one after the other while a modal loop runs
    bool optionHeld = false;
    std::string applications, books;
    std::map<std::string, std::string> translations;
    Bitmap nextCapture;
    PrintInfo printInfo;
    PrintOutcome printOutcome = PrintOutcome::printed;
    std::function<void()> onPrint; ///< while the print dialog is up
    std::tm clock{};
    std::map<std::string, ReadPicture> pictures; ///< by path

    // What the test reads.
    std::map<std::string, HeadlessForm*> forms; ///< the latest of each name
    std::vector<std::string> logLines, sounds;
    std::vector<Alert> alerts;
    std::vector<OpenPanel> openPanels;
    std::vector<SavePanel> savePanels;
    std::vector<DragRequest> drags;
    std::string printedTitle;
    std::vector<std::vector<Primitive>> sheets; ///< of the latest print operation
    std::vector<std::int64_t> stops;
    int pageLayouts = 0;
    ScreenAnswer answerScreenPick; ///< of the pick from the screen that was begun last
    std::shared_ptr<int> screenPicks = std::make_shared<int>(0); ///< under way; may be kept
    StatusLine status;
    std::function<void()> whenStopped;         ///< called as the modal loop is told to end
    std::function<void(const Alert&)> onAlert; ///< called while the alert is up

    /// Answers the panel that was opened last.
    void answerPanel(std::optional<std::string> path);
    bool panelOpen() const { return static_cast<bool>(pendingAnswer_); }
    /// Lets time pass: timers that are due fire in order.
    void advance(double seconds);

    std::unique_ptr<Form> loadForm(std::string_view name, const FormOwner&) override;
    std::int64_t runModal(Window&) override;
    void stopModal(std::int64_t code) override;
    void runAlert(const Alert&) override;
    void beginOpenPanel(const OpenPanel&, Window&, PanelAnswer) override;
    void beginSavePanel(const SavePanel&, Window&, PanelAnswer) override;
    const Pasteboard& generalPasteboard() const override { return pasteboard_; }
    void setGeneralPasteboard(const Pasteboard& p) override { pasteboard_ = p; }
    void beginDrag(const DragRequest& request) override { drags.push_back(request); }
    std::unique_ptr<Timer> startTimer(double seconds, std::function<void()>) override;
    void playSound(std::string_view name) override { sounds.emplace_back(name); }
    bool optionKeyHeld() const override { return optionHeld; }
    std::string userName() const override { return "tester"; }
    std::tm localTime() const override { return clock; }
    std::string localized(std::string_view key) const override;
    void log(std::string_view line) override { logLines.emplace_back(line); }
    std::string applicationsDirectory() const override { return applications; }
    std::string colourBooksDirectory() const override { return books; }
    StatusLine& statusLine() override { return status; }
    HeadlessFileMemory memory;
    FileMemory& fileMemory() override { return memory; }
    std::map<std::string, double> numbers; ///< that a person has set
    double keptNumber(std::string_view name, double otherwise) const override {
        const auto kept = numbers.find(std::string(name));
        return kept == numbers.end() ? otherwise : kept->second;
    }
    void keepNumber(std::string_view name, double value) override { numbers[std::string(name)] = value; }
    bool fades = false;
    bool animates() const override { return fades; }
    PictureSource pictureFile(const std::string& path) const override;
    std::unique_ptr<ScreenPick> pickFromScreen(Window&, ScreenAnswer answer) override;
    Bitmap capture(View&) override { return nextCapture; }
    PrintInfo& sharedPrintInfo() override { return printInfo; }
    void runPageLayout(Window&) override { ++pageLayouts; }
    PrintOutcome runPrintOperation(const PrintJob& job) override;

  private:
    friend class HeadlessTimer;
    Pasteboard pasteboard_;
    PanelAnswer pendingAnswer_;
    std::set<HeadlessTimer*> timers_;
    double now_ = 0;
    bool stopped_ = false;
};

} // namespace chromalog::test
