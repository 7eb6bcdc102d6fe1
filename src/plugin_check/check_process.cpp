#include "plugin_check/check_process.h"

#include <csignal>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <spawn.h>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>
#include <vector>

namespace chromalog::plugin_check {

namespace {

namespace fs = std::filesystem;

std::vector<std::string> wordsOf(const Request& request) {
    std::vector<std::string> words{"plugin_check", "--here", request.check, "--folder", request.folder};
    if (request.attended) words.emplace_back("--attended");
    words.insert(words.end(), {"--", request.plugin});
    return words;
}

/// What a process is started with, given back at the end.
struct SpawnSettings {
    posix_spawnattr_t attributes;
    posix_spawn_file_actions_t files;
    SpawnSettings() {
        posix_spawnattr_init(&attributes);
        posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETPGROUP); // what a plug-in starts ends with it
        posix_spawnattr_setpgroup(&attributes, 0);
        posix_spawn_file_actions_init(&files);
        for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
            posix_spawn_file_actions_addopen(&files, stream, "/dev/null", O_RDWR, 0);
    }
    ~SpawnSettings() {
        posix_spawnattr_destroy(&attributes);
        posix_spawn_file_actions_destroy(&files);
    }
    SpawnSettings(const SpawnSettings&) = delete;
    SpawnSettings& operator=(const SpawnSettings&) = delete;
};

pid_t start(std::vector<std::string> words) {
    std::vector<char*> pointers;
    pointers.reserve(words.size() + 1);
    for (std::string& word : words)
        pointers.push_back(word.data());
    pointers.push_back(nullptr);
    const SpawnSettings settings;
    pid_t process = -1;
    const int error = posix_spawn(&process, "/proc/self/exe", &settings.files, &settings.attributes,
                                  pointers.data(), environ);
    if (error != 0) throw std::runtime_error(std::string("cannot start a process: ") + std::strerror(error));
    return process;
}

std::string howItEnded(int status) {
    if (!WIFSIGNALED(status))
        return "ended the process with exit code " + std::to_string(WEXITSTATUS(status));
    const char* const name = sigabbrev_np(WTERMSIG(status));
    return std::string("ended the process by ") +
           (name ? std::string("SIG") + name : "signal " + std::to_string(WTERMSIG(status)));
}

std::string firstLine(const fs::path& file) {
    std::ifstream in(file);
    std::string line;
    std::getline(in, line);
    return line;
}

} // namespace

OwnFolder::OwnFolder() : path_((fs::temp_directory_path() / "plugin_check-XXXXXX").string()) {
    if (!mkdtemp(path_.data()))
        throw std::runtime_error(std::string("cannot make a folder: ") + std::strerror(errno));
}

OwnFolder::~OwnFolder() {
    std::error_code ignored;
    if (!path_.empty()) fs::remove_all(path_, ignored);
}

OwnFolder::OwnFolder(OwnFolder&& other) noexcept : path_(std::exchange(other.path_, {})) {}

CheckProcess::CheckProcess(const Check& check, Request request, std::chrono::seconds limit)
    : check_(&check), limit_(limit) {
    request.check = check.name;
    request.folder = folder_.path();
    process_ = start(wordsOf(request));
}

double CheckProcess::seconds() const {
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start_).count();
}

std::optional<Findings> CheckProcess::findings() {
    int status = 0;
    bool tooLong = false;
    if (waitpid(process_, &status, WNOHANG) != process_) {
        if (std::chrono::steady_clock::now() - start_ < limit_) return std::nullopt;
        tooLong = true;
        kill(-process_, SIGKILL);
        waitpid(process_, &status, 0);
    }
    kill(-process_, SIGKILL); // what the plug-in has started and left
    return ended(status, tooLong);
}

/// What the plug-in wrote of itself, and what its process tells of its end.
Findings CheckProcess::ended(int status, bool tooLong) const {
    Findings found = readFindings(fs::path(folder_.path()) / kFindingsFile);
    if (!found.unable.empty()) return found;
    if (found.complete) {
        // Sanitizers have an exit code of their own.
        if (tooLong || WIFSIGNALED(status))
            found.faults.push_back(
                {"unload",
                 "when the module was gone, " + (tooLong ? "the process did not end" : howItEnded(status))});
        return found;
    }
    const std::string step = firstLine(fs::path(folder_.path()) / kStepFile);
    const std::string what =
        tooLong ? "did not end within " + std::to_string(limit_.count()) + " s" : howItEnded(status);
    found.faults.push_back({check_->name, what + (step.empty() ? "" : " (" + step + ")")});
    return found;
}

Findings makeCheck(const Check& check, const Request& request) {
    try {
        Trial trial(request);
        check.make(trial);
        return trial.end();
    } catch (const std::exception& error) {
        Findings found;
        found.unable = error.what();
        return found;
    }
}

} // namespace chromalog::plugin_check
