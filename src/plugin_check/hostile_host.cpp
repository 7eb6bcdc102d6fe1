#include "plugin_check/hostile_host.h"

#include "abi/standalone_suite.h"
#include "standalone/callbacks.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <limits>

namespace chromalog::plugin_check {

namespace {

/// What a null or stray pointer reads or writes is told apart by this address, which nothing has.
Handle strayHandle() {
    return reinterpret_cast<Handle>(std::intptr_t{0x10});
}

std::int16_t failWithRubbish(std::uint32_t, std::uint32_t, std::int32_t, std::intptr_t* simple,
                             Handle* complex) {
    if (simple) *simple = -559038737;
    if (complex) *complex = strayHandle();
    return errPlugInPropertyUndefined;
}

template <std::intptr_t Value>
std::int16_t answerValue(std::uint32_t, std::uint32_t, std::int32_t, std::intptr_t* simple, Handle* complex) {
    if (simple) *simple = Value;
    if (complex) *complex = nullptr;
    return hostNoErr;
}

template <auto GetProperty> void withProperties(PickerRecord& record) {
    static PropertyProcs procs;
    procs = *standalone::propertyProcs();
    procs.getPropertyProc = GetProperty;
    record.propertyProcs = &procs;
}

std::int16_t failAndScribble(ColorServicesInfo* info) {
    if (info) std::ranges::fill(info->colorComponents, std::int16_t{-21555});
    return hostParamErr;
}

template <std::int16_t Value> std::int16_t convertToWild(ColorServicesInfo* info) {
    if (!info) return hostParamErr;
    std::ranges::fill(info->colorComponents, Value);
    info->resultGamutInfoValid = info->resultInGamut = 255;
    info->resultSpace = info->sourceSpace = Value;
    return hostNoErr;
}

bool isOwnSuite(const char* name) {
    return name && std::strcmp(name, kStandaloneSuite) == 0; // what ends a dialog that no person sees
}

/// Success, and no suite.
std::int32_t acquireNothing(const char* name, std::int32_t version, const void** suite) {
    if (isOwnSuite(name)) return standalone::basicSuite()->AcquireSuite(name, version, suite);
    if (suite) *suite = nullptr;
    return kSPNoError;
}

/// Success, and a suite whose functions are null.
std::int32_t acquireEmpty(const char* name, std::int32_t version, const void** suite) {
    static const void* const functions[16]{};
    if (isOwnSuite(name)) return standalone::basicSuite()->AcquireSuite(name, version, suite);
    if (suite) *suite = functions;
    return kSPNoError;
}

/// An error, and yet something that looks like a suite.
std::int32_t failWithSuite(const char* name, std::int32_t version, const void** suite) {
    if (isOwnSuite(name)) return standalone::basicSuite()->AcquireSuite(name, version, suite);
    if (suite) *suite = strayHandle();
    return kSPBadParameterError;
}

std::int32_t failToRelease(const char* name, std::int32_t version) {
    return isOwnSuite(name) ? standalone::basicSuite()->ReleaseSuite(name, version) : kSPBadParameterError;
}

template <auto Acquire> void withSuites(PickerRecord& record) {
    static SPBasicSuite suite;
    suite = *standalone::basicSuite();
    suite.AcquireSuite = Acquire;
    suite.ReleaseSuite = failToRelease;
    record.sSPBasic = &suite;
}

template <std::int16_t Source, std::int16_t Result> void withSpaces(PickerRecord& record) {
    record.pickParms.sourceSpace = Source;
    record.pickParms.resultSpace = Result;
}

/// All that a host may say of itself, as far from what any says as it can be.
void withWildFields(PickerRecord& record) {
    record.serialNumber = std::numeric_limits<std::int32_t>::min();
    record.hostSig = 0xFFFFFFFF;
    std::memset(&record.monitor, 0xFF, sizeof record.monitor);
    static unsigned char prompt[256]; // no text in any encoding
    std::ranges::fill(prompt, std::uint8_t{0xFF});
    record.pickParms.pickerPrompt = prompt;
    std::memset(record.errorString, 0xFF, 256);
}

void withEmptyPrompt(PickerRecord& record) {
    static unsigned char prompt[1]{0};
    record.pickParms.pickerPrompt = prompt;
    std::memset(&record.monitor, 0, sizeof record.monitor);
}

constexpr auto kLargest = std::numeric_limits<std::intptr_t>::max();
constexpr auto kSmallest = std::numeric_limits<std::intptr_t>::min();

constexpr Alteration kHostile[] = {
    {"a property that fails and leaves rubbish", withProperties<failWithRubbish>},
    {"a property of -1", withProperties<answerValue<-1>>},
    {"the largest property", withProperties<answerValue<kLargest>>},
    {"the smallest property", withProperties<answerValue<kSmallest>>},
    {"colour services that fail and leave rubbish",
     [](PickerRecord& r) { r.colorServices = failAndScribble; }},
    {"colour services that answer 32767", [](PickerRecord& r) { r.colorServices = convertToWild<32767>; }},
    {"colour services that answer -32768", [](PickerRecord& r) { r.colorServices = convertToWild<-32768>; }},
    {"suites that are null", withSuites<acquireNothing>},
    {"suites without functions", withSuites<acquireEmpty>},
    {"suites that fail and are there", withSuites<failWithSuite>},
    {"a source space of 32767", withSpaces<32767, 99>},
    {"a source space of -32768", withSpaces<-32768, -32768>},
    {"a source space of 7", withSpaces<7, 7>},
    {"wild fields", withWildFields},
    {"an empty prompt and no monitor", withEmptyPrompt},
};

} // namespace

std::span<const Alteration> hostileAnswers() {
    return kHostile;
}

} // namespace chromalog::plugin_check
