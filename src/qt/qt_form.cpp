#include "qt/qt_form.h"

#include "qt/colour_actions.h"
#include "qt/controls/click_area.h"
#include "qt/controls/drawn_controls.h"
#include "qt/controls/field_control.h"
#include "qt/controls/item_control.h"
#include "qt/controls/simple_controls.h"
#include "qt/controls/window_control.h"
#include "qt/convert.h"
#include "qt/form_names.h"
#include "qt/history_announcer.h"
#include "qt/layout/folds.h"
#include "qt/mishap.h"
#include "qt/qt_desktop.h"
#include "qt/shortcuts.h"
#include "qt/surround.h"
#include "qt/view_widget.h"

#include <QAction>
#include <QComboBox>
#include <QRadioButton>

#include <algorithm>

namespace chromalog {

namespace {

/// Finds the object of an outlet's name and makes the control that fits it; null where there is none that
/// fits.
struct Connector {
    DialogWindow& root;
    QtDesktop& desktop;
    const std::multimap<QString, QObject*>& named;
    QString name;
    std::vector<std::shared_ptr<void>>& controls;
    std::vector<std::function<void()>>& disconnects;

    template <typename Type> Type* find() const {
        const auto [first, end] = named.equal_range(name);
        for (auto entry = first; entry != end; ++entry)
            if (auto* object = qobject_cast<Type*>(entry->second)) return object;
        return nullptr;
    }

    /// Wraps a widget in the control.
    template <typename Control, typename Widget, typename Type>
    bool wrap(Outlet<Type>* outlet, Widget* widget) const {
        if (!widget) return false;
        auto control = std::make_shared<Control>(widget);
        controls.push_back(control);
        outlet->connect(control.get());
        disconnects.push_back([outlet] { outlet->connect(nullptr); });
        return true;
    }

    bool operator()(Outlet<TextField>* o) const {
        return wrap<FieldControl>(o, find<QLineEdit>()) || wrap<LabelControl>(o, find<QLabel>());
    }
    bool operator()(Outlet<Button>* o) const {
        return wrap<ButtonControl>(o, find<QAbstractButton>()) || wrap<ItemControl>(o, find<QAction>());
    }
    bool operator()(Outlet<Slider>* o) const { return wrap<SliderControl>(o, find<QSlider>()); }
    bool operator()(Outlet<TextView>* o) const { return wrap<TextViewControl>(o, find<QPlainTextEdit>()); }
    bool operator()(Outlet<RadioMatrix>* o) const { return wrap<RadioMatrixControl>(o, find<QWidget>()); }
    bool operator()(Outlet<RowList>* o) const { return wrap<RowListControl>(o, find<QListWidget>()); }
    bool operator()(Outlet<Menu>* o) const { return wrap<MenuControl>(o, find<QMenu>()); }
    bool operator()(Outlet<Window>* o) const {
        return root.objectName() == name && wrap<WindowControl>(o, &root);
    }
    bool operator()(Outlet<Stepper>* o) const { return wrap<StepperControl>(o, find<StepperWidget>()); }
    bool operator()(Outlet<LevelIndicator>* o) const {
        return wrap<LevelIndicatorControl>(o, find<LevelIndicatorWidget>());
    }
    bool operator()(Outlet<ScrollView>* o) const {
        return wrap<ScrollViewControl>(o, find<ListScrollArea>());
    }
    bool operator()(Outlet<ColorWell>* o) const {
        auto* well = find<ColorWellWidget>();
        if (well) well->setDrags(&desktop.drags());
        return wrap<ColorWellControl>(o, well);
    }
    bool operator()(View* view) const {
        auto* widget = find<ViewWidget>();
        if (!widget) return false;
        widget->setView(view, &desktop);
        disconnects.emplace_back([widget = QPointer<ViewWidget>(widget)] {
            if (widget) widget->setView(nullptr);
        });
        return true;
    }
};

/// What outlets may name. Objects that share a name stay in their order.
std::multimap<QString, QObject*> namedObjects(const QObject& root) {
    std::multimap<QString, QObject*> named;
    for (QObject* object : root.findChildren<QObject*>())
        if (!isDecoration(object->objectName())) named.emplace(object->objectName(), object);
    return named;
}

/// A menu item that changes how the window looks and no more.
bool isOfTheWindow(const QObject& sender) {
    return sender.property(kShows).isValid() || sender.property(kSurround).isValid();
}

} // namespace

QtForm::QtForm(std::unique_ptr<DialogWindow> root, QtDesktop& desktop, std::string name)
    : root_(root.release()), desktop_(desktop), name_(std::move(name)) {}

QtForm::~QtForm() {
    for (const auto& disconnect : disconnects_)
        guarded(disconnect);
    controls_.clear();
    desktop_.forget(*this);
    delete root_.data();
}

DialogWindow* QtForm::window() const {
    return root_;
}

std::vector<std::string> QtForm::connect(const FormOwner& owner) {
    std::vector<std::string> problems;
    const auto named = namedObjects(*root_);
    for (const OutletEntry& entry : owner.outlets)
        if (!connectOutlet(entry, named) && !entry.extra)
            problems.push_back("outlet " + std::string(entry.name) + " is not connected");
    if (owner.colours) new ColourActions(*root_, *owner.colours);
    connectFolds(*root_);
    new Shortcuts(*root_);
    new SurroundChoice(*root_);
    for (QObject* sender : root_->findChildren<QObject*>())
        if (sender->property("action").isValid() && !isOfTheWindow(*sender) && !connectAction(sender, owner))
            problems.push_back("no action " + fromQt(sender->property("action").toString()));
    announceHistory(*root_);
    for (std::string& name : unusedNames(owner))
        problems.push_back("no outlet " + std::move(name));
    return problems;
}

bool QtForm::connectOutlet(const OutletEntry& entry, const std::multimap<QString, QObject*>& named) {
    return std::visit(Connector{*root_, desktop_, named, toQt(entry.name), controls_, disconnects_},
                      entry.target);
}

bool QtForm::connectAction(QObject* sender, const FormOwner& owner) {
    const std::string name = fromQt(sender->property("action").toString());
    const auto entry = std::find_if(owner.actions.begin(), owner.actions.end(),
                                    [&](const ActionEntry& action) { return action.name == name; });
    if (entry == owner.actions.end()) return false;
    const auto run = [operation = entry->run] { guarded(operation); };
    if (auto* button = qobject_cast<QAbstractButton*>(sender))
        return QObject::connect(button, &QAbstractButton::clicked, root_.data(), run);
    if (auto* well = qobject_cast<ColorWellWidget*>(sender))
        return QObject::connect(well, &ColorWellWidget::clicked, root_.data(), run);
    if (auto* slider = qobject_cast<QSlider*>(sender))
        return QObject::connect(slider, &QSlider::valueChanged, root_.data(), run);
    if (auto* stepper = qobject_cast<StepperWidget*>(sender))
        return QObject::connect(stepper, &StepperWidget::stepped, root_.data(), run);
    if (auto* item = qobject_cast<QAction*>(sender))
        return QObject::connect(item, &QAction::triggered, root_.data(), run);
    const auto radios = sender->findChildren<QRadioButton*>();
    for (QRadioButton* radio : radios)
        QObject::connect(radio, &QRadioButton::clicked, root_.data(), run);
    if (!radios.isEmpty()) return true;
    auto* area = qobject_cast<QWidget*>(sender);
    if (area) new ClickArea(*area, run); // the area's child
    return area;
}

QStringList QtForm::ownMenus() const {
    QStringList names;
    for (const QWidget* widget : root_->findChildren<QWidget*>())
        if (const QString menu = widget->property(kMenuName).toString(); !menu.isEmpty()) names.append(menu);
    return names;
}

std::vector<std::string> QtForm::unusedNames(const FormOwner& owner) const {
    std::vector<std::string> unused;
    const QStringList menus = ownMenus();
    for (const QWidget* widget : root_->findChildren<QWidget*>()) {
        const std::string name = fromQt(widget->objectName());
        if (isDecoration(widget->objectName()) || widget->property("action").isValid()) continue;
        if (menus.contains(widget->objectName()) || !widget->property(kMenuName).toString().isEmpty())
            continue;
        if (std::none_of(owner.outlets.begin(), owner.outlets.end(),
                         [&](const OutletEntry& outlet) { return outlet.name == name; }))
            unused.push_back(name);
    }
    return unused;
}

} // namespace chromalog
