#pragma once

#include "plugin_check/findings.h"
#include "standalone/host_run.h"
#include "standalone/plugin_module.h"

#include <memory>
#include <optional>
#include <string>

namespace chromalog::plugin_check {

/// What a check's process is asked to do.
struct Request {
    std::string plugin; ///< the module's path
    std::string check;  ///< its name
    std::string
        folder; ///< of this process alone: settings, what it tells (kFindingsFile), where it is (kStepFile)
    bool attended = false; ///< a person ends each dialog; else nothing is shown
};

inline constexpr const char* kFindingsFile = "findings";
inline constexpr const char* kStepFile = "step";

/// An unusual colour: the fourth component means nothing.
inline const standalone::HostColour kOffered{standalone::Space::rgb, {0x12FF, 0x3400, 0xFFFF, 77}};

/// The plug-in in a strict host, in folders of its own. One lives at a time, in a process of its own.
class Trial {
  public:
    explicit Trial(const Request&);
    ~Trial();
    Trial(const Trial&) = delete;
    Trial& operator=(const Trial&) = delete;

    const Request& request() const { return request_; }
    standalone::Host& host() { return host_; }
    /// The host run that goes on; the first use loads the module and throws std::runtime_error where it
    /// cannot.
    standalone::HostRun& run();
    /// A pick in it, whose answer is judged.
    standalone::HostRun::Answer pick(const standalone::HostColour& offered = kOffered);
    /// Ends the run; the next pick begins another one with the module as it is.
    void endRun();
    /// Ends the run and unloads the module; the next pick begins both anew.
    void unload();

    /// What the plug-in does wrong in the eyes of this check.
    void fault(const std::string& text);
    void faultOf(const std::string& check, const std::string& text);
    void skip(const std::string& why) { found_.skipped = why; }
    /// What goes on: told to the person where the process ends in it.
    void step(const std::string& text) const;

    /// Ends everything and tells what was found.
    Findings end();

  private:
    const Request request_;
    Findings found_;
    standalone::Host host_;
    std::unique_ptr<standalone::PluginModule> module_;
    std::optional<standalone::HostRun> run_;
};

} // namespace chromalog::plugin_check
