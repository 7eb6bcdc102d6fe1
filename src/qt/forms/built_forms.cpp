#include "qt/forms/built_forms.h"

#include "qt/forms/form_window.h"

namespace chromalog {}
using namespace chromalog; // what is made from the interface files names our classes without it

#include "ui_ComparePanel.h"
#include "ui_ContrastPanel.h"
#include "ui_CustomAngle.h"
#include "ui_EarlierLists.h"
#include "ui_ExportPanel.h"
#include "ui_ImportPanel.h"
#include "ui_LibraryPanel.h"
#include "ui_NearestPanel.h"
#include "ui_PicturePanel.h"
#include "ui_ProtocolPanel.h"
#include "ui_SwatchPrintOptions.h"
#include "ui_chromalogWindow.h"

namespace chromalog {
namespace {

template <typename Widgets> std::unique_ptr<DialogWindow> built() {
    auto window = std::make_unique<DialogWindow>();
    Widgets().setupUi(window.get());
    completeForm(*window);
    return window;
}

constexpr struct {
    std::string_view name;
    std::unique_ptr<DialogWindow> (*make)();
} kForms[] = {
    {"chromalogWindow", built<Ui::chromalogWindow>}, {"ContrastPanel", built<Ui::contrastWindow>},
    {"CustomAngle", built<Ui::customAngleWindow>},   {"ComparePanel", built<Ui::compareWindow>},
    {"EarlierLists", built<Ui::earlierListsWindow>}, {"ExportPanel", built<Ui::exportWindow>},
    {"ImportPanel", built<Ui::importWindow>},        {"LibraryPanel", built<Ui::libraryWindow>},
    {"NearestPanel", built<Ui::nearestWindow>},      {"PicturePanel", built<Ui::pictureWindow>},
    {"ProtocolPanel", built<Ui::protocolWindow>},    {"SwatchPrintOptions", built<Ui::printOptionWindow>},
};

} // namespace

std::unique_ptr<DialogWindow> builtForm(std::string_view name) {
    for (const auto& form : kForms)
        if (form.name == name) return form.make();
    return nullptr;
}

} // namespace chromalog
