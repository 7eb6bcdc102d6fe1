#pragma once

#include <string>
#include <vector>

namespace chromalog::plugin_check {

/// A fault and the check that it belongs to, which need not be the one whose process has seen it.
struct Fault {
    std::string check;
    std::string text; ///< one line
    bool operator==(const Fault&) const = default;
};

/// What the process of one check tells the one that started it.
struct Findings {
    std::vector<Fault> faults;
    std::string skipped;   ///< why the check could not be made here; empty where it was
    std::string unable;    ///< why the plug-in could not be loaded
    bool complete = false; ///< false: the process ended before it had found everything
};

/// Texts of the plug-in's may be among them: control characters become question marks.
void writeFindings(const Findings&, const std::string& file);
/// Nothing but `complete` being false where there is no such file.
Findings readFindings(const std::string& file);

} // namespace chromalog::plugin_check
