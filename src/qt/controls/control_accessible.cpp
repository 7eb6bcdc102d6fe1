#include "qt/controls/control_accessible.h"

#include "qt/controls/fit_button.h"
#include "qt/controls/stepper_widget.h"
#include "qt/mishap.h"

#include <QAccessibleWidget>

#include <cmath>

namespace chromalog {

namespace {

class StepperAccessible : public QAccessibleWidget, public QAccessibleValueInterface {
  public:
    explicit StepperAccessible(StepperWidget* stepper)
        : QAccessibleWidget(stepper, QAccessible::SpinBox), stepper_(stepper) {}
    void* interface_cast(QAccessible::InterfaceType type) override {
        if (type == QAccessible::ValueInterface) return static_cast<QAccessibleValueInterface*>(this);
        return QAccessibleWidget::interface_cast(type);
    }
    QVariant currentValue() const override { return stepper_->value(); }
    QVariant minimumValue() const override { return stepper_->minimum(); }
    QVariant maximumValue() const override { return stepper_->maximum(); }
    QVariant minimumStepSize() const override { return stepper_->increment(); }
    /// By single steps, as a person goes.
    void setCurrentValue(const QVariant& wanted) override {
        guarded([&] {
            const double to = std::clamp(wanted.toDouble(), stepper_->minimum(), stepper_->maximum());
            if (!(stepper_->increment() > 0) || std::isnan(to)) return;
            const long steps = std::lround((to - stepper_->value()) / stepper_->increment());
            for (long step = 0; step < std::abs(steps); ++step)
                steps > 0 ? stepper_->stepForwards() : stepper_->stepBackwards();
        });
    }

  private:
    StepperWidget* stepper_; ///< lives longer: the toolkit takes this down with it
};

class MenuButtonAccessible : public QAccessibleWidget {
  public:
    explicit MenuButtonAccessible(FitButton* button)
        : QAccessibleWidget(button, QAccessible::Button), button_(button) {}
    QAccessible::Role role() const override {
        return button_->opensByAnyPress() ? QAccessible::ButtonMenu : QAccessible::Button;
    }
    QString text(QAccessible::Text kind) const override {
        const bool unnamed = kind == QAccessible::Name && button_->accessibleName().isEmpty();
        return unnamed ? button_->text().remove('&') : QAccessibleWidget::text(kind);
    }
    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.hasPopup = true;
        return state;
    }
    QStringList actionNames() const override {
        QStringList names{showMenuAction(), setFocusAction()};
        if (!button_->opensByAnyPress()) names.prepend(pressAction());
        return names;
    }
    void doAction(const QString& name) override {
        guarded([&] {
            if (name == showMenuAction()) return button_->openMenu();
            if (name == pressAction()) return button_->click();
            QAccessibleWidget::doAction(name);
        });
    }

  private:
    FitButton* button_; ///< lives longer, as above
};

bool isGroup(const QWidget& widget) {
    return widget.objectName().startsWith("box") && !widget.accessibleName().isEmpty();
}

} // namespace

QAccessibleInterface* makeGroupAccessible(const QString&, QObject* object) {
    auto* box = qobject_cast<QWidget*>(object);
    const auto make = [box]() -> QAccessibleInterface* {
        return new QAccessibleWidget(box, QAccessible::Grouping);
    };
    return box && isGroup(*box) ? guarded<QAccessibleInterface*>(nullptr, make) : nullptr;
}

QAccessibleInterface* makeStepperAccessible(const QString&, QObject* object) {
    auto* stepper = qobject_cast<StepperWidget*>(object);
    const auto make = [stepper]() -> QAccessibleInterface* { return new StepperAccessible(stepper); };
    return stepper ? guarded<QAccessibleInterface*>(nullptr, make) : nullptr;
}

QAccessibleInterface* makeMenuButtonAccessible(const QString&, QObject* object) {
    auto* button = qobject_cast<FitButton*>(object);
    const auto make = [button]() -> QAccessibleInterface* { return new MenuButtonAccessible(button); };
    return button && !button->menuName().isEmpty() ? guarded<QAccessibleInterface*>(nullptr, make) : nullptr;
}

} // namespace chromalog
