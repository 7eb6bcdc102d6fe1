#pragma once

#include "qt/controls/window_control.h"

#include <QUiLoader>

#include <exception>
#include <memory>
#include <string>
#include <vector>

namespace chromalog {

/// Makes the widgets of an interface file, ours among them. A field whose property clearButton is true gets a
/// button that empties it.
class FormLoader : public QUiLoader {
    Q_OBJECT
  public:
    FormLoader();

    /// The form's window, laid out but not shown; null where the file is missing or broken. `problems` gets a
    /// line for what the toolkit passes over in silence: classes that it does not know, names that stand
    /// twice.
    std::unique_ptr<DialogWindow> loadWindow(const QString& path, std::vector<std::string>& problems);

    QWidget* createWidget(const QString& className, QWidget* parent, const QString& name) override;

  private:
    class NoLibraryPaths;
    explicit FormLoader(const NoLibraryPaths&);
    QWidget* made(const QString& className, QWidget* parent, const QString& name);

    std::vector<std::string>* problems_ = nullptr;
    std::exception_ptr thrown_; ///< in createWidget, which the toolkit calls
};

/// Where the interface file lies: in the folder that overrides, else among the resources.
QString formPath(const std::string& overridingFolder, std::string_view name);

} // namespace chromalog
