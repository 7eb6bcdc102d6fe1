#pragma once

#include "desktop/file_memory.h"

#include <QString>

#include <map>
#include <string>
#include <vector>

namespace chromalog {

/// The files that were loaded last and the folders that panels were last used in, for this pick and, with a
/// settings file, from pick to pick. The file is read when something is asked or told first.
class FileHabits : public FileMemory {
  public:
    void rememberIn(std::string settingsPath); ///< of a person

    std::vector<std::string> recent() override;
    void loaded(const std::string& path) override;
    void forget(const std::string& path) override;

    // Of panels, by what they choose ("aco"). Nothing without a settings file.
    QString folderOf(const std::string& kind);
    void usedFolder(const std::string& kind, const QString& folder);

  private:
    void read();
    void store() const;

    std::string settings_; ///< empty: none
    bool read_ = false;
    std::vector<std::string> recent_;
    std::map<std::string, QString> folders_;
};

} // namespace chromalog
