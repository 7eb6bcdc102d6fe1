#pragma once

#include <sys/wait.h>
#include <unistd.h>

namespace chromalog::test {

/// Runs in a process of its own; the exit code, or minus the signal that ended it.
template <typename F> int inChild(F run) {
    const pid_t child = ::fork();
    if (child == 0) ::_exit(run());
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

} // namespace chromalog::test
