#pragma once

#include "desktop/panels.h"
#include "qt/panels/file_habits.h"

#include <QFileDialog>
#include <QPointer>

#include <string>
#include <vector>

namespace chromalog {

/// What a panel was opened with, for whoever drives or reports the dialog.
struct PanelRecord {
    std::string kind; ///< "open" or "save"
    std::vector<std::string> types;
    std::string parent; ///< the window's outlet
    std::string suggestedName;
};

class TypedPanel;

/// A name as it is written: its extension gives way to the panel's.
QString withExtension(const QString& path, const QString& extension);

/// The file panels: sheets of their window that answer later, from the modal loop.
class FilePanels {
  public:
    explicit FilePanels(FileHabits& habits) : habits_(habits) {}
    ~FilePanels();
    /// For a person: the desktop's own panels where it has them for us; a script types into the toolkit's.
    void beNative() { native_ = true; }
    void begin(const OpenPanel&, QWidget* parent, PanelAnswer);
    void begin(const SavePanel&, QWidget* parent, PanelAnswer);

    void closeOn(const QWidget* parent);           ///< unanswered
    QFileDialog* current() const { return open_; } ///< the panel that waits for an answer, or null
    const std::vector<PanelRecord>& records() const { return records_; }

  private:
    void show(TypedPanel*, const std::string& kind, PanelAnswer);

    FileHabits& habits_;
    bool native_ = false;
    QPointer<QFileDialog> open_;
    QPointer<QFileDialog> answered_; ///< kept until it is safe to delete: it is still inside its own signal
    std::vector<PanelRecord> records_;
};

} // namespace chromalog
