#pragma once

#include "record/global_record.h"
#include "standalone/callbacks.h"
#include "standalone/conversion/closed_converter.h"
#include "standalone/host_run.h"
#include "standalone/plugin_module.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <memory>
#include <string>
#include <unistd.h>

namespace chromalog::standalone {

namespace fs = std::filesystem;

inline const HostColour kOffered{Space::rgb, {0x12FF, 0x3400, 0xFFFF, 77}};

/// The module in a strict host, in folders of its own.
struct PlugInCheck : ::testing::Test {
    explicit PlugInCheck(std::unique_ptr<ColourConverter> converter = std::make_unique<ClosedConverter>())
        : host(std::move(converter)) {
        fs::create_directories(folder / "runtime");
        fs::permissions(folder / "runtime", fs::perms::owner_all);
        for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "CHROMALOG_DATA_DIR", "CHROMALOG_FORMS"})
            unsetenv(name);
        setenv("QT_QPA_PLATFORM", "offscreen", 1);
        setenv("XDG_RUNTIME_DIR", (folder / "runtime").c_str(), 1);
        setenv("XDG_CONFIG_HOME", (folder / "config").c_str(), 1);
        host.options = {{"data-dir", (folder / "data").string()}, {"accept", "1"}};
    }
    ~PlugInCheck() override {
        EXPECT_THAT(host.ledger.misuses(), ::testing::IsEmpty());
        fs::remove_all(folder);
    }

    HostRun::Answer pick(const HostColour& offered = kOffered) {
        const PluginModule module(CHROMALOG_MODULE);
        HostRun run(host, module.entry());
        return run.pick(offered);
    }

    /// One red swatch "A" in a file of version 2, followed by zeros up to this length.
    fs::path swatchFile(const std::string& name, std::uintmax_t length = 0) const {
        const char bytes[] = "\0\2\0\1\0\0\xFF\xFF\0\0\0\0\0\0\0\0\0\2\0A\0";
        std::ofstream(folder / name, std::ios::binary).write(bytes, sizeof bytes);
        fs::resize_file(folder / name, std::max<std::uintmax_t>(length, sizeof bytes));
        return folder / name;
    }
    /// The next pick plays this script in the place of pressing OK.
    void play(const std::string& script) {
        const fs::path file = folder / ("script" + std::to_string(++scripts)); // one that is known goes on
        std::ofstream(file) << script;
        host.options.erase("accept");
        host.options["drive"] = file.string();
    }

    fs::path preferences() const { return folder / "data/Quorvex/com_Quorvex_Chromalog_64_3-50.prf"; }

    const fs::path folder = fs::path(::testing::TempDir()) / ("plugin_check_" + std::to_string(getpid()));
    Host host;
    int scripts = 0;
};

/// The host's view of the plug-in's memory between two picks.
struct SlotMemory {
    explicit SlotMemory(Host& host, std::intptr_t slot) : host(host), handle(reinterpret_cast<Handle>(slot)) {
        host.beginCall();
        record = reinterpret_cast<GlobalRecord*>(host.handles.lock(handle));
    }
    ~SlotMemory() {
        host.handles.unlock(handle);
        host.ledger.endCall();
    }
    Host& host;
    Handle handle;
    GlobalRecord* record;
};

} // namespace chromalog::standalone
