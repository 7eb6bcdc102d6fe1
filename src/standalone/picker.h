#pragma once

#include "standalone/host_colour.h"
#include "standalone/host_run.h"
#include "standalone/plugin_module.h"

#include <array>
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace chromalog::standalone {

enum class ServicesKind { lcms, closed, none, error };

/// What a host lets its plug-in have.
struct PickerSettings {
    std::string plugin; ///< the module's path
    ServicesKind services = ServicesKind::lcms;
    std::string cmykProfile;                    ///< for lcms; empty: the installed one, if any
    int hostVersion = 16;                       ///< major version that the host reports
    std::map<std::string, std::string> options; ///< what the host's own suite tells of
    HandleHeap::Failing failing = HandleHeap::Failing::nothing;
};

/// How a pick ended.
struct Picked {
    enum class End {
        changed,     ///< `colour` is the plug-in's, as RGB
        asOffered,   ///< Cancel, or the same components
        noDialog,    ///< as offered, and nothing was shown: there is no display
        noMemory,    ///< the plug-in got none
        pluginError, ///< an error of the plug-in's own; `problem` tells it
        ended        ///< the plug-in asks for an end with `exitCode`
    };
    End end = End::asOffered;
    HostColour colour;
    std::string problem{};
    int exitCode = 0;
};

/// A plug-in in this process and the strict host around it. One lives at a time; all calls on one thread.
class Picker {
  public:
    /// Throws std::runtime_error with one line where the file is no plug-in, or a profile cannot serve.
    explicit Picker(const PickerSettings&);
    ~Picker();
    Picker(const Picker&) = delete;
    Picker& operator=(const Picker&) = delete;

    Picked pick(const HostColour& offered);
    void about();
    /// What the plug-in took from the screen in the last pick, where the option "pick" asked for that.
    const std::vector<std::array<std::uint16_t, 3>>& taken() const { return host_->taken; }
    const ColourConverter& converter() const { return host_->colours.converter(); }

    /// Ends the run and unloads the module, no call may follow. Returns what the plug-in did wrong, a line
    /// each.
    std::vector<std::string> end();

  private:
    // The module is unloaded after the run's last call and before the run takes its memory back: what the
    // plug-in does meanwhile counts too.
    std::unique_ptr<Host> host_;
    std::unique_ptr<HostRun> run_;
    std::unique_ptr<PluginModule> module_;
};

/// Whether a person wants misuse to be fatal: CHROMALOG_STRICT=1.
bool misuseIsFatal();

/// The CMYK profile that the settings lead to; empty where there is none.
std::string cmykProfileOf(const PickerSettings&);

} // namespace chromalog::standalone
