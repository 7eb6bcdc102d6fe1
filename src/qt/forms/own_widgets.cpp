#include "qt/forms/own_widgets.h"

#include "qt/controls/color_well_widget.h"
#include "qt/controls/compact_field.h"
#include "qt/controls/digit_label.h"
#include "qt/controls/elided_label.h"
#include "qt/controls/fit_button.h"
#include "qt/controls/fit_label.h"
#include "qt/controls/level_indicator_widget.h"
#include "qt/controls/list_scroll_area.h"
#include "qt/controls/square_box.h"
#include "qt/controls/status_label.h"
#include "qt/controls/stepper_widget.h"
#include "qt/controls/tinted_button.h"
#include "qt/controls/two_way_switch.h"
#include "qt/controls/window_control.h"
#include "qt/layout/columns_box.h"
#include "qt/layout/fields_box.h"
#include "qt/layout/fit_row.h"
#include "qt/layout/stage_box.h"
#include "qt/layout/work_area.h"
#include "qt/layout/work_column.h"
#include "qt/layout/wrap_row.h"
#include "qt/view_widget.h"

namespace chromalog {
namespace {

template <typename T> QWidget* make(QWidget* parent) {
    return new T(parent);
}

struct OwnClass {
    const char* name;
    QWidget* (*make)(QWidget* parent);
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
    {"CompactField", make<CompactField>},
    {"DigitLabel", make<DigitLabel>},
    {"FitButton", make<FitButton>},
    {"FitLabel", make<FitLabel>},
    {"TwoWaySwitch", make<TwoWaySwitch>},
    {"FieldsBox", make<FieldsBox>},
    {"WorkArea", make<WorkArea>},
    {"ColumnsBox", make<ColumnsBox>},
    {"FitRow", make<FitRow>},
    {"StageBox", make<StageBox>},
    {"WorkColumn", make<WorkColumn>},
    {"WrapRow", make<WrapRow>},
};

} // namespace

QWidget* makeOwnWidget(const QString& className, QWidget* parent) {
    for (const OwnClass& own : ownClasses)
        if (className == QLatin1String(own.name)) return own.make(parent);
    return nullptr;
}

} // namespace chromalog
