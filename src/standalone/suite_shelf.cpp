#include "standalone/suite_shelf.h"

#include "abi/basic_suite.h"

#include <algorithm>

namespace chromalog::standalone {

namespace {
std::string text(const std::pair<std::string, std::int32_t>& key) {
    return key.first + ", version " + std::to_string(key.second);
}
} // namespace

std::int32_t SuiteShelf::acquire(const char* name, std::int32_t version, const void** suite) {
    ledger_.count("AcquireSuite");
    if (!name || !suite) {
        ledger_.misuse("AcquireSuite", name ? "null suite pointer" : "null name");
        return kSPBadParameterError;
    }
    const auto found = offered_.find({name, version});
    if (found == offered_.end() || withheld_.count(name)) return kSPSuiteNotFoundError;
    ++held_[found->first];
    *suite = found->second;
    return kSPNoError;
}

std::int32_t SuiteShelf::release(const char* name, std::int32_t version) {
    ledger_.count("ReleaseSuite");
    if (!name) {
        ledger_.misuse("ReleaseSuite", "null name");
        return kSPBadParameterError;
    }
    const auto found = held_.find({name, version});
    if (found == held_.end()) {
        ledger_.misuse("ReleaseSuite", text({name, version}) + " is not acquired");
        return kSPSuiteNotFoundError;
    }
    if (--found->second == 0) held_.erase(found);
    return kSPNoError;
}

void SuiteShelf::requireHeld(const std::string& name, const char* callback) {
    const auto isHeld = [&name](const auto& entry) { return entry.first.first == name; };
    if (std::none_of(held_.begin(), held_.end(), isHeld))
        ledger_.misuse(callback, "called while " + name + " is not acquired");
}

void SuiteShelf::checkAfterCall() {
    for (const auto& [key, times] : held_)
        ledger_.misuse("AcquireSuite", text(key) + " was not released");
    held_.clear();
}

} // namespace chromalog::standalone
