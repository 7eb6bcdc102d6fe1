#include "qt/controls/status_label.h"

#include <QAccessibleWidget>

namespace chromalog {

namespace {

class StatusAccessible : public QAccessibleWidget {
  public:
    explicit StatusAccessible(StatusLabel* label)
        : QAccessibleWidget(label, QAccessible::Notification), label_(label) {}
    QString text(QAccessible::Text kind) const override {
        if (kind != QAccessible::Name) return QAccessibleWidget::text(kind);
        return label_->aloud().isEmpty() ? label_->text() : label_->aloud();
    }

  private:
    StatusLabel* label_; ///< lives longer: the toolkit takes this down with it
};

} // namespace

void StatusLabel::announce() {
    aloud_.clear();
    if (!text().isEmpty()) tell();
}

void StatusLabel::announceAloud(const QString& words) {
    aloud_ = words;
    QAccessibleEvent named(this, QAccessible::NameChanged);
    QAccessible::updateAccessibility(&named);
    tell();
}

/// Screen readers speak a notification when it appears; the toolkit itself tells them of the new name alone.
void StatusLabel::tell() {
    if (!QAccessible::isActive()) return;
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
