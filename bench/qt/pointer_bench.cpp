// pointer_bench WHEEL [WIDTH HEIGHT]: the dialog with full lists on a real screen, its wheel of that size;
// with a size of the window it shows the tone chart. It says where the strip lies ("strip X Y HEIGHT", pixels
// of the screen), then waits for somebody to move a real pointer over it with the button held. Once the
// button is released it prints as JSON how long each movement took from its delivery to the end of the frame
// that shows it, how many movements came and how many frames were painted.
#include "long_lists_dialog.h"

#include <QMouseEvent>
#include <QTimer>

#include <chrono>
#include <cstdio>
#include <vector>

using namespace chromalog;

namespace {

using Clock = std::chrono::steady_clock;

/// Watches what the toolkit delivers: movements to a window, and requests to paint a window.
class WatchingApplication : public QApplication {
  public:
    using QApplication::QApplication;

    bool notify(QObject* receiver, QEvent* event) override {
        const QEvent::Type type = event->type();
        const bool fromScreen = receiver->isWindowType(); // before any widget has it
        if (fromScreen && type == QEvent::MouseMove && dragging_) movementBegins();
        const bool taken = QApplication::notify(receiver, event);
        if (type == QEvent::UpdateRequest && !fromScreen && dragging_) frameEnded();
        if (fromScreen && type == QEvent::MouseButtonPress) dragging_ = true;
        if (fromScreen && type == QEvent::MouseButtonRelease) quit();
        return taken;
    }

    void print() const {
        std::printf("{\"movements\": %d, \"frames\": %d, \"ns\": [", movements_, frames_);
        for (std::size_t i = 0; i < nanoseconds_.size(); ++i)
            std::printf("%s%lld", i ? ", " : "", nanoseconds_[i]);
        std::puts("]}");
    }

  private:
    void movementBegins() {
        ++movements_;
        if (!waiting_) since_ = Clock::now();
        waiting_ = true;
    }
    void frameEnded() {
        ++frames_;
        if (!waiting_) return;
        waiting_ = false;
        const auto passed = std::chrono::duration_cast<std::chrono::nanoseconds>(Clock::now() - since_);
        nanoseconds_.push_back(passed.count());
    }

    Clock::time_point since_;
    bool dragging_ = false, waiting_ = false;
    int movements_ = 0, frames_ = 0;
    std::vector<long long> nanoseconds_;
};

void sayWhereTheStripIs(LongListsDialog& dialog) {
    const QWidget& strip = dialog.view("lumiView");
    const QPoint middle = strip.mapToGlobal(QPoint(strip.width() / 2, 0));
    std::printf("strip %d %d %d\n", middle.x(), middle.y(), strip.height());
    std::fflush(stdout);
}

} // namespace

int main(int argc, char** argv) {
    WatchingApplication application(argc, argv);
    LongListsDialog dialog(4999);
    if (const int wheel = argc > 1 ? std::atoi(argv[1]) : 0; wheel > 0)
        dialog.view("chromaView").setMinimumSize(wheel, wheel);
    dialog.window().move(0, 0);
    if (argc > 3) {
        dialog.window().resize(std::atoi(argv[2]), std::atoi(argv[3]));
        dialog.showToneChart();
    }
    dialog.open();
    QTimer::singleShot(500, [&] { sayWhereTheStripIs(dialog); });
    WatchingApplication::exec();
    application.print();
}
