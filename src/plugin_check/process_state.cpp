#include "plugin_check/process_state.h"

#include <clocale>
#include <csignal>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <iterator>
#include <sys/stat.h>
#include <unistd.h>
#if defined(__GLIBC__)
#include <malloc.h>
#endif

namespace chromalog::plugin_check {

namespace {

namespace fs = std::filesystem;

std::string nameOf(int signal) {
    const char* const name = sigabbrev_np(signal);
    return name ? std::string("SIG") + name : "signal " + std::to_string(signal);
}

std::string handlerOf(int signal) {
    struct sigaction action {};
    sigaction(signal, nullptr, &action);
    if (action.sa_handler == SIG_DFL) return "the default";
    if (action.sa_handler == SIG_IGN) return "ignored";
    return "a handler at " + std::to_string(reinterpret_cast<std::uintptr_t>(action.sa_handler));
}

std::string maskOfNewFiles() {
    const mode_t mask = umask(0);
    umask(mask);
    return std::to_string(mask);
}

} // namespace

std::map<std::string, std::string> environmentNow() {
    std::map<std::string, std::string> now;
    for (char** variable = environ; *variable; ++variable) {
        const char* const sign = std::strchr(*variable, '=');
        if (sign) now[std::string(*variable, static_cast<std::size_t>(sign - *variable))] = sign + 1;
    }
    std::error_code ignored;
    now["the working directory"] = fs::current_path(ignored).string();
    now["the mask of new files"] = maskOfNewFiles();
    return now;
}

std::map<std::string, std::string> signalsNow() {
    std::map<std::string, std::string> now;
    sigset_t mask;
    pthread_sigmask(SIG_SETMASK, nullptr, &mask);
    for (int signal = 1; signal < SIGRTMIN; ++signal) {
        now[nameOf(signal)] = handlerOf(signal);
        if (sigismember(&mask, signal) == 1) now[nameOf(signal) + " blocked"] = "yes";
    }
    return now;
}

std::string localeNow() {
    return std::setlocale(LC_ALL, nullptr);
}

std::map<std::string, std::string> descriptorsNow() {
    std::map<std::string, std::string> now;
    std::error_code error;
    for (const auto& entry : fs::directory_iterator("/proc/self/fd", error)) {
        const fs::path target = fs::read_symlink(entry.path(), error);
        // The directory that is being read is open itself.
        if (!error && !target.string().ends_with("/fd"))
            now["descriptor " + entry.path().filename().string()] = target.string();
    }
    return now;
}

std::size_t threadsNow() {
    std::error_code error;
    const fs::directory_iterator tasks("/proc/self/task", error);
    return error ? 0 : static_cast<std::size_t>(std::distance(begin(tasks), end(tasks)));
}

std::size_t memoryNow() {
#if defined(__GLIBC__) && !defined(__SANITIZE_ADDRESS__)
    const auto counts = mallinfo2();
    return counts.uordblks + counts.hblkhd;
#else
    return 0; // sanitizers keep what is freed
#endif
}

std::vector<std::string> differences(const std::map<std::string, std::string>& before,
                                     const std::map<std::string, std::string>& now) {
    std::vector<std::string> lines;
    for (const auto& [name, value] : before) {
        const auto found = now.find(name);
        if (found == now.end())
            lines.push_back(name + " is gone: '" + value + "'");
        else if (found->second != value)
            lines.push_back(name + " was '" + value + "' and is '" + found->second + "'");
    }
    for (const auto& [name, value] : now)
        if (!before.contains(name)) lines.push_back(name + " is new: '" + value + "'");
    return lines;
}

} // namespace chromalog::plugin_check
