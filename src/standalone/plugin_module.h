#pragma once

#include "abi/picker_record.h"

#include <string>

namespace chromalog::standalone {

/// A plug-in's module, loaded for the life of this object or until it is unloaded.
class PluginModule {
  public:
    /// Throws std::runtime_error with one line where the file is no plug-in.
    explicit PluginModule(const std::string& path);
    ~PluginModule();
    PluginModule(const PluginModule&) = delete;
    PluginModule& operator=(const PluginModule&) = delete;

    PluginMainProc entry() const { return entry_; }
    /// Ends the module, which may run code of its own once more; the entry is void from then on.
    void unload();

    /// The module that belongs to this program: beside it, or in the library folder that it is installed
    /// with. Throws std::runtime_error where there is none.
    static std::string besideProgram();

  private:
    void* library_;
    PluginMainProc entry_;
};

} // namespace chromalog::standalone
