#include "qt/history_announcer.h"

#include "base/translated.h"
#include "qt/controls/status_label.h"
#include "qt/convert.h"
#include "qt/mishap.h"
#include "qt/view_widget.h"

#include <QAbstractButton>

namespace chromalog {

namespace {

QString listsNow(const QWidget& form) {
    QString all;
    for (int list = 1; list <= 2; ++list) {
        const auto* widget = form.findChild<ViewWidget*>(QString("swatch%1").arg(list));
        if (widget && widget->view())
            all += toQt(translated(". List %1: %2", list, widget->view()->accessibleRowCount()));
    }
    return all;
}

} // namespace

void announceHistory(QWidget& form) {
    auto* voice = form.findChild<StatusLabel*>();
    if (!voice) return;
    for (auto* button : form.findChildren<QAbstractButton*>()) {
        const QString action = button->property("action").toString();
        if (action != "doUndo:" && action != "doRedo:") continue;
        const QString done = toQt(action == "doUndo:" ? translated("Undone") : translated("Redone"));
        QObject::connect(button, &QAbstractButton::clicked, voice, [voice, done, &form] {
            guarded([&] { voice->announceAloud(done + listsNow(form)); });
        });
    }
}

} // namespace chromalog
