#include "files/system_calls.h"

#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <list>
#include <map>
#include <string>

#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace chromalog::test {
namespace {

struct Rule {
    const void* owner;
    std::string name, path;
    int error, good;
};

bool watching = false; ///< from the first test that asks: what the library does before is nobody's business
int untilKill = -1;
std::map<std::string, int>& counts() {
    static std::map<std::string, int> made;
    return made;
}
std::list<Rule>& rules() {
    static std::list<Rule> all;
    return all;
}

/// True where the call fails; errno is set.
bool refuses(const char* name, const char* path = "") {
    if (!watching) return false;
    ++counts()[name];
    if (untilKill >= 0 && untilKill-- == 0) ::raise(SIGKILL);
    for (Rule& rule : rules()) {
        if (rule.name != name || !std::string(path).ends_with(rule.path)) continue;
        if (rule.good-- > 0) continue;
        errno = rule.error;
        return true;
    }
    return false;
}

} // namespace

FailingCall::FailingCall(const char* name, int error, int good, std::string path) {
    watching = true;
    rules().push_back({this, name, std::move(path), error, good});
}

FailingCall::~FailingCall() {
    rules().remove_if([this](const Rule& rule) { return rule.owner == this; });
}

void killAtCall(int number) {
    watching = true;
    untilKill = number;
}

int callsOf(const char* name) {
    return counts()[name];
}

void forgetCalls() {
    watching = true;
    counts().clear();
}

} // namespace chromalog::test

using chromalog::test::refuses;

// Each stands before the library's own of that name.
#define REAL(name) reinterpret_cast<decltype(&::name)>(dlsym(RTLD_NEXT, #name))
#define PASS_ON(name, path, ...)                                                                             \
    static const auto real = REAL(name);                                                                     \
    return refuses(#name, path) ? -1 : real(__VA_ARGS__)

extern "C" {

int open(const char* path, int flags, ...) {
    va_list more;
    va_start(more, flags);
    const mode_t mode = va_arg(more, mode_t); // where none was given it is not used
    va_end(more);
    if (!(flags & O_CLOEXEC)) ++chromalog::test::counts()["open, inherited"];
    PASS_ON(open, path, path, flags, mode);
}
int close(int fd) {
    PASS_ON(close, "", fd);
}
ssize_t read(int fd, void* data, size_t size) {
    PASS_ON(read, "", fd, data, size);
}
ssize_t pread(int fd, void* data, size_t size, off_t at) {
    PASS_ON(pread, "", fd, data, size, at);
}
ssize_t pwrite(int fd, const void* data, size_t size, off_t at) {
    PASS_ON(pwrite, "", fd, data, size, at);
}
int ftruncate(int fd, off_t length) noexcept {
    PASS_ON(ftruncate, "", fd, length);
}
int fsync(int fd) {
    PASS_ON(fsync, "", fd);
}
int fchmod(int fd, mode_t mode) noexcept {
    PASS_ON(fchmod, "", fd, mode);
}
int futimens(int fd, const timespec times[2]) noexcept {
    PASS_ON(futimens, "", fd, times);
}
int flock(int fd, int how) noexcept {
    PASS_ON(flock, "", fd, how);
}
int fstat(int fd, struct stat* status) noexcept {
    PASS_ON(fstat, "", fd, status);
}
int stat(const char* path, struct stat* status) noexcept {
    PASS_ON(stat, path, path, status);
}
int lstat(const char* path, struct stat* status) noexcept {
    PASS_ON(lstat, path, path, status);
}
int faccessat(int folder, const char* path, int mode, int flags) noexcept {
    PASS_ON(faccessat, path, folder, path, mode, flags);
}
ssize_t readlink(const char* path, char* target, size_t size) noexcept {
    PASS_ON(readlink, path, path, target, size);
}
int link(const char* from, const char* to) noexcept {
    PASS_ON(link, to, from, to);
}
int linkat(int fromFolder, const char* from, int toFolder, const char* to, int flags) noexcept {
    PASS_ON(linkat, to, fromFolder, from, toFolder, to, flags);
}
int rename(const char* from, const char* to) noexcept {
    PASS_ON(rename, to, from, to);
}
int unlink(const char* path) noexcept {
    PASS_ON(unlink, path, path);
}
}
