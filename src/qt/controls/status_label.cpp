#include "qt/controls/status_label.h"

#include <QAccessibleWidget>

namespace chromalog {

namespace {

class StatusAccessible : public QAccessibleWidget {
  public:
    explicit StatusAccessible(StatusLabel* label)
        : QAccessibleWidget(label, QAccessible::Notification), label_(label) {}
    QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Name ? label_->text() : QAccessibleWidget::text(kind);
    }

  private:
    StatusLabel* label_; ///< lives longer: the toolkit takes this down with it
};

} // namespace

/// Screen readers speak a notification when it appears; the toolkit itself tells them of the new name alone.
void StatusLabel::announce() {
    if (text().isEmpty() || !QAccessible::isActive()) return;
    for (const QAccessible::Event type : {QAccessible::ObjectShow, QAccessible::Alert}) {
        QAccessibleEvent event(this, type);
        QAccessible::updateAccessibility(&event);
    }
}

QAccessibleInterface* makeStatusAccessible(const QString&, QObject* object) {
    auto* label = qobject_cast<StatusLabel*>(object);
    return label ? new StatusAccessible(label) : nullptr;
}

} // namespace chromalog
