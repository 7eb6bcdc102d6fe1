/* Stands before the system's file calls (LD_PRELOAD) and counts those on files below FAULTS_BELOW; others
 * pass.
 *
 *   FAULTS_AT=N       the call of that number, counted from 1, ...
 *   FAULTS_DO=WORD    "fail": fails; "always": it and all that follow fail; "kill": ends the process, unmade
 *   FAULTS_ERROR=N    fails with that errno; where it is not set, one that fits the call
 *   FAULTS_SHORT=1    a read or a write that would fail does half of its bytes instead
 *   FAULTS_ROOM=N     so many bytes may be written, then the disk is full
 *   FAULTS_TOLD=FILE  a line for each call: its number, "!" where it failed, its name, the path where it has
 * one; a line "state" for each file *.json that is opened elsewhere
 */
#define _GNU_SOURCE
#include <dirent.h>
#include <dlfcn.h>
#include <errno.h>
#include <fcntl.h>
#include <limits.h>
#include <pthread.h>
#include <signal.h>
#include <stdarg.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/uio.h>
#include <unistd.h>

enum { kMostDescriptors = 65536 };
enum fault { none, fail, always, die };

static const char* below;
static long at, made, error_number, short_ones;
static long long room = -1;
static enum fault fault;
static int told = -1;
static unsigned char ours[kMostDescriptors]; /* whether the descriptor is of a file below */
static pthread_mutex_t one = PTHREAD_MUTEX_INITIALIZER;

static void* next_of(const char* name) {
    return dlsym(RTLD_NEXT, name);
}
#define NEXT(name)                                                                                           \
    static __typeof__(&name) next;                                                                           \
    if (!next) next = (__typeof__(&name))next_of(#name)

static long number_of(const char* name, long otherwise) {
    const char* value = getenv(name);
    return value ? atol(value) : otherwise;
}

static int is_below(const char* path) {
    const size_t length = below ? strlen(below) : 0;
    return length && path && strncmp(path, below, length) == 0 && (path[length] == '/' || !path[length]);
}
static int is_ours(int fd) {
    return fd >= 0 && fd < kMostDescriptors && ours[fd];
}

static void tell(const char* line, int length) {
    if (told >= 0 && write(told, line, length) != length) told = -1;
}

__attribute__((constructor)) static void begin(void) {
    const char* what = getenv("FAULTS_DO");
    const char* file = getenv("FAULTS_TOLD");
    if (file) told = open(file, O_WRONLY | O_CREAT | O_TRUNC | O_APPEND | O_CLOEXEC, 0600);
    at = number_of("FAULTS_AT", 0), error_number = number_of("FAULTS_ERROR", 0);
    short_ones = number_of("FAULTS_SHORT", 0), room = number_of("FAULTS_ROOM", -1);
    if (what && !strcmp(what, "fail")) fault = fail;
    if (what && !strcmp(what, "always")) fault = always;
    if (what && !strcmp(what, "kill")) fault = die;
    below = getenv("FAULTS_BELOW");
}

/* Counts a call; true where it fails, and errno says how. */
static int fails(const char* name, const char* path, int usual) {
    char line[PATH_MAX + 64];
    const int before = errno;
    pthread_mutex_lock(&one);
    const long number = ++made;
    const int hit = fault != none && (number == at || (fault == always && number > at));
    const int length = snprintf(line, sizeof line, "%ld%s %s %s\n", number, hit ? " !" : "", name, path);
    tell(line, length < (int)sizeof line ? length : (int)sizeof line - 1);
    if (hit && fault == die) raise(SIGKILL);
    pthread_mutex_unlock(&one);
    errno = hit ? (error_number ? (int)error_number : usual) : before;
    return hit;
}

/* For a call on a path, or on an open file; `bad` is what it gives where it fails. */
#define ON_PATH(name, path, usual, bad, ...)                                                                 \
    NEXT(name);                                                                                              \
    return is_below(path) && fails(#name, path, usual) ? (bad) : next(__VA_ARGS__)
#define ON_FILE(name, fd, usual, bad, ...)                                                                   \
    NEXT(name);                                                                                              \
    return is_ours(fd) && fails(#name, "", usual) ? (bad) : next(__VA_ARGS__)

static int opened(int fd, const char* path) {
    const char* end = path && told >= 0 ? strrchr(path, '.') : NULL;
    if (fd >= 0 && fd < kMostDescriptors) ours[fd] = (unsigned char)is_below(path);
    if (end && !strcmp(end, ".json") && !is_below(path)) tell("state\n", 6);
    return fd;
}

#define OPEN(name)                                                                                           \
    int name(const char* path, int flags, ...) {                                                             \
        va_list more;                                                                                        \
        va_start(more, flags);                                                                               \
        const mode_t mode = flags & (O_CREAT | O_TMPFILE) ? va_arg(more, mode_t) : 0;                        \
        va_end(more);                                                                                        \
        NEXT(name);                                                                                          \
        return is_below(path) && fails(#name, path, EACCES) ? -1 : opened(next(path, flags, mode), path);    \
    }
OPEN(open)
OPEN(open64)

#define OPENAT(name)                                                                                         \
    int name(int folder, const char* path, int flags, ...) {                                                 \
        va_list more;                                                                                        \
        va_start(more, flags);                                                                               \
        const mode_t mode = flags & (O_CREAT | O_TMPFILE) ? va_arg(more, mode_t) : 0;                        \
        va_end(more);                                                                                        \
        NEXT(name);                                                                                          \
        return is_below(path) && fails(#name, path, EACCES) ? -1                                             \
                                                            : opened(next(folder, path, flags, mode), path); \
    }
OPENAT(openat)
OPENAT(openat64)

/* Streams read and write inside the library, where nothing stands before them: their opening can fail. */
FILE* fopen(const char* path, const char* mode) {
    ON_PATH(fopen, path, EACCES, NULL, path, mode);
}
FILE* fopen64(const char* path, const char* mode) {
    ON_PATH(fopen64, path, EACCES, NULL, path, mode);
}
DIR* opendir(const char* path) {
    ON_PATH(opendir, path, EACCES, NULL, path);
}

int close(int fd) {
    NEXT(close);
    const int counted = is_ours(fd);
    if (counted) ours[fd] = 0;
    const int failed = counted && fails("close", "", EIO), why = errno;
    const int closed = next(fd); /* as systems do: it is closed, whatever they say */
    if (failed) errno = why;
    return failed ? -1 : closed;
}

#define READ(name, parameters, fd, size, half, ...)                                                          \
    ssize_t name parameters {                                                                                \
        NEXT(name);                                                                                          \
        if (!is_ours(fd) || !fails(#name, "", EIO)) return next(__VA_ARGS__);                                \
        return short_ones && (size) > 1 ? next half : -1;                                                    \
    }
READ(read, (int fd, void* data, size_t size), fd, size, (fd, data, size / 2), fd, data, size)
READ(pread, (int fd, void* data, size_t size, off_t from), fd, size, (fd, data, size / 2, from), fd, data,
     size, from)
READ(pread64, (int fd, void* data, size_t size, off64_t from), fd, size, (fd, data, size / 2, from), fd, data,
     size, from)

/* How many bytes the disk takes of these; negative where it takes none. */
static ssize_t space_for(size_t size) {
    if (room < 0) return (ssize_t)size;
    pthread_mutex_lock(&one);
    const ssize_t taken = room < (long long)size ? (ssize_t)room : (ssize_t)size;
    room -= taken;
    pthread_mutex_unlock(&one);
    if (taken > 0 || size == 0) return taken;
    tell("0 ! full\n", 9);
    errno = ENOSPC;
    return -1;
}
#define WRITE(name, parameters, fd, size, half, less, ...)                                                   \
    ssize_t name parameters {                                                                                \
        NEXT(name);                                                                                          \
        if (!is_ours(fd)) return next(__VA_ARGS__);                                                          \
        if (fails(#name, "", ENOSPC)) return short_ones && (size) > 1 ? next half : -1;                      \
        const ssize_t taken = space_for(size);                                                               \
        return taken < 0 ? -1 : next less;                                                                   \
    }
WRITE(write, (int fd, const void* data, size_t size), fd, size, (fd, data, size / 2),
      (fd, data, (size_t)taken), fd, data, size)
WRITE(pwrite, (int fd, const void* data, size_t size, off_t to), fd, size, (fd, data, size / 2, to),
      (fd, data, (size_t)taken, to), fd, data, size, to)
WRITE(pwrite64, (int fd, const void* data, size_t size, off64_t to), fd, size, (fd, data, size / 2, to),
      (fd, data, (size_t)taken, to), fd, data, size, to)
ssize_t writev(int fd, const struct iovec* parts, int count) {
    ON_FILE(writev, fd, ENOSPC, -1, fd, parts, count);
}

off_t lseek(int fd, off_t to, int whence) {
    ON_FILE(lseek, fd, EIO, -1, fd, to, whence);
}
off64_t lseek64(int fd, off64_t to, int whence) {
    ON_FILE(lseek64, fd, EIO, -1, fd, to, whence);
}
int fsync(int fd) {
    ON_FILE(fsync, fd, EIO, -1, fd);
}
int fdatasync(int fd) {
    ON_FILE(fdatasync, fd, EIO, -1, fd);
}
int ftruncate(int fd, off_t length) {
    ON_FILE(ftruncate, fd, ENOSPC, -1, fd, length);
}
int ftruncate64(int fd, off64_t length) {
    ON_FILE(ftruncate64, fd, ENOSPC, -1, fd, length);
}
int fchmod(int fd, mode_t mode) {
    ON_FILE(fchmod, fd, EPERM, -1, fd, mode);
}
int futimens(int fd, const struct timespec times[2]) {
    ON_FILE(futimens, fd, EPERM, -1, fd, times);
}
int flock(int fd, int how) {
    ON_FILE(flock, fd, ENOLCK, -1, fd, how);
}
int fstat(int fd, struct stat* status) {
    ON_FILE(fstat, fd, EIO, -1, fd, status);
}
int fstat64(int fd, struct stat64* status) {
    ON_FILE(fstat64, fd, EIO, -1, fd, status);
}

#define FCNTL(name)                                                                                          \
    int name(int fd, int command, ...) {                                                                     \
        va_list more;                                                                                        \
        va_start(more, command);                                                                             \
        void* argument = va_arg(more, void*);                                                                \
        va_end(more);                                                                                        \
        NEXT(name);                                                                                          \
        if (is_ours(fd) && fails(#name, "", EMFILE)) return -1;                                              \
        const int result = next(fd, command, argument);                                                      \
        const int copies = command == F_DUPFD || command == F_DUPFD_CLOEXEC;                                 \
        if (copies && result >= 0 && result < kMostDescriptors) ours[result] = (unsigned char)is_ours(fd);   \
        return result;                                                                                       \
    }
FCNTL(fcntl)
FCNTL(fcntl64)

int stat(const char* path, struct stat* status) {
    ON_PATH(stat, path, EIO, -1, path, status);
}
int stat64(const char* path, struct stat64* status) {
    ON_PATH(stat64, path, EIO, -1, path, status);
}
int lstat(const char* path, struct stat* status) {
    ON_PATH(lstat, path, EIO, -1, path, status);
}
int lstat64(const char* path, struct stat64* status) {
    ON_PATH(lstat64, path, EIO, -1, path, status);
}
int statx(int folder, const char* path, int flags, unsigned mask, struct statx* status) {
    ON_PATH(statx, path, EIO, -1, folder, path, flags, mask, status);
}
int access(const char* path, int how) {
    ON_PATH(access, path, EACCES, -1, path, how);
}
int faccessat(int folder, const char* path, int how, int flags) {
    ON_PATH(faccessat, path, EACCES, -1, folder, path, how, flags);
}
ssize_t readlink(const char* path, char* target, size_t size) {
    ON_PATH(readlink, path, EIO, -1, path, target, size);
}
int mkdir(const char* path, mode_t mode) {
    ON_PATH(mkdir, path, ENOSPC, -1, path, mode);
}
int link(const char* from, const char* to) {
    ON_PATH(link, to, EPERM, -1, from, to);
}
int linkat(int from_folder, const char* from, int to_folder, const char* to, int flags) {
    ON_PATH(linkat, to, EPERM, -1, from_folder, from, to_folder, to, flags);
}
int rename(const char* from, const char* to) {
    ON_PATH(rename, to, EIO, -1, from, to);
}
int renameat(int from_folder, const char* from, int to_folder, const char* to) {
    ON_PATH(renameat, to, EIO, -1, from_folder, from, to_folder, to);
}
int renameat2(int from_folder, const char* from, int to_folder, const char* to, unsigned flags) {
    ON_PATH(renameat2, to, EIO, -1, from_folder, from, to_folder, to, flags);
}
int unlink(const char* path) {
    ON_PATH(unlink, path, EACCES, -1, path);
}
int unlinkat(int folder, const char* path, int flags) {
    ON_PATH(unlinkat, path, EACCES, -1, folder, path, flags);
}
