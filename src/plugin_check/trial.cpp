#include "plugin_check/trial.h"

#include "plugin_check/owners.h"
#include "standalone/conversion/closed_converter.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace chromalog::plugin_check {

namespace {

namespace fs = std::filesystem;

/// Nothing is shown, and nothing of the person's is read or written.
void standAside(const fs::path& folder) {
    for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY"})
        unsetenv(name);
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    fs::create_directories(folder / "runtime");
    fs::permissions(folder / "runtime", fs::perms::owner_all);
    setenv("XDG_RUNTIME_DIR", (folder / "runtime").c_str(), 1);
}

bool isSpace(std::int16_t code) {
    return code >= plugIncolorServicesRGBSpace && code <= plugIncolorServicesXYZSpace;
}

} // namespace

Trial::Trial(const Request& request)
    : request_(request), host_(std::make_unique<standalone::ClosedConverter>()) {
    const fs::path folder = request.folder;
    if (!request.attended) standAside(folder);
    setenv("XDG_CONFIG_HOME", (folder / "config").c_str(), 1);
    setenv("DESKTOP_STARTUP_ID", "a launcher's", 1); // toolkits take it out
    // What our own picker and any other that asks this host's suite hears.
    host_.options["data-dir"] = (folder / "data").string();
    if (!request.attended) host_.options.emplace("accept", "1");
}

Trial::~Trial() {
    unload();
}

standalone::HostRun& Trial::run() {
    if (!module_) module_ = std::make_unique<standalone::PluginModule>(request_.plugin);
    if (!run_) run_.emplace(host_, module_->entry());
    return *run_;
}

standalone::HostRun::Answer Trial::pick(const standalone::HostColour& offered) {
    auto answer = run().pick(offered);
    const bool changed = answer.colour.components != offered.components;
    if (answer.result != hostNoErr && changed)
        faultOf("answer", "the pick ended with " + std::to_string(answer.result) + " and changed the colour");
    if (answer.result == hostNoErr && changed && !isSpace(answer.space))
        faultOf("answer", "the answer's space is " + std::to_string(answer.space) + ", which is none");
    return answer;
}

void Trial::endRun() {
    if (run_) run_->end();
    run_.reset();
}

/// The run ends before the module goes, and looks for its last writes afterwards.
void Trial::unload() {
    if (!module_) return;
    if (run_) run_->end();
    module_->unload();
    run_.reset();
    module_.reset();
}

void Trial::fault(const std::string& text) {
    faultOf(request_.check, text);
}

void Trial::faultOf(const std::string& check, const std::string& text) {
    found_.faults.push_back({check, text});
}

void Trial::step(const std::string& text) const {
    std::ofstream(fs::path(request_.folder) / kStepFile) << text;
}

Findings Trial::end() {
    unload();
    for (const std::string& misuse : host_.ledger.misuses())
        faultOf(ownerOf(misuse), misuse);
    // Nobody has pressed OK then, and what was found is worth nothing.
    if (host_.endWith)
        found_.unable = "the plug-in asked the host to end, with exit code " + std::to_string(*host_.endWith);
    found_.complete = true;
    return found_;
}

} // namespace chromalog::plugin_check
