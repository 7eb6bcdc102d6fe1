#include "standalone/host_run.h"

#include "standalone/callbacks.h"

#include <algorithm>
#include <clocale>
#include <cstring>
#include <new>

namespace chromalog::standalone {

namespace {

std::int32_t fixed(double value) {
    return static_cast<std::int32_t>(value * 65536);
}

PlugInMonitor sRgbMonitor() {
    return {fixed(2.2),  fixed(0.64), fixed(0.33),   fixed(0.30),   fixed(0.60),
            fixed(0.15), fixed(0.06), fixed(0.3127), fixed(0.3290), fixed(1)};
}

void fillRecord(PickerRecord& record, const Host& host, const HostColour& offered,
                unsigned char* errorString) {
    record.hostSig = kHostSignature;
    record.bufferProcs = bufferProcs();
    record.handleProcs = handleProcs();
    if (host.offersColourServices) record.colorServices = colourServicesCallback;
    if (host.offersProperties) record.propertyProcs = propertyProcs();
    record.processEvent = processEventCallback;
    record.errorString = errorString;
    record.monitor = sRgbMonitor();
    record.sSPBasic = basicSuite();
    static unsigned char prompt[] = "\x0ePick a colour:";
    record.pickParms.pickerPrompt = prompt;
    record.pickParms.sourceSpace = static_cast<std::int16_t>(offered.space);
    record.pickParms.resultSpace = plugIncolorServicesChosenSpace;
    std::copy(offered.components.begin(), offered.components.end(), record.pickParms.colorComponents);
}

/// What differs but for the answer's fields.
std::string changedBeside(PickerRecord before, const PickerRecord& after) {
    before.pickParms.resultSpace = after.pickParms.resultSpace;
    std::copy_n(after.pickParms.colorComponents, 4, before.pickParms.colorComponents);
    return difference(&before, &after, sizeof before);
}

constexpr std::size_t kOldCalls = 4; ///< a late write may come some picks later

} // namespace

/// What one call hands to the plug-in, in one block that is watched after the call.
struct HostRun::Call {
    union {
        PickerRecord record;
        AboutRecord about;
    };
    std::int16_t result;
    unsigned char errorString[256];
};

HostRun::~HostRun() {
    end();
    watchOldRecords();
    host_.handles.end();
}

HostRun::Call& HostRun::newCall(GuardedBlock& block) {
    std::memset(block.data(), 0, block.size());
    Call& call = *new (block.data()) Call;
    std::memset(&call, 0, sizeof call);
    return call;
}

/// `changed`: what the record no longer holds, but for the answer.
void HostRun::endCall(GuardedBlock& block, const std::string& changed) {
    const std::string where = block.guardsIntact() ? changed : "past its ends";
    if (where != "none")
        host_.ledger.misuse("PluginMain", "the record was changed outside the answer's fields: " + where);
    block.poison();
    oldCalls_.push_back(std::move(block));
    if (oldCalls_.size() > kOldCalls) oldCalls_.pop_front();
}

HostRun::Answer HostRun::pick(const HostColour& offered) {
    watchOldRecords();
    return makeCall(offered, &HostRun::enter);
}

HostRun::Answer HostRun::pickWithinCall(const HostColour& offered) {
    return makeCall(offered, &HostRun::enterAgain);
}

HostRun::Answer HostRun::makeCall(const HostColour& offered, Enter enterBy) {
    GuardedBlock block(sizeof(Call));
    Call& call = newCall(block);
    fillRecord(call.record, host_, offered, call.errorString);
    if (host_.alterRecord) host_.alterRecord(call.record);
    PickerRecord before;
    std::memcpy(&before, &call.record, sizeof before);
    (this->*enterBy)(pickerSelectorPick, &call.record, call.result);
    Answer answer{call.result, offered, call.record.pickParms.resultSpace, {}};
    std::copy_n(call.record.pickParms.colorComponents, 4, answer.colour.components.begin());
    if (call.result == errReportString)
        answer.error.assign(reinterpret_cast<const char*>(call.errorString) + 1, call.errorString[0]);
    endCall(block, changedBeside(before, call.record));
    return answer;
}

std::int16_t HostRun::about() {
    watchOldRecords();
    GuardedBlock block(sizeof(Call));
    Call& call = newCall(block);
    call.about.sSPBasic = basicSuite();
    const AboutRecord before = call.about;
    enter(pickerSelectorAbout, &call.about, call.result);
    const std::int16_t result = call.result;
    endCall(block, difference(&before, &call.about, sizeof before));
    return result;
}

void HostRun::enter(std::int16_t selector, void* record, std::int16_t& result) {
    const std::string numbers = std::setlocale(LC_NUMERIC, nullptr);
    host_.beginCall();
    entry_(selector, record, &slot_, &result);
    host_.endCall(slot_);
    checkNumbers(numbers);
}

/// The bounds are those of the call that runs.
void HostRun::enterAgain(std::int16_t selector, void* record, std::int16_t& result) {
    entry_(selector, record, &slot_, &result);
}

void HostRun::end() {
    const std::string numbers = std::setlocale(LC_NUMERIC, nullptr);
    host_.endRun();
    checkNumbers(numbers);
}

void HostRun::checkNumbers(const std::string& before) const {
    if (before != std::setlocale(LC_NUMERIC, nullptr))
        host_.ledger.misuse("PluginMain", "the locale of numbers is not as it was before the call");
}

void HostRun::watchOldRecords() {
    for (GuardedBlock& old : oldCalls_) {
        if (old.stillPoisoned()) continue;
        host_.ledger.misuse("PluginMain", "the record was written after the call: " + old.writtenSince());
        old.poison(); // named once
    }
}

} // namespace chromalog::standalone
