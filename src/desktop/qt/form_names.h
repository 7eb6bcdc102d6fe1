#pragma once

#include <QString>

#include <vector>

class QIODevice;

namespace chromalog {

/// Captions, layouts, spacers, groups, boxes and the toolkit's own children stand in a form for looks alone.
bool isDecoration(const QString& objectName);

/// One named object of an interface file.
struct FormName {
    QString className;
    QString name;   ///< the outlet
    QString action; ///< the operation that it sends, or empty
};

/// Every widget and menu item of an interface file that is no decoration, in file order; read from the file's
/// text, so that objects which cannot be made are listed too.
std::vector<FormName> formNames(QIODevice& file);

} // namespace chromalog
