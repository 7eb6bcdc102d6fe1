#include "qt/controls/well_accessible.h"

#include "qt/controls/color_well_widget.h"
#include "qt/mishap.h"

#include <QAccessibleWidget>

namespace chromalog {

namespace {

class WellAccessible : public QAccessibleWidget {
  public:
    explicit WellAccessible(ColorWellWidget* well)
        : QAccessibleWidget(well, QAccessible::ColorChooser), well_(well) {}
    QString text(QAccessible::Text kind) const override try {
        // Screen readers are given a description, but no value in words.
        return kind == QAccessible::Value || kind == QAccessible::Description ? well_->valueText()
                                                                              : QAccessibleWidget::text(kind);
    } catch (...) {
        mishap();
        return {};
    }

    QStringList actionNames() const override try {
        QStringList names = QAccessibleWidget::actionNames();
        if (well_->isPressable()) names.prepend(pressAction());
        return names;
    } catch (...) {
        mishap();
        return {};
    }
    void doAction(const QString& name) override try {
        if (well_->isPressable() && name == pressAction()) return Q_EMIT well_->clicked();
        QAccessibleWidget::doAction(name);
    } catch (...) {
        mishap();
    }

  private:
    ColorWellWidget* well_; ///< lives longer: the toolkit takes this down with it
};

} // namespace

QAccessibleInterface* makeWellAccessible(const QString&, QObject* object) {
    auto* well = dynamic_cast<ColorWellWidget*>(object);
    const auto make = [well]() -> QAccessibleInterface* { return new WellAccessible(well); };
    return well ? guarded<QAccessibleInterface*>(nullptr, make) : nullptr;
}

} // namespace chromalog
