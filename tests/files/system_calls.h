#pragma once

#include <string>

namespace chromalog::test {

/// Stands between the program under test and the system's calls on files, in test programs that link
/// system_calls.cpp. Nothing but counting happens unless a test asks for it.

/// While it lives, calls of that name fail with `error`, but for the first `good` ones. `path` holds it to
/// calls on paths that end so; calls on open files have none.
class FailingCall {
  public:
    FailingCall(const char* name, int error, int good = 0, std::string path = {});
    ~FailingCall();
    FailingCall(const FailingCall&) = delete;
    FailingCall& operator=(const FailingCall&) = delete;
};

/// From now on the call of that number (counted from 0) ends the process before it is made, as a kill does.
void killAtCall(int number);

/// Since forgetCalls, those that failed too. "open, inherited": of files that programs would inherit that the
/// process starts.
int callsOf(const char* name);
void forgetCalls();

} // namespace chromalog::test
