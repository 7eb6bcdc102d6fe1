#include "qt/layout/folds.h"

#include "qt/form_names.h"
#include "qt/mishap.h"

#include <QWidget>

namespace chromalog {

QList<QAction*> foldItems(const QWidget& form) {
    QList<QAction*> items;
    for (QAction* item : form.findChildren<QAction*>())
        if (item->property(kShows).isValid()) items.append(item);
    return items;
}

void connectFolds(QWidget& form) {
    for (QAction* item : foldItems(form)) {
        const QStringList boxes = item->property(kShows).toString().split(' ', Qt::SkipEmptyParts);
        QObject::connect(item, &QAction::toggled, &form, [&form, boxes](bool shown) {
            guarded([&] {
                for (const QString& box : boxes)
                    if (auto* widget = form.findChild<QWidget*>(box)) widget->setVisible(shown);
            });
        });
    }
}

} // namespace chromalog
