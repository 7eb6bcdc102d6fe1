#include "desktop/qt/controls/well_accessible.h"

#include "desktop/qt/controls/color_well_widget.h"

#include <QAccessibleWidget>

namespace chromalog {

namespace {

class WellAccessible : public QAccessibleWidget {
  public:
    explicit WellAccessible(ColorWellWidget* well)
        : QAccessibleWidget(well, QAccessible::ColorChooser), well_(well) {}
    QString text(QAccessible::Text kind) const override {
        // Screen readers are given a description, but no value in words.
        return kind == QAccessible::Value || kind == QAccessible::Description ? well_->valueText()
                                                                              : QAccessibleWidget::text(kind);
    }

  private:
    ColorWellWidget* well_; ///< lives longer: the toolkit takes this down with it
};

} // namespace

QAccessibleInterface* makeWellAccessible(const QString&, QObject* object) {
    auto* well = dynamic_cast<ColorWellWidget*>(object);
    return well ? new WellAccessible(well) : nullptr;
}

} // namespace chromalog
