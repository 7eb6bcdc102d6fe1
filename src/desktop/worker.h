#pragma once

#include <functional>

namespace chromalog {

/// Does what takes long beside the event loop, on a thread of its own, one piece at a time. The base class
/// does it at once.
class Worker {
  public:
    virtual ~Worker() = default; ///< waits for the piece that is under way, its `then` included

    /// `work` throws nothing and touches nothing but what it was given; `then` follows on the main thread.
    /// The piece before, with its `then`, ends first: who does not want to wait begins the next one there.
    virtual void begin(std::function<void()> work, std::function<void()> then) {
        work();
        then();
    }
};

} // namespace chromalog
