#include "standalone/call_ledger.h"

#include <utility>

namespace chromalog::standalone {

void CallLedger::count(const char* callback) {
    {
        const std::lock_guard lock(mutex_);
        ++calls_[callback];
    }
    const bool isMain = std::this_thread::get_id() == mainThread_;
    if (!isMain) misuse(callback, "called from another thread than the host's main thread");
    if (!inCall_) misuse(callback, "called while no call of the plug-in runs");
    if (isMain && act_ && awaited_ == callback) std::exchange(act_, nullptr)();
}

void CallLedger::atNext(std::string callback, std::function<void()> act) {
    awaited_ = std::move(callback);
    act_ = std::move(act);
}

void CallLedger::misuse(const std::string& callback, const std::string& what) {
    const std::lock_guard lock(mutex_);
    misuses_.push_back(callback + ": " + what);
}

std::int32_t CallLedger::calls(const std::string& callback) const {
    const std::lock_guard lock(mutex_);
    const auto found = calls_.find(callback);
    return found == calls_.end() ? 0 : found->second;
}

} // namespace chromalog::standalone
