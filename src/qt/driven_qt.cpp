#include "qt/driven_qt.h"

#include "abi/picker_record.h"
#include "dialog/chromalog_controler.h"
#include "qt/controls/window_control.h"
#include "qt/driven_values.h"
#include "qt/mishap.h"
#include "qt/qt_desktop.h"
#include "qt/qt_form.h"
#include "qt/view_widget.h"
#include "record/host_conversion.h"
#include "swatches/swatch_list_geometry.h"

namespace chromalog {

QDialog* DrivenQt::window() const {
    return desktop_.forms().empty() ? nullptr : desktop_.forms().front()->window();
}

void DrivenQt::stopAllLoops() {
    desktop_.modalLoops().stopAll(0);
}

std::function<Qt::KeyboardModifiers()>& DrivenQt::keyboard() {
    return desktop_.keyboard;
}

std::function<Qt::DropAction(QDrag&)>& DrivenQt::dragLoop() {
    return desktop_.drags().run;
}

QFileDialog* DrivenQt::filePanel() const {
    return desktop_.panels().current();
}

QMessageBox* DrivenQt::openAlert() const {
    return desktop_.openAlert();
}

std::optional<std::string>& DrivenQt::nextPdf() {
    return desktop_.printJobs().nextPdf;
}

PrintInfo& DrivenQt::sharedPrintInfo() {
    return desktop_.sharedPrintInfo();
}

/// Asked between two commands of a script: what the one before has begun ends with it.
std::vector<std::string> DrivenQt::takeNotWritten() {
    desktop_.finishBackground();
    return desktop_.statusLine().takeNotWritten();
}

bool DrivenQt::finishWork() {
    return desktop_.finishWork();
}

Rect DrivenQt::selectedRow(const QWidget& list) const {
    const SwatchPanels& panels = controler_.panels();
    const SwatchPanel& panel = list.objectName() == "swatch2" ? panels.two : panels.one;
    const Rect bounds{0, 0, double(list.width()), double(list.height())};
    return swatch_geometry::selectionRectForRow(bounds, panel.view.getSelected());
}

namespace {
const ViewWidget* showsView(const QWidget& widget) {
    const auto* shown = qobject_cast<const ViewWidget*>(&widget);
    return shown && shown->view() && shown->desktop() ? shown : nullptr;
}
} // namespace

std::optional<Size> DrivenQt::viewSize(const QWidget& widget) const {
    const ViewWidget* shown = showsView(widget);
    if (!shown) return std::nullopt;
    const Rect bounds = shown->view()->bounds();
    return Size{bounds.w, bounds.h};
}

Bitmap DrivenQt::viewPicture(const QWidget& widget) {
    const ViewWidget* shown = showsView(widget);
    return shown ? shown->desktop()->capture(*shown->view()) : Bitmap();
}

void DrivenQt::hostToRgb(std::int16_t space, std::int16_t* components) const {
    HostCSConvertColor(controler_.record().pickerRecord->colorServices, space, plugIncolorServicesRGBSpace,
                       components);
}

DrivenState DrivenQt::state() const {
    desktop_.finishBackground();
    DrivenState state;
    takeDialogState(state, controler_);
    takeDesktopState(state, desktop_);
    return state;
}

void DrivenQt::say(std::string_view line) {
    sayOnStandardError(line);
}

void DrivenQt::mishap() noexcept {
    chromalog::mishap();
}

} // namespace chromalog
