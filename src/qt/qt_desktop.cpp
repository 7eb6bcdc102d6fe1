#include "qt/qt_desktop.h"

#include "prefs/data_directory.h"
#include "qt/about_sheet.h"
#include "qt/convert.h"
#include "qt/driven_dialog.h"
#include "qt/forms/built_forms.h"
#include "qt/forms/form_window.h"
#include "qt/panels/page_setup_sheet.h"
#include "qt/pictures/picture_reader.h"
#include "qt/qt_form.h"
#include "qt/raster_canvas.h"
#include "qt/returned_colour.h"
#include "qt/screen/begin_screen_pick.h"
#include "qt/settings_file.h"
#include "qt/system_sound.h"
#include "qt/view_accessible.h"
#include "qt/view_widget.h"

#include <QApplication>
#include <QClipboard>
#include <QFile>
#include <QJsonObject>
#include <QStyle>
#include <QTimer>
#include <QWindow>

#include <algorithm>
#include <cstdlib>
#include <ctime>
#include <pwd.h>
#include <unistd.h>

// Outside any namespace, as the toolkit wants it: a static library's resources are linked only where they are
// named.
static void initialiseResources() {
    Q_INIT_RESOURCE(chromalog);
}

namespace chromalog {

QtDesktopSettings QtDesktopSettings::fromEnvironment() {
    const auto text = [](const char* name) {
        const char* value = std::getenv(name);
        return std::string(value ? value : "");
    };
    QtDesktopSettings settings;
    settings.dataDirectory = text("CHROMALOG_DATA_DIR");
    settings.booksDirectory = text("CHROMALOG_BOOKS");
    settings.formsDirectory = text("CHROMALOG_FORMS");
    settings.logToSystem = text("CHROMALOG_LOG") == "1";
    return settings;
}

QtDesktop::QtDesktop(QtDesktopSettings settings)
    : keyboard(&QGuiApplication::queryKeyboardModifiers), settings_(std::move(settings)),
      log_(settings_.logToSystem), texts_(settings_.formsDirectory),
      language_(settings_.language, settings_.ownApplication) {
    installAccessibility();
}

QtDesktop::Resources::Resources() {
    initialiseResources();
}

namespace {
std::unique_ptr<QMimeData> plainCopy(const QMimeData& ours) {
    auto plain = std::make_unique<QMimeData>();
    if (ours.hasColor()) plain->setColorData(ours.colorData());
    if (ours.hasText()) plain->setText(ours.text());
    return plain;
}
} // namespace

/// What the clipboard holds of ours becomes the toolkit's own: the module may be unloaded before the
/// clipboard is read.
QtDesktop::~QtDesktop() {
    removeAccessibility();
    if (!copied_) return; // asking the window system takes its time
    QClipboard* clipboard = QGuiApplication::clipboard();
    const auto ours = [clipboard] { return dynamic_cast<const ColourMime*>(clipboard->mimeData()); };
    guarded([&] {
        if (ours()) clipboard->setMimeData(plainCopy(*ours()).release());
    });
    if (ours()) guarded([&] { clipboard->clear(); }); // there was no memory for a copy
}

std::unique_ptr<Form> QtDesktop::loadForm(std::string_view name, const FormOwner& owner) {
    std::vector<std::string> problems;
    const QString file = toQt(settings_.formsDirectory) + '/' + toQt(name) + ".ui";
    const bool replaced = !settings_.formsDirectory.empty() && QFile::exists(file);
    auto root = replaced ? formFromFile(file, settings_.readForm, problems) : builtForm(name);
    if (!replaced && !root) problems.emplace_back("there is no such form");
    std::unique_ptr<QtForm> form;
    if (root) {
        form = std::make_unique<QtForm>(std::move(root), *this, std::string(name));
        adoptHostWindow(*form->window());
        if (!icon_.isNull()) form->window()->setWindowIcon(icon_);
        forms_.push_back(form.get());
        for (std::string& problem : form->connect(owner))
            problems.push_back(std::move(problem));
    }
    for (const std::string& problem : problems)
        log(std::string(name) + ": " + problem);
    mishaps_.rethrow();
    return form;
}

/// To the windows that are there. An application of our own keeps it for every window, from pick to pick:
/// reading its pictures is a twentieth of a further one.
void QtDesktop::giveIcon() {
    if (settings_.ownApplication) {
        if (QGuiApplication::windowIcon().isNull()) QGuiApplication::setWindowIcon(productIcon());
        return;
    }
    if (icon_.isNull()) icon_ = productIcon();
    for (const QtForm* form : forms_)
        if (form->window()) form->window()->setWindowIcon(icon_);
}

/// The dialog stays above the host's main window and is blocked with it.
void QtDesktop::adoptHostWindow(QWidget& window) {
    if (hostWindow_ == 0) return;
    window.winId(); // makes the window handle
    QWindow* host = QWindow::fromWinId(hostWindow_);
    if (!host) return;
    window.windowHandle()->setTransientParent(host);
    QObject::connect(&window, &QObject::destroyed, host, &QObject::deleteLater);
}

void QtDesktop::forget(QtForm& form) {
    std::erase(forms_, &form);
    guarded([&] { panels_.closeOn(form.window()); });
}

std::int64_t QtDesktop::runModal(Window& window) {
    modalRan_ = true;
    auto* control = dynamic_cast<WindowControl*>(&window);
    if (!control || !control->dialog()) {
        log("no window to run");
        return 0;
    }
    mishaps_.rethrow(); // of the time when the dialog was made
    QTimer::singleShot(0, &context_, [this] { guarded([this] { giveIcon(); }); }); // no window waits for it
    const std::int64_t code = modalLoops_.run(*control->dialog());
    mishaps_.rethrow();
    return code;
}

void QtDesktop::stopModal(std::int64_t code) {
    modalLoops_.stop(code);
}

namespace {
bool isOver(const QWidget* window, const QWidget* modal) {
    while (modal && window && window != modal)
        window = window->parentWidget();
    return window;
}
} // namespace

/// The active window where it is one of ours that no other blocks: a panel beside the dialog carries what it
/// asks itself.
QWidget* QtDesktop::frontWindow() const {
    QWidget* modal = QApplication::activeModalWidget();
    for (const QtForm* form : forms_)
        if (form->window() && QApplication::activeWindow() == form->window() && isOver(form->window(), modal))
            return form->window();
    if (modal) return modal;
    return forms_.empty() ? nullptr : static_cast<QWidget*>(forms_.front()->window());
}

void QtDesktop::runAlert(const Alert& alert) {
    alerts_.push_back(alert);
    const QPointer<QWidget> asking = frontWindow();
    const bool active = asking && QApplication::activeWindow() == asking;
    QMessageBox box(QMessageBox::Warning, "Chromalog", QString(), QMessageBox::NoButton, asking);
    giveIcon();
    box.setWindowIcon(icon_);
    box.setTextFormat(Qt::PlainText);
    box.setText(toQt(alert.message));
    setPlainInformativeText(box, toQt(alert.informative));
    box.setDefaultButton(box.addButton(toQt(alert.button), QMessageBox::AcceptRole));
    openAlert_ = &box;
    box.exec();
    openAlert_ = nullptr;
    if (active && asking) asking->activateWindow(); // else the next key may go to the dialog below it
}

namespace {
QWidget* widgetOf(Window& window) {
    auto* control = dynamic_cast<WindowControl*>(&window);
    return control ? control->dialog() : nullptr;
}
} // namespace

void QtDesktop::showAbout(Window& parent) {
    if (QWidget* window = widgetOf(parent)) showAboutSheet(*window);
}

void QtDesktop::beginOpenPanel(const OpenPanel& panel, Window& parent, PanelAnswer answer) {
    finishBackground();
    panels_.begin(panel, widgetOf(parent), std::move(answer));
}

void QtDesktop::beginSavePanel(const SavePanel& panel, Window& parent, PanelAnswer answer) {
    finishBackground();
    panels_.begin(panel, widgetOf(parent), std::move(answer));
}

const Pasteboard& QtDesktop::generalPasteboard() const {
    pasteboard_ = pasteboardOf(QGuiApplication::clipboard()->mimeData());
    return pasteboard_;
}

void QtDesktop::setGeneralPasteboard(const Pasteboard& pasteboard) {
    copied_ = true;
    QGuiApplication::clipboard()->setMimeData(new ColourMime(pasteboard));
}

/// The pick ends also where there is no memory for a copy.
void QtDesktop::returned(const Colour& colour) {
    if (settings_.copyReturned) guarded([&] { ReturnedColour::copy(colour); });
}

void QtDesktop::beginDrag(const DragRequest& request) {
    const auto* view = dynamic_cast<const View*>(request.source);
    drags_.begin(request, view ? dynamic_cast<ViewWidget*>(view->host()) : nullptr);
}

namespace {

class OneShotTimer : public Timer {
  public:
    OneShotTimer(QObject& context, std::function<void()> fire) : timer_(new QTimer(&context)) {
        timer_->setSingleShot(true);
        timer_->setTimerType(Qt::PreciseTimer);
        QObject::connect(timer_, &QTimer::timeout, timer_, [fire = std::move(fire)] {
            guarded([&fire] {
                const auto callback = fire; // firing may destroy the timer
                callback();
            });
        });
    }
    ~OneShotTimer() override {
        if (!timer_) return;
        timer_->stop();
        guarded([this] { timer_->deleteLater(); }); // else it goes with the desktop
    }
    void fireIn(double seconds) override {
        if (timer_) timer_->start(int(seconds * 1000.0));
    }

  private:
    QPointer<QTimer> timer_;
};

} // namespace

std::unique_ptr<Timer> QtDesktop::startTimer(double seconds, std::function<void()> fire) {
    auto timer = std::make_unique<OneShotTimer>(context_, std::move(fire));
    timer->fireIn(seconds);
    return timer;
}

void QtDesktop::inBackground(std::function<void()> work, std::function<void()> then) {
    background_.begin(std::move(work), std::move(then));
}

std::unique_ptr<Worker> QtDesktop::makeWorker() {
    auto worker = std::make_unique<BackgroundWork>();
    std::erase_if(workers_, [](const auto& each) { return each.isNull(); });
    workers_.emplace_back(worker.get());
    return worker;
}

bool QtDesktop::finishWork() {
    bool waited = false;
    for (const auto& worker : workers_)
        while (worker && worker->busy()) {
            waited = true;
            worker->finish();
        }
    return waited;
}

PictureSource QtDesktop::pictureFile(const std::string& path) const {
    return pictureAt(path);
}

void QtDesktop::playSound(std::string_view name) {
    sounds_.emplace_back(name);
    playSystemSound(name);
}

bool QtDesktop::optionKeyHeld() const {
    if (settings_.optionWhileOpening && !modalRan_) return true;
    return keyboard().testFlag(Qt::AltModifier);
}

std::string QtDesktop::userName() const {
    if (const passwd* user = getpwuid(getuid()); user && user->pw_name) return user->pw_name;
    const char* name = std::getenv("USER");
    return name ? name : "";
}

std::tm QtDesktop::localTime() const {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    return local;
}

std::string QtDesktop::localized(std::string_view key) const {
    return texts_.text(key);
}

std::string QtDesktop::applicationsDirectory() const {
    if (!settings_.dataDirectory.empty()) {
        std::string directory = settings_.dataDirectory;
        while (directory.size() > 1 && directory.back() == '/')
            directory.pop_back();
        return directory;
    }
    return userApplicationsDirectory();
}

std::unique_ptr<ScreenPick> QtDesktop::pickFromScreen(Window& parent, ScreenAnswer answer) {
    return beginScreenPick(widgetOf(parent), std::move(answer));
}

Bitmap QtDesktop::capture(View& view) {
    return rasterPicture(view);
}

void QtDesktop::runPageLayout(Window& parent) {
    openPageSetup(printJobs_.info, lengthUnit_, widgetOf(parent));
}

void QtDesktop::rememberFiles(const std::string& settingsPath) {
    fileHabits_.rememberIn(settingsPath);
    settingsPath_ = settingsPath;
    panels_.beNative();
    forPerson_ = true;
}

double QtDesktop::keptNumber(std::string_view name, double otherwise) const {
    return settingsPath_.empty() ? otherwise : readSettings(settingsPath_)[toQt(name)].toDouble(otherwise);
}

void QtDesktop::keepNumber(std::string_view name, double value) {
    if (!settingsPath_.empty()) changeSettings(settingsPath_, {{toQt(name), value}});
}

/// Where the desktop lets nothing move, styles have no time for it.
bool QtDesktop::animates() const {
    return forPerson_ && QApplication::style()->styleHint(QStyle::SH_Widget_Animation_Duration) > 0;
}

void QtDesktop::takePageHabits(const PageHabits& habits) {
    lengthUnit_ = habits.unit;
    if (habits.paper) printJobs_.info.paper = *habits.paper;
}

PrintOutcome QtDesktop::runPrintOperation(const PrintJob& job) {
    return printJobs_.run(job, frontWindow());
}

QWidget* QtDesktop::widget(std::string_view outlet) const {
    const QString name = toQt(outlet);
    for (const QtForm* form : forms_)
        if (QWidget* outlet = outletIn(*form->window(), name)) return outlet;
    return nullptr;
}

} // namespace chromalog
