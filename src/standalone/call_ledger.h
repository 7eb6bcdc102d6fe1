#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <mutex>
#include <string>
#include <thread>

namespace chromalog::standalone {

/// What the plug-in did with the host: how often it called what, and every mistake that it made, one line
/// each.
class CallLedger {
  public:
    /// Bounds of one call of the plug-in's entry, on the thread that made this ledger.
    void beginCall() { inCall_ = true; }
    void endCall() { inCall_ = false; }

    /// Counts one use of a callback. A use between calls, or from another thread, is a mistake.
    void count(const char* callback);
    /// Does this once, within the next use of the callback on the main thread.
    void atNext(std::string callback, std::function<void()> act);
    void misuse(const std::string& callback, const std::string& what);

    std::int32_t calls(const std::string& callback) const;
    /// Lines stay where they are until the ledger ends.
    const std::deque<std::string>& misuses() const { return misuses_; }

  private:
    mutable std::mutex mutex_;
    std::thread::id mainThread_ = std::this_thread::get_id();
    bool inCall_ = false;
    std::string awaited_;
    std::function<void()> act_;
    std::map<std::string, std::int32_t> calls_;
    std::deque<std::string> misuses_;
};

} // namespace chromalog::standalone
