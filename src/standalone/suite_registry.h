#pragma once

#include "standalone/call_ledger.h"

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <utility>

namespace chromalog::standalone {

/// The suites that the host offers, by name and version, and how often the plug-in holds each.
class SuiteRegistry {
  public:
    explicit SuiteRegistry(CallLedger& ledger) : ledger_(ledger) {}

    void offer(const std::string& name, std::int32_t version, const void* table) {
        offered_[{name, version}] = table;
    }
    /// From now on the host has no suite of this name.
    void withhold(const std::string& name) { withheld_.insert(name); }
    /// Only of this version.
    void withhold(const std::string& name, std::int32_t version) { offered_.erase({name, version}); }

    std::int32_t acquire(const char* name, std::int32_t version, const void** suite);
    std::int32_t release(const char* name, std::int32_t version);
    /// Names a use of a suite's function by a plug-in that holds no version of that suite.
    void requireAcquired(const std::string& name, const char* callback);

    void checkAfterCall();

  private:
    using Key = std::pair<std::string, std::int32_t>;
    CallLedger& ledger_;
    std::map<Key, const void*> offered_;
    std::set<std::string> withheld_;
    std::map<Key, int> acquired_;
};

} // namespace chromalog::standalone
