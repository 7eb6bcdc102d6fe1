#pragma once

#include "dialog/chromalog_controler.h"
#include "dialog/globals.h"
#include "dialog/pick.h"
#include "support/headless_desktop.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <vector>

namespace chromalog::test {

using DialogStep = std::function<void(ChromalogControler&, HeadlessDesktop&)>;

/// A host of the smallest kind and a platform whose modal loop runs the test's step, then Cancel where it did
/// not end.
class PickTest : public testing::Test, public Platform {
  public:
    std::unique_ptr<Desktop> makeDesktop(const StandaloneSuite*) override {
        if (!display) return nullptr;
        auto desktop = std::make_unique<HeadlessDesktop>();
        desktop->applications = applications.string();
        desktop_ = desktop.get();
        if (prepare) prepare(*desktop);
        return desktop;
    }
    void dialogReady(Desktop&, ChromalogControler& controler) override {
        if (step_) desktop_->modalSteps.push_back([this, &controler] { step_(controler, *desktop_); });
        desktop_->modalSteps.push_back([&controler] { controler.cancelPressed(); });
        if (onReady) onReady(controler, *desktop_);
    }

  protected:
    static inline int acquired = 0, released = 0;
    static inline bool suitesExist = true;

    void SetUp() override {
        const auto* info = testing::UnitTest::GetInstance()->current_test_info();
        applications = std::filesystem::temp_directory_path() /
                       ("chromalog-" + std::to_string(::getpid()) + "-" + info->name());
        std::filesystem::remove_all(applications);
        acquired = released = 0;
        suitesExist = true;
        handles.newProc = [](std::int32_t size) -> Handle {
            auto* master = new char*;
            *master = static_cast<char*>(std::malloc(static_cast<std::size_t>(size)));
            return master;
        };
        handles.disposeProc = [](Handle h) {
            std::free(*h);
            delete h;
        };
        handles.lockProc = [](Handle h, std::uint8_t) { return *h; };
        handles.unlockProc = [](Handle) { ++unlocks; };
        unlocks = 0;
        basic.AcquireSuite = [](const char*, std::int32_t, const void** suite) -> std::int32_t {
            static const PSUIHooksSuite hooks{};
            if (!suitesExist) return kSPSuiteNotFoundError;
            ++acquired;
            *suite = &hooks;
            return 0;
        };
        basic.ReleaseSuite = [](const char*, std::int32_t) -> std::int32_t { return ++released, 0; };
        record.handleProcs = &handles;
        record.sSPBasic = &basic;
    }
    void TearDown() override {
        if (data) handles.disposeProc(reinterpret_cast<Handle>(data));
        std::filesystem::remove_all(applications);
    }

    /// Runs one pick; the step runs inside the dialog.
    void pick(DialogStep step = nullptr) {
        step_ = std::move(step);
        runPluginMain(pickerSelectorPick, &record, &data, &result, *this);
    }
    GlobalRecord& globals() { return **reinterpret_cast<GlobalRecord**>(data); }
    std::filesystem::path preferences() const {
        return applications / "Quorvex" / "com_Quorvex_Chromalog_64_3-50.prf";
    }
    void writePreferences(const std::vector<std::uint8_t>& bytes) {
        std::filesystem::create_directories(preferences().parent_path());
        std::ofstream(preferences(), std::ios::binary)
            .write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    }

    bool display = true;
    std::function<void(HeadlessDesktop&)> prepare;
    DialogStep onReady;
    std::filesystem::path applications;
    static inline int unlocks = 0;
    HandleProcs handles{};
    SPBasicSuite basic{};
    PickerRecord record{};
    std::intptr_t data = 0;
    std::int16_t result = 7;

  private:
    DialogStep step_;
    HeadlessDesktop* desktop_ = nullptr;
};

/// The dialog's control of that name.
template <typename T> T& control(HeadlessDesktop& desktop, const std::string& name) {
    return desktop.forms.at("chromalogWindow")->outlet<T>(name);
}

} // namespace chromalog::test
