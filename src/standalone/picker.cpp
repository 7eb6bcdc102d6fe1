#include "standalone/picker.h"

#include "standalone/conversion/closed_converter.h"
#include "standalone/conversion/lcms_converter.h"

#include <cstdlib>
#include <future>
#include <optional>
#include <string_view>
#include <utility>

namespace chromalog::standalone {

namespace {

std::unique_ptr<ColourConverter> makeConverter(const PickerSettings& settings) {
    if (settings.services == ServicesKind::closed) return std::make_unique<ClosedConverter>();
    return std::make_unique<LcmsConverter>(cmykProfileOf(settings));
}

void setUp(Host& host, const PickerSettings& settings) {
    host.version = settings.hostVersion;
    host.options = settings.options;
    host.offersColourServices = settings.services != ServicesKind::none;
    // People need the memory more than the sight of a plug-in that reads before it writes.
    if (!misuseIsFatal()) host.handles.setFresh(Fresh::zeroes);
    if (settings.services == ServicesKind::error) host.colours.failAlways();
    host.handles.setFailing(settings.failing);
}

/// How a pick ended that gave no colour; nothing where it did.
std::optional<Picked> failureOf(const Host& host, const HostRun::Answer& answer, const HostColour& offered) {
    using End = Picked::End;
    if (host.endWith) return Picked{End::ended, offered, {}, *host.endWith};
    if (answer.result == hostMemFullErr)
        return Picked{End::noMemory, offered, "the plug-in could not get its memory"};
    if (answer.result != hostNoErr && answer.result != hostUserCanceledErr)
        return Picked{End::pluginError, offered,
                      answer.error.empty() ? "the plug-in ended with error " + std::to_string(answer.result)
                                           : answer.error};
    return std::nullopt;
}

} // namespace

Picker::Picker(const PickerSettings& settings) {
    // Either takes some milliseconds: a profile is made ready while the module is linked.
    auto converter = std::async(makeConverter, settings);
    auto module = std::make_unique<PluginModule>(settings.plugin);
    host_ = std::make_unique<Host>(converter.get());
    setUp(*host_, settings);
    module_ = std::move(module);
    run_ = std::make_unique<HostRun>(*host_, module_->entry());
}

Picker::~Picker() {
    end();
}

Picked Picker::pick(const HostColour& offered) {
    const HostRun::Answer answer = run_->pick(offered);
    if (auto failure = failureOf(*host_, answer, offered)) return *std::move(failure);
    // The interface has no other sign of a pick than that the components differ; an answer is always RGB.
    if (answer.colour.components != offered.components)
        return {Picked::End::changed, {Space::rgb, answer.colour.components}};
    // What opens a dialog keeps its lists in the slot.
    const bool shown = answer.result != hostNoErr || run_->slot() != 0;
    return {shown ? Picked::End::asOffered : Picked::End::noDialog, offered};
}

void Picker::about() {
    run_->about();
}

std::vector<std::string> Picker::end() {
    if (run_) {
        run_->end();
        module_->unload();
        run_.reset();
    }
    const auto& misuses = host_->ledger.misuses();
    return {misuses.begin(), misuses.end()};
}

bool misuseIsFatal() {
    const char* strict = std::getenv("CHROMALOG_STRICT");
    return strict && std::string_view(strict) == "1";
}

std::string cmykProfileOf(const PickerSettings& settings) {
    return settings.cmykProfile.empty() ? LcmsConverter::installedCmykProfile() : settings.cmykProfile;
}

} // namespace chromalog::standalone
