#include "standalone/suite_registry.h"

#include "abi/basic_suite.h"

#include <algorithm>

namespace chromalog::standalone {

namespace {
std::string text(const std::pair<std::string, std::int32_t>& key) {
    return key.first + ", version " + std::to_string(key.second);
}
} // namespace

std::int32_t SuiteRegistry::acquire(const char* name, std::int32_t version, const void** suite) {
    ledger_.count("AcquireSuite");
    if (!name || !suite) {
        ledger_.misuse("AcquireSuite", name ? "null suite pointer" : "null name");
        return kSPBadParameterError;
    }
    const auto found = offered_.find({name, version});
    if (found == offered_.end() || withheld_.contains(name)) return kSPSuiteNotFoundError;
    ++acquired_[found->first];
    *suite = found->second;
    return kSPNoError;
}

std::int32_t SuiteRegistry::release(const char* name, std::int32_t version) {
    ledger_.count("ReleaseSuite");
    if (!name) {
        ledger_.misuse("ReleaseSuite", "null name");
        return kSPBadParameterError;
    }
    const auto found = acquired_.find({name, version});
    if (found == acquired_.end()) {
        ledger_.misuse("ReleaseSuite", text({name, version}) + " is not acquired");
        return kSPSuiteNotFoundError;
    }
    if (--found->second == 0) acquired_.erase(found);
    return kSPNoError;
}

void SuiteRegistry::requireAcquired(const std::string& name, const char* callback) {
    const auto isAcquired = [&name](const auto& entry) { return entry.first.first == name; };
    if (std::none_of(acquired_.begin(), acquired_.end(), isAcquired))
        ledger_.misuse(callback, "called while " + name + " is not acquired");
}

void SuiteRegistry::checkAfterCall() {
    for (const auto& [key, times] : acquired_)
        ledger_.misuse("AcquireSuite", text(key) + " was not released");
    acquired_.clear();
}

} // namespace chromalog::standalone
