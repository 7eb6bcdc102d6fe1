#pragma once

#include "golden_states/run_recorder.h"
#include "support/run_program.h"
#include "support/swatch_files.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

#include <array>
#include <fstream>
#include <map>
#include <string>
#include <vector>

namespace chromalog::test {

using nlohmann::json;

/// Runs the stand-alone host with scripts, offscreen unless a test says otherwise, each test in folders of
/// its own.
class DrivenPick : public testing::Test {
  protected:
    DrivenPick() {
        for (const char* name : {"run", "config", "home"})
            std::filesystem::create_directory(file(name));
        std::filesystem::permissions(file("run"), std::filesystem::perms::owner_all);
        environment_ = {{"QT_QPA_PLATFORM", "offscreen"}, {"CHROMALOG_STRICT", "1"},
                        {"XDG_RUNTIME_DIR", file("run")}, {"XDG_CONFIG_HOME", file("config")},
                        {"HOME", file("home")},           {"QT_LOGGING_RULES", ""},
                        {"QT_SCALE_FACTOR", ""},          {"LC_ALL", "C.UTF-8"}};
    }

    std::string file(const std::string& name) const { return folder_ / name; }

    void write(const std::string& name, const std::string& text) const {
        std::ofstream(file(name), std::ios::binary) << text;
    }
    void write(const std::string& name, const std::vector<std::uint8_t>& bytes) const {
        write(name, std::string(bytes.begin(), bytes.end()));
    }

    /// "three.aco": Red, Green and Blue.
    void writeThree() const {
        FileBuilder builder;
        builder.header(2, 3);
        for (int channel = 0; const char* name : {"Red", "Green", "Blue"}) {
            std::array<int, 3> rgb{};
            rgb[static_cast<std::size_t>(channel++)] = 65535;
            builder.colour(0, rgb[0], rgb[1], rgb[2]).name(name);
        }
        write("three.aco", builder.bytes);
    }

    std::string read(const std::string& name) const {
        std::ifstream in(file(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(in), {}};
    }

    /// Width and height from a PNG file's header.
    std::pair<int, int> sizeOf(const std::string& name) const {
        std::ifstream in(file(name), std::ios::binary);
        unsigned char header[24] = {};
        in.read(reinterpret_cast<char*>(header), sizeof header);
        const auto number = [&](int at) {
            return header[at + 1] << 16 | header[at + 2] << 8 | header[at + 3];
        };
        return {number(16), number(20)};
    }

    /// The host's command line with these options; a run that hangs is ended before its test is, and fails by
    /// its exit code.
    std::vector<std::string> command(const std::vector<std::string>& options) const {
        std::vector<std::string> words = {"timeout",         "-k",         "5",         "45",
                                          CHROMALOG_PROGRAM, "--data-dir", file("data")};
        words.insert(words.end(), options.begin(), options.end());
        return words;
    }

    ProgramResult pick(const std::vector<std::string>& options) const {
        const golden::RunRecorder recorder(folder_.path());
        const auto result = runProgram(command(options), environment_);
        if (!environment_.contains("CHROMALOG_FORMS")) // fonts decide on places in forms of its own
            recorder.keep(options, result);
        return result;
    }

    /// $ in the script stands for the test's folder.
    void writeScript(std::string script) const {
        for (auto at = script.find('$'); at != std::string::npos;
             at = script.find('$', at + folder_.path().size()))
            script.replace(at, 1, folder_.path());
        write("script", script);
    }

    ProgramResult play(const std::string& script, std::vector<std::string> options = {}) const {
        writeScript(script);
        options.insert(options.end(), {"--drive", file("script")});
        return pick(options);
    }

    /// Plays a script that must come to its end without an error.
    void playWell(const std::string& script, const std::vector<std::string>& options = {}) const {
        const auto result = play(script, options);
        EXPECT_LE(result.exitCode, 1) << result.err;
        EXPECT_EQ(result.err, "");
    }

    json state(const std::string& name = "state.json") const {
        std::ifstream in(file(name));
        EXPECT_TRUE(in.is_open()) << name;
        return json::parse(in, nullptr, false);
    }

    TemporaryFolder folder_;
    std::map<std::string, std::string> environment_;
};

} // namespace chromalog::test
