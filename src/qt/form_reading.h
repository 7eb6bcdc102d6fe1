#pragma once

#include <QString>
#include <QWidget>

#include <memory>
#include <string>
#include <vector>

namespace chromalog {

/// Makes a widget of the dialog's own classes by its class's name; null where the name is none of theirs.
using MakeWidget = QWidget* (*)(const QString& className, QWidget* parent);

/// Reads an interface file that replaces a built-in one: its root; null where it is missing or broken.
/// `problems` gets a line for that and for what cannot be made. The toolkit's reader is large and few ever
/// need it: it lies in the module that plays scripts.
using ReadForm = std::unique_ptr<QWidget> (*)(const QString& path, MakeWidget,
                                              std::vector<std::string>& problems);

} // namespace chromalog
