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

/// True where nothing but the answer's fields differs.
bool onlyAnswered(PickerRecord before, const PickerRecord& after) {
    before.pickParms.resultSpace = after.pickParms.resultSpace;
    std::copy_n(after.pickParms.colorComponents, 4, before.pickParms.colorComponents);
    return std::memcmp(&before, &after, sizeof before) == 0;
}

} // namespace

/// What one call hands to the plug-in, in one block that is watched after the call.
struct HostRun::Call {
    PickerRecord record;
    AboutRecord about;
    std::int16_t result;
    unsigned char errorString[256];
};

HostRun::~HostRun() {
    end();
    watchOldRecord();
    host_.handles.end();
}

HostRun::Call& HostRun::newCall(GuardedBlock& block) {
    std::memset(block.data(), 0, block.size());
    Call& call = *new (block.data()) Call;
    std::memset(&call, 0, sizeof call);
    return call;
}

/// `unchanged`: whether the record holds what it held, but for the answer.
void HostRun::endCall(GuardedBlock& block, bool unchanged) {
    if (!block.guardsIntact() || !unchanged)
        host_.ledger.misuse("PluginMain", "the record was changed outside the answer's fields");
    block.poison();
    oldCall_ = std::move(block);
}

HostRun::Answer HostRun::pick(const HostColour& offered) {
    watchOldRecord();
    GuardedBlock block(sizeof(Call));
    Call& call = newCall(block);
    fillRecord(call.record, host_, offered, call.errorString);
    PickerRecord before;
    std::memcpy(&before, &call.record, sizeof before);
    enter(pickerSelectorPick, &call.record, call.result);
    Answer answer{call.result, offered, {}};
    std::copy_n(call.record.pickParms.colorComponents, 4, answer.colour.components.begin());
    if (call.result == errReportString)
        answer.error.assign(reinterpret_cast<const char*>(call.errorString) + 1, call.errorString[0]);
    endCall(block, onlyAnswered(before, call.record));
    return answer;
}

void HostRun::about() {
    watchOldRecord();
    GuardedBlock block(sizeof(Call));
    Call& call = newCall(block);
    call.about.sSPBasic = basicSuite();
    const AboutRecord before = call.about;
    enter(pickerSelectorAbout, &call.about, call.result);
    endCall(block, std::memcmp(&before, &call.about, sizeof before) == 0);
}

void HostRun::enter(std::int16_t selector, void* record, std::int16_t& result) {
    const std::string numbers = std::setlocale(LC_NUMERIC, nullptr);
    host_.beginCall();
    entry_(selector, record, &slot_, &result);
    host_.endCall(slot_);
    checkNumbers(numbers);
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

void HostRun::watchOldRecord() {
    if (oldCall_ && !oldCall_->stillPoisoned())
        host_.ledger.misuse("PluginMain", "the record was written after the call");
    oldCall_.reset();
}

} // namespace chromalog::standalone
