#include "plugin_check/verdicts.h"

#include "plugin_check/check_process.h"

#include <algorithm>
#include <list>
#include <nlohmann/json.hpp>
#include <sstream>
#include <thread>

namespace chromalog::plugin_check {

namespace {

using End = Verdict::End;

/// Every mistake belongs to one check, and is told once.
void add(std::vector<Verdict>& verdicts, const Fault& fault) {
    for (Verdict& verdict : verdicts) {
        if (verdict.check->name != fault.check) continue;
        if (verdict.end != End::failed) verdict.lines.clear();
        verdict.end = End::failed;
        if (!std::ranges::count(verdict.lines, fault.text)) verdict.lines.push_back(fault.text);
    }
}

void setAside(Verdict& verdict, End end, const std::string& why) {
    if (why.empty() || verdict.end == End::failed) return;
    verdict.end = end;
    verdict.lines = {why};
}

Verdict& verdictOn(std::vector<Verdict>& verdicts, const Check& check) {
    return *std::ranges::find(verdicts, &check, &Verdict::check);
}

/// Takes what the ended processes have found out of the list.
void collect(std::list<CheckProcess>& running, std::vector<Verdict>& verdicts) {
    for (auto process = running.begin(); process != running.end();) {
        const auto found = process->findings();
        if (!found) {
            ++process;
            continue;
        }
        Verdict& own = verdictOn(verdicts, process->check());
        own.seconds = process->seconds();
        setAside(own, End::skipped, found->skipped);
        setAside(own, End::unable, found->unable);
        for (const Fault& fault : found->faults)
            add(verdicts, fault);
        process = running.erase(process);
    }
}

/// A person ends one dialog after the other.
std::size_t processesAtOnce(const Plan& plan) {
    return plan.request.attended ? 1 : std::clamp(std::thread::hardware_concurrency(), 1u, 8u);
}

constexpr std::size_t kLinesTold = 3; ///< of a check, as text: one fault is often made again and again

constexpr const char* kWords[] = {"ok", "FAILED", "skipped", "could not check"};

std::string wordOf(End end) {
    return kWords[static_cast<std::size_t>(end)];
}

std::string summaryOf(const std::vector<Verdict>& verdicts) {
    std::ostringstream text;
    for (const End end : {End::ok, End::failed, End::skipped, End::unable})
        if (const auto count = std::ranges::count(verdicts, end, &Verdict::end))
            text << (text.tellp() > 0 ? ", " : "") << count << ' ' << wordOf(end);
    return text.str();
}

} // namespace

std::vector<Verdict> carryOut(const Plan& plan) {
    std::vector<Verdict> verdicts;
    for (const Check* check : plan.checks)
        verdicts.emplace_back().check = check;
    std::list<CheckProcess> running;
    for (std::size_t next = 0; next < plan.checks.size() || !running.empty();) {
        while (running.size() < processesAtOnce(plan) && next < plan.checks.size()) {
            const Check& check = *plan.checks[next++];
            running.emplace_back(check, plan.request,
                                 std::chrono::seconds(plan.limit.value_or(check.seconds)));
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
        collect(running, verdicts);
    }
    return verdicts;
}

std::string asText(const std::vector<Verdict>& verdicts) {
    std::ostringstream text;
    for (const Verdict& verdict : verdicts) {
        if (verdict.lines.empty()) text << wordOf(verdict.end) << ' ' << verdict.check->name << '\n';
        const auto told = std::min(verdict.lines.size(), kLinesTold);
        for (std::size_t i = 0; i < told; ++i)
            text << wordOf(verdict.end) << ' ' << verdict.check->name << ": " << verdict.lines[i] << '\n';
        if (verdict.lines.size() > told)
            text << wordOf(verdict.end) << ' ' << verdict.check->name << ": and "
                 << verdict.lines.size() - told << " more\n";
    }
    text << summaryOf(verdicts) << '\n';
    return text.str();
}

namespace {

std::string textOf(const nlohmann::ordered_json& all) {
    return all.dump(2, ' ', false, nlohmann::json::error_handler_t::replace) + "\n";
}

} // namespace

std::string listAsJson() {
    nlohmann::ordered_json list = nlohmann::ordered_json::array();
    for (const Check& check : checks())
        list.push_back({{"name", check.name}, {"proves", check.proves}});
    return textOf({{"checks", list}});
}

std::string asJson(const std::vector<Verdict>& verdicts, const std::string& plugin,
                   const std::string& error) {
    nlohmann::ordered_json list = nlohmann::ordered_json::array();
    for (const Verdict& verdict : verdicts) {
        nlohmann::ordered_json one{{"name", verdict.check->name},
                                   {"proves", verdict.check->proves},
                                   {"result", wordOf(verdict.end)},
                                   {"seconds", verdict.seconds}};
        if (!verdict.lines.empty()) one[verdict.end == End::failed ? "faults" : "why"] = verdict.lines;
        list.push_back(std::move(one));
    }
    nlohmann::ordered_json all{{"plugin", plugin}, {"checks", list}};
    if (!error.empty()) all["error"] = error;
    return textOf(all);
}

int exitCodeOf(const std::vector<Verdict>& verdicts) {
    const auto has = [&](End end) { return std::ranges::count(verdicts, end, &Verdict::end) > 0; };
    return has(End::failed) ? 1 : has(End::unable) ? 2 : 0;
}

} // namespace chromalog::plugin_check
