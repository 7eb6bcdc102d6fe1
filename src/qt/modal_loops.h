#pragma once

#include <QEventLoop>

#include <cstdint>
#include <vector>

namespace chromalog {

class DialogWindow;

/// The modal loops that run now, the innermost last.
class ModalLoops {
  public:
    /// Shows the window, blocks the windows around it, and returns the code that stop is given.
    std::int64_t run(DialogWindow&);
    void stop(std::int64_t code); ///< nothing where no loop runs
    void stopAll(std::int64_t code);
    std::size_t depth() const { return running_.size(); }
    DialogWindow* innermost() const { return running_.empty() ? nullptr : running_.back()->window; }

  private:
    struct Running {
        explicit Running(DialogWindow& w) : window(&w) {}
        DialogWindow* window;
        QEventLoop loop;
        std::int64_t code = 0;
        bool stopped = false;
    };
    std::vector<Running*> running_;
};

} // namespace chromalog
