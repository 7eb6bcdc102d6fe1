#include "qt/form_loader.h"

#include "qt/controls/clear_button.h"
#include "qt/controls/color_well_widget.h"
#include "qt/controls/compact_field.h"
#include "qt/controls/digit_label.h"
#include "qt/controls/elided_label.h"
#include "qt/controls/fit_button.h"
#include "qt/controls/fit_label.h"
#include "qt/controls/level_indicator_widget.h"
#include "qt/controls/list_scroll_area.h"
#include "qt/controls/number_steps.h"
#include "qt/controls/square_box.h"
#include "qt/controls/status_label.h"
#include "qt/controls/stepper_widget.h"
#include "qt/controls/tinted_button.h"
#include "qt/controls/two_way_switch.h"
#include "qt/convert.h"
#include "qt/form_names.h"
#include "qt/keyboard_focus.h"
#include "qt/layout/columns_box.h"
#include "qt/layout/fields_box.h"
#include "qt/layout/fit_row.h"
#include "qt/layout/stage_box.h"
#include "qt/layout/work_area.h"
#include "qt/layout/work_column.h"
#include "qt/layout/wrap_row.h"
#include "qt/mishap.h"
#include "qt/view_widget.h"

#include <QCoreApplication>
#include <QFile>
#include <QLayout>
#include <QLineEdit>

#include <set>
#include <utility>

namespace chromalog {

namespace {

template <typename T> QWidget* make(QWidget* parent) {
    return new T(parent);
}

struct OwnClass {
    const char* name;
    QWidget* (*make)(QWidget* parent);
    const char* knownAs = nullptr; ///< the class that it is to whoever looks from outside; null: its own
};

constexpr OwnClass ownClasses[] = {
    {"QDialog", make<DialogWindow>},
    {"ViewWidget", make<ViewWidget>},
    {"ColorWellWidget", make<ColorWellWidget>},
    {"StepperWidget", make<StepperWidget>},
    {"LevelIndicatorWidget", make<LevelIndicatorWidget>},
    {"ListScrollArea", make<ListScrollArea>},
    {"TintedButton", make<TintedButton>},
    {"SquareBox", make<SquareBox>},
    {"ElidedLabel", make<ElidedLabel>},
    {"StatusLabel", make<StatusLabel>},
    {"CompactField", make<CompactField>, "QLineEdit"},
    {"DigitLabel", make<DigitLabel>, "QLabel"},
    {"FitButton", make<FitButton>, "QPushButton"},
    {"FitLabel", make<FitLabel>, "QLabel"},
    {"TwoWaySwitch", make<TwoWaySwitch>, "QPushButton"},
    {"FieldsBox", make<FieldsBox>},
    {"WorkArea", make<WorkArea>},
    {"ColumnsBox", make<ColumnsBox>},
    {"FitRow", make<FitRow>},
    {"StageBox", make<StageBox>},
    {"WorkColumn", make<WorkColumn>},
    {"WrapRow", make<WrapRow>},
};

void reportDoubles(const QWidget& root, std::vector<std::string>& problems) {
    std::set<QString> seen;
    for (const QWidget* widget : root.findChildren<QWidget*>())
        if (!isDecoration(widget->objectName()) && !seen.insert(widget->objectName()).second)
            problems.push_back("the name " + fromQt(widget->objectName()) + " stands twice");
}

} // namespace

/// No folder is searched for plug-ins while it lives. The base's constructor would load all of Designer's,
/// with large libraries that nothing here uses; its own list of folders can be changed only after that.
class FormLoader::NoLibraryPaths {
  public:
    NoLibraryPaths() { QCoreApplication::setLibraryPaths({}); }
    ~NoLibraryPaths() {
        guarded([this] { QCoreApplication::setLibraryPaths(before_); });
    }
    NoLibraryPaths(const NoLibraryPaths&) = delete;
    NoLibraryPaths& operator=(const NoLibraryPaths&) = delete;

  private:
    const QStringList before_ = QCoreApplication::libraryPaths();
};

FormLoader::FormLoader() : FormLoader(NoLibraryPaths()) {}
FormLoader::FormLoader(const NoLibraryPaths&) {}

QWidget* FormLoader::createWidget(const QString& className, QWidget* parent, const QString& name) try {
    return made(className, parent, name);
} catch (...) {
    thrown_ = std::current_exception();
    return nullptr;
}

QWidget* FormLoader::made(const QString& className, QWidget* parent, const QString& name) {
    for (const OwnClass& own : ownClasses) {
        if (className != QLatin1String(own.name)) continue;
        QWidget* widget = own.make(parent);
        widget->setObjectName(name);
        if (own.knownAs) widget->setProperty(kClassName, own.knownAs);
        return widget;
    }
    QWidget* widget = QUiLoader::createWidget(className, parent, name);
    const bool asAsked = widget && (className == "Line" || className == widget->metaObject()->className());
    if (!asAsked && problems_) problems_->push_back("no class " + fromQt(className) + " for " + fromQt(name));
    return widget;
}

std::unique_ptr<DialogWindow> FormLoader::loadWindow(const QString& path,
                                                     std::vector<std::string>& problems) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        problems.push_back(fromQt(path) + ": " + fromQt(file.errorString()));
        return nullptr;
    }
    problems_ = &problems;
    std::unique_ptr<QWidget> root(load(&file));
    problems_ = nullptr;
    if (thrown_) std::rethrow_exception(std::exchange(thrown_, nullptr));
    auto* window = qobject_cast<DialogWindow*>(root.get());
    if (!window) {
        problems.push_back(fromQt(path) + ": " + (root ? "its root is no dialog" : fromQt(errorString())));
        return nullptr;
    }
    root.release();
    reportDoubles(*window, problems);
    for (QLineEdit* field : window->findChildren<QLineEdit*>()) {
        if (field->property("clearButton").toBool()) addClearButton(*field);
        if (field->property(kMost).isValid()) stepByKeys(*field);
    }
    window->setAttribute(Qt::WA_QuitOnClose, false); // the host decides when its process ends
    if (auto* first = window->findChild<QWidget*>(window->property("initialFocus").toString()))
        first->setFocus();
    new KeyboardFocus(*window);
    window->grab(QRect(0, 0, 1, 1)); // lays everything out without showing it
    return std::unique_ptr<DialogWindow>(window);
}

QString formPath(const std::string& overridingFolder, std::string_view name) {
    const QString file = toQt(name) + ".ui";
    if (!overridingFolder.empty()) {
        const QString over = toQt(overridingFolder) + "/" + file;
        if (QFile::exists(over)) return over;
    }
    return ":/chromalog/" + file;
}

} // namespace chromalog
