#pragma once

#include <map>
#include <string>
#include <sys/types.h>
#include <vector>

namespace chromalog {

/// A program that runs beside the test, which ends it with the object where it has not ended by itself.
class StartedProgram {
  public:
    /// `environment` is set on top of the test's own; an empty value removes a variable. The two streams go
    /// to open files, which stay the caller's; -1 leaves a stream as the test's is.
    StartedProgram(const std::vector<std::string>& command,
                   const std::map<std::string, std::string>& environment, int out = -1, int err = -1);
    ~StartedProgram();
    StartedProgram(const StartedProgram&) = delete;
    StartedProgram& operator=(const StartedProgram&) = delete;

    bool runs();                   ///< whether it has not ended yet
    void signal(int number) const; ///< nothing where it has ended
    int wait();                    ///< its exit code, once it has ended; 128 + signal where a signal ended it

  private:
    void ended(int status);

    pid_t process_;
    int exitCode_ = 0;
};

} // namespace chromalog
