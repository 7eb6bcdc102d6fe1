#include "support/headless_desktop.h"

#include "support/recording_canvas.h"

#include <algorithm>

namespace chromalog::test {

class HeadlessTimer : public Timer {
  public:
    HeadlessTimer(HeadlessDesktop& desktop, double seconds, std::function<void()> run)
        : due(desktop.now_ + seconds), run(std::move(run)), desktop_(&desktop) {
        desktop_->timers_.insert(this);
    }
    ~HeadlessTimer() override { desktop_->timers_.erase(this); }
    void fireIn(double seconds) override { due = desktop_->now_ + seconds; }

    double due;
    std::function<void()> run;

  private:
    HeadlessDesktop* desktop_;
};

namespace {

template <typename T> struct HeadlessOf;
template <> struct HeadlessOf<TextField> { using type = HeadlessTextField; };
template <> struct HeadlessOf<Button> { using type = HeadlessButton; };
template <> struct HeadlessOf<ColorWell> { using type = HeadlessColorWell; };
template <> struct HeadlessOf<Slider> { using type = HeadlessSlider; };
template <> struct HeadlessOf<Stepper> { using type = HeadlessStepper; };
template <> struct HeadlessOf<LevelIndicator> { using type = HeadlessLevelIndicator; };
template <> struct HeadlessOf<TextView> { using type = HeadlessTextView; };
template <> struct HeadlessOf<ScrollView> { using type = HeadlessScrollView; };
template <> struct HeadlessOf<RadioMatrix> { using type = HeadlessRadioMatrix; };
template <> struct HeadlessOf<RowList> { using type = HeadlessRowList; };
template <> struct HeadlessOf<Window> { using type = HeadlessWindow; };

/// Gives each outlet of a form a control.
struct Connector {
    HeadlessForm& form;
    std::string name;

    template <typename T> void operator()(Outlet<T>* outlet) {
        auto control = std::make_unique<typename HeadlessOf<T>::type>();
        outlet->connect(control.get());
        form.controls[name] = std::move(control);
    }
    void operator()(Outlet<Menu>* outlet) {
        auto& menu = form.menus[name] = std::make_unique<HeadlessMenu>();
        outlet->connect(menu.get());
    }
    void operator()(View* view) {
        auto host = std::make_unique<HeadlessViewHost>();
        view->layOut({0, 0, 256, 256});
        view->setHost(host.get());
        form.hosts.push_back(std::move(host));
        form.views[name] = view;
    }
};

} // namespace

HeadlessForm::HeadlessForm(const FormOwner& owner) : colours(owner.colours) {
    for (const OutletEntry& entry : owner.outlets)
        std::visit(Connector{*this, std::string(entry.name)}, entry.target);
    for (const ActionEntry& entry : owner.actions)
        actions[std::string(entry.name)] = entry.run;
}

HeadlessForm::~HeadlessForm() {
    for (auto& [name, view] : views)
        view->setHost(nullptr);
}

std::unique_ptr<Form> HeadlessDesktop::loadForm(std::string_view name, const FormOwner& owner) {
    if (missingForms.contains(std::string(name))) return nullptr;
    auto form = std::make_unique<HeadlessForm>(owner);
    forms[std::string(name)] = form.get();
    return form;
}

std::int64_t HeadlessDesktop::runModal(Window&) {
    stopped_ = false;
    while (!stopped_ && !modalSteps.empty()) {
        auto step = std::move(modalSteps.front());
        modalSteps.pop_front();
        step();
    }
    stopped_ = false;
    return stops.empty() ? 0 : stops.back();
}

void HeadlessDesktop::stopModal(std::int64_t code) {
    stops.push_back(code);
    stopped_ = true;
    if (whenStopped) whenStopped();
}

void HeadlessDesktop::runAlert(const Alert& alert) {
    alerts.push_back(alert);
    if (onAlert) onAlert(alert);
}

void HeadlessDesktop::beginOpenPanel(const OpenPanel& panel, Window&, PanelAnswer answer) {
    openPanels.push_back(panel);
    pendingAnswer_ = std::move(answer);
}

void HeadlessDesktop::beginSavePanel(const SavePanel& panel, Window&, PanelAnswer answer) {
    savePanels.push_back(panel);
    pendingAnswer_ = std::move(answer);
}

PictureSource HeadlessDesktop::pictureFile(const std::string& path) const {
    const auto picture = pictures.find(path);
    ReadPicture read = picture == pictures.end() ? ReadPicture{{}, path + ": none", {}} : picture->second;
    return {path, [read = std::move(read)](const WorkProgress& progress) {
                return progress(0.5) ? read : ReadPicture();
            }};
}

void HeadlessDesktop::answerPanel(std::optional<std::string> path) {
    PanelAnswer answer = std::move(pendingAnswer_);
    pendingAnswer_ = nullptr;
    answer(std::move(path));
}

std::unique_ptr<Timer> HeadlessDesktop::startTimer(double seconds, std::function<void()> run) {
    return std::make_unique<HeadlessTimer>(*this, seconds, std::move(run));
}

void HeadlessDesktop::advance(double seconds) {
    const double end = now_ + seconds;
    const auto earliest = [this] {
        return std::min_element(timers_.begin(), timers_.end(),
                                [](auto* a, auto* b) { return a->due < b->due; });
    };
    while (!timers_.empty() && (*earliest())->due <= end) {
        HeadlessTimer* timer = *earliest();
        now_ = timer->due;
        timer->due = 1e300; // one shot; firing may destroy it
        const auto run = timer->run;
        run();
    }
    now_ = end;
}

std::string HeadlessDesktop::localized(std::string_view key) const {
    const auto found = translations.find(std::string(key));
    return found == translations.end() ? std::string(key) : found->second;
}

namespace {
struct CountedScreenPick : ScreenPick {
    explicit CountedScreenPick(std::shared_ptr<int> count) : underWay(std::move(count)) { ++*underWay; }
    ~CountedScreenPick() override { --*underWay; }
    const std::shared_ptr<int> underWay;
};
} // namespace

std::unique_ptr<ScreenPick> HeadlessDesktop::pickFromScreen(Window&, ScreenAnswer answer) {
    answerScreenPick = std::move(answer);
    return std::make_unique<CountedScreenPick>(screenPicks);
}

PrintOutcome HeadlessDesktop::runPrintOperation(const PrintJob& job) {
    printedTitle = job.title;
    sheets.clear();
    if (printOutcome == PrintOutcome::cancelled) return printOutcome;
    if (onPrint) onPrint();
    const PrintPages pages = job.layOut(printInfo);
    if (pages.sheets == 0) return PrintOutcome::failed;
    for (int i = 0; i < pages.sheets && printOutcome == PrintOutcome::printed; ++i) {
        RecordingCanvas paper(false, {0, 0, pages.sheet.w, pages.sheet.h});
        pages.paint(i, paper);
        sheets.push_back(paper.primitives);
    }
    return printOutcome;
}

} // namespace chromalog::test
