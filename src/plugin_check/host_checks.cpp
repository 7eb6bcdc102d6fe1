// Hosts that lack something, refuse or rave: a plug-in may end with an error, but it ends.
#include "plugin_check/checks.h"
#include "plugin_check/hostile_host.h"
#include "plugin_check/trial.h"

#include "abi/standalone_suite.h"

namespace chromalog::plugin_check {

namespace {

using Failing = standalone::HandleHeap::Failing;

void pickRefused(Trial& trial, const std::string& step, Failing failing, bool blocks) {
    trial.step(step);
    standalone::Host& host = trial.host();
    host.handles.setFailing(failing);
    for (auto* heap : {&host.buffers, &host.suiteBuffers, &host.blocks})
        heap->refuse(blocks);
    trial.pick();
}

/// What a host took away or raved about in some picks harms no later run.
void expectRecovered(Trial& trial, std::int16_t ordinary) {
    trial.step("an ordinary pick after those");
    trial.endRun();
    const std::int16_t result = trial.pick().result;
    if (result != ordinary) trial.fault("an ordinary pick after those ended with " + std::to_string(result));
}

/// How a pick ends where nothing is amiss, in a run of its own.
std::int16_t ordinaryPick(Trial& trial) {
    const std::int16_t result = trial.pick().result;
    trial.endRun();
    return result;
}

void pickAltered(Trial& trial, const Alteration& alteration,
                 const standalone::HostColour& offered = kOffered) {
    trial.step(alteration.name);
    trial.host().alterRecord = alteration.alter;
    trial.pick(offered);
    trial.host().alterRecord = nullptr;
}

} // namespace

void checkRefusedMemory(Trial& trial) {
    const std::int16_t ordinary = ordinaryPick(trial);
    pickRefused(trial, "the first handle refused", Failing::newProc, false);
    pickRefused(trial, "the first lock refused", Failing::lockProc, false);
    pickRefused(trial, "buffers and blocks refused", Failing::nothing, true);
    pickRefused(trial, "all refused", Failing::newProc, true);
    pickRefused(trial, "an ordinary pick after those", Failing::nothing, false);
    pickRefused(trial, "the lock of a later pick refused", Failing::lockProc, false);
    trial.host().handles.setFailing(Failing::nothing);
    expectRecovered(trial, ordinary);
}

void checkMissingSuites(Trial& trial) {
    standalone::SuiteRegistry& suites = trial.host().suites;
    trial.step("without the suite for windows");
    suites.withhold(kPSUIHooksSuite);
    trial.pick();
    trial.step("without suites for windows and buffers");
    suites.withhold(kPSBufferSuite);
    trial.pick();
    trial.step("without any suite");
    suites.withhold(kSPBasicSuite);
    for (const int version : {kStandaloneSuiteVersion2, kStandaloneSuiteVersion3})
        suites.withhold(kStandaloneSuite, version);
    // Its first version is what ends a dialog that no person sees.
    if (trial.request().attended) suites.withhold(kStandaloneSuite);
    trial.pick();
}

void checkMissingCallbacks(Trial& trial) {
    const std::int16_t ordinary = ordinaryPick(trial);
    for (const Alteration& alteration : missingCallbacks())
        pickAltered(trial, alteration);
    expectRecovered(trial, ordinary);
}

void checkNullServices(Trial& trial) {
    using standalone::Space;
    trial.host().offersColourServices = false;
    for (const Space space : {Space::rgb, Space::hsb, Space::cmyk, Space::lab, Space::gray}) {
        trial.step("no colour services, a colour of space " + std::to_string(static_cast<int>(space)));
        trial.pick({space, kOffered.components});
    }
    trial.step("neither colour services nor properties");
    trial.host().offersProperties = false;
    trial.pick({Space::cmyk, kOffered.components});
    trial.step("no properties");
    trial.host().offersColourServices = true;
    trial.pick({Space::cmyk, kOffered.components});
}

void checkHostileAnswers(Trial& trial) {
    const std::int16_t ordinary = ordinaryPick(trial);
    for (const Alteration& alteration : hostileAnswers())
        pickAltered(trial, alteration, {standalone::Space::cmyk, kOffered.components});
    expectRecovered(trial, ordinary);
}

} // namespace chromalog::plugin_check
