#include "plugin_check/hostile_host.h"

#include <cstdint>
#include <cstring>

namespace chromalog::plugin_check {

namespace {

/// A table, which begins with its version and how many functions it has; all of them are null.
template <typename Procs> Procs* empty(std::int16_t version, std::int16_t count) {
    static Procs procs{};
    const std::int16_t head[]{version, count};
    std::memcpy(&procs, head, sizeof head);
    return &procs;
}

void withoutBasicSuite(PickerRecord& record) {
    record.sSPBasic = nullptr;
    record.handleProcs = nullptr; // nor does a dialog open, that nobody could end without the host's suite
}

void withoutBasicFunctions(PickerRecord& record) {
    static SPBasicSuite nothing{};
    record.sSPBasic = &nothing;
    record.handleProcs = nullptr;
}

constexpr Alteration kMissing[] = {
    {"no bufferProcs", [](PickerRecord& r) { r.bufferProcs = nullptr; }},
    {"no handleProcs", [](PickerRecord& r) { r.handleProcs = nullptr; }},
    {"no processEvent", [](PickerRecord& r) { r.processEvent = nullptr; }},
    {"no errorString", [](PickerRecord& r) { r.errorString = nullptr; }},
    {"no pickerPrompt", [](PickerRecord& r) { r.pickParms.pickerPrompt = nullptr; }},
    {"bufferProcs without functions", [](PickerRecord& r) { r.bufferProcs = empty<BufferProcs>(2, 8); }},
    {"handleProcs without functions", [](PickerRecord& r) { r.handleProcs = empty<HandleProcs>(1, 8); }},
    {"propertyProcs without functions",
     [](PickerRecord& r) { r.propertyProcs = empty<PropertyProcs>(1, 2); }},
    {"no basic suite", withoutBasicSuite},
    {"a basic suite without functions", withoutBasicFunctions},
};

} // namespace

std::span<const Alteration> missingCallbacks() {
    return kMissing;
}

} // namespace chromalog::plugin_check
