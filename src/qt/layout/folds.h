#pragma once

#include <QAction>
#include <QList>

class QWidget;

namespace chromalog {

// Sections that a menu of a form folds: checkable items whose property "shows" names boxes of the form. What
// is folded is hidden, and the containers give its room to the rest.

QList<QAction*> foldItems(const QWidget& form);

/// Shows or hides the boxes as the items are checked, from now on.
void connectFolds(QWidget& form);

} // namespace chromalog
