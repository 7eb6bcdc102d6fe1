#include "dialog/pick.h"

#include "base/colour_text.h"
#include "dialog/chromalog_controler.h"
#include "dialog/globals.h"
#include "record/allocate_globals.h"
#include "views/wheel_picture.h"

#include <algorithm>
#include <exception>
#include <new>
#include <string>

namespace chromalog {

struct PickSession {
    Platform& platform;
    Desktop& desktop;
    std::unique_ptr<ChromalogControler> controler;
};

namespace {

/// A host suite, acquired for as long as this lives; null where the host does not have it.
template <typename Suite> class AcquiredSuite {
  public:
    AcquiredSuite(SPBasicSuite* basic, const char* name, std::int32_t version)
        : basic_(basic), name_(name), version_(version) {
        if (!basic || !basic->AcquireSuite) return;
        const void* suite = nullptr;
        if (basic->AcquireSuite(name, version, &suite) == kSPNoError) {
            acquired_ = true;
            suite_ = static_cast<const Suite*>(suite);
        }
    }
    ~AcquiredSuite() {
        if (acquired_ && basic_->ReleaseSuite) basic_->ReleaseSuite(name_, version_);
    }
    AcquiredSuite(const AcquiredSuite&) = delete;
    AcquiredSuite& operator=(const AcquiredSuite&) = delete;

    const Suite* get() const { return suite_; }

  private:
    SPBasicSuite* basic_;
    const char* name_;
    std::int32_t version_;
    bool acquired_ = false;
    const Suite* suite_ = nullptr;
};

/// The locked global record of one pick.
class LockedGlobals {
  public:
    LockedGlobals(GlobalRecord* block, PickerRecord& record, const std::intptr_t& data)
        : record_(record), data_(data) {
        gData = block;
    }
    LockedGlobals(const LockedGlobals&) = delete;
    LockedGlobals& operator=(const LockedGlobals&) = delete;
    ~LockedGlobals() {
        gChromalogControler = nullptr; // controllers that were never complete did not take theirs back
        gProtocolController = nullptr;
        gData = nullptr; // the block may move once it is unlocked
        if (data_ && record_.handleProcs) record_.handleProcs->unlockProc(reinterpret_cast<Handle>(data_));
    }

  private:
    PickerRecord& record_;
    const std::intptr_t& data_;
};

/// The stand-alone host's suite in the newest version that it has; none in any other host.
class StandaloneHost {
  public:
    explicit StandaloneHost(SPBasicSuite* basic)
        : two_(basic, kStandaloneSuite, kStandaloneSuiteVersion2),
          one_(two_.get() ? nullptr : basic, kStandaloneSuite, kStandaloneSuiteVersion) {}

    const StandaloneSuite* suite() const { return two_.get() ? &two_.get()->version1 : one_.get(); }
    AtEnd atEnd() const { return two_.get() ? two_.get()->atEnd : nullptr; }

  private:
    const AcquiredSuite<StandaloneSuite2> two_;
    const AcquiredSuite<StandaloneSuite> one_;
};

/// A text as hosts show it: a length byte, then at most 255 characters.
void reportError(PickerRecord& record, std::int16_t* result, std::string_view text) {
    *result = errReportString;
    if (!record.errorString) return;
    const std::size_t length = std::min<std::size_t>(text.size(), 255);
    record.errorString[0] = static_cast<unsigned char>(length);
    std::copy_n(text.begin(), length, record.errorString + 1);
}

bool asksForScreen(const StandaloneSuite* host) {
    return host && host->option && host->option("pick");
}

/// Colours from the screen, without the dialog, for the stand-alone host.
void pickFromScreen(PickerRecord& record, std::int16_t* result, Platform& platform) {
    const AcquiredSuite<StandaloneSuite3> host(sSPBasic, kStandaloneSuite, kStandaloneSuiteVersion3);
    if (!host.get()) return;
    const ScreenColours answer = platform.pickFromScreen();
    if (!answer.problem.empty()) return reportError(record, result, answer.problem);
    for (const Colour& colour : answer.colours) {
        const RgbChannels rgb = channelsOf(colour);
        host.get()->taken(rgb[0], rgb[1], rgb[2]);
    }
    if (answer.colours.empty()) *result = hostUserCanceledErr;
}

void pick(PickerRecord& record, std::intptr_t* data, std::int16_t* result, Platform& platform) {
    const StandaloneHost standalone(sSPBasic);
    const AtEnd atEnd = standalone.atEnd();
    if (atEnd) platform.staysLoaded(atEnd);
    WheelPicture::keepMeasure(atEnd != nullptr);
    if (asksForScreen(standalone.suite())) return pickFromScreen(record, result, platform);
    const std::unique_ptr<Desktop> desktop = platform.makeDesktop(standalone.suite());
    if (!desktop) return; // no display: nothing changed
    gData = nullptr;
    GlobalRecord* block =
        AllocateGlobals(result, &record, record.handleProcs, sizeof(GlobalRecord), data, InitGlobals);
    if (!block) {
        *result = hostMemFullErr;
        return;
    }
    const LockedGlobals globals(block, record, *data);
    PickSession session{platform, *desktop, nullptr};
    DoPick(session);
}

/// Whatever is thrown ends here.
void guardedPick(PickerRecord& record, std::intptr_t* data, std::int16_t* result, Platform& platform) {
    const PickParms offered = record.pickParms;
    const auto end = [&](std::int16_t code, const char* why) {
        std::copy_n(offered.colorComponents, 4, record.pickParms.colorComponents);
        *result = code;
        try {
            platform.log(std::string("the pick ended: ") + why);
        } catch (...) { // no memory to say so either
        }
    };
    try {
        pick(record, data, result, platform);
    } catch (const std::bad_alloc&) {
        end(hostMemFullErr, "out of memory");
    } catch (const std::exception& error) {
        end(hostNoErr, error.what());
    } catch (...) {
        end(hostNoErr, "an unknown error");
    }
}

bool pickRuns = false;

} // namespace

void runPluginMain(std::int16_t selector, void* record, std::intptr_t* data, std::int16_t* result,
                   Platform& platform) {
    if (!record) return;
    if (pickRuns) return platform.log("a call of the host while a pick runs was not followed");
    if (selector == pickerSelectorAbout) {
        sSPBasic = static_cast<AboutRecord*>(record)->sSPBasic;
        return;
    }
    auto& picker = *static_cast<PickerRecord*>(record);
    sSPBasic = picker.sSPBasic;
    if (!data || !result) return;
    pickRuns = true;
    guardedPick(picker, data, result, platform);
    pickRuns = false;
}

void InitGlobals(GlobalRecord* block) {
    gData = block;
}

std::int64_t DoPick(PickSession& session) {
    return DoUI(session);
}

std::int64_t DoUI(PickSession& session) {
    const AcquiredSuite<PSUIHooksSuite> hooks(sSPBasic, kPSUIHooksSuite, kPSUIHooksSuiteVersion1);
    if (hooks.get() && hooks.get()->MainAppWindow)
        session.desktop.setHostWindow(hooks.get()->MainAppWindow());
    SetDefaultValues();
    std::int64_t code = 0;
    if (initializeCocoaChromalog(gData, session) == 0) code = orderWindowFrontChromalog(session);
    session.controler.reset(); // nothing outlives the pick
    return code;
}

void SetDefaultValues() {}

std::int16_t initializeCocoaChromalog(GlobalRecord* globals, PickSession& session) {
    session.controler = std::make_unique<ChromalogControler>(*globals, session.desktop);
    return 0;
}

std::int64_t orderWindowFrontChromalog(PickSession& session) {
    ChromalogControler* controler = ChromalogControler::chromalogControler();
    session.platform.dialogReady(session.desktop, *controler);
    return controler->showWindow();
}

} // namespace chromalog
