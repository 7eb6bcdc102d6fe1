#include "qt/surround.h"

#include "qt/contrast.h"
#include "qt/form_names.h"
#include "qt/mishap.h"

#include <QAction>
#include <QApplication>
#include <QEvent>
#include <QMenu>
#include <QWidget>

#include <array>
#include <cmath>

namespace chromalog {

namespace {

constexpr double kTextContrast = 4.5;

struct Ground {
    const char* name;
    QRgb window, text;
};

constexpr std::array<Ground, 3> grounds = {{{"light", 0xffe2e2e2, 0xff1c1c1c},
                                            {"midGrey", 0xff808080, 0xff000000},
                                            {"dark", 0xff323232, 0xffe4e4e4}}};

QColor greyOf(const QColor& colour) {
    const double luminance = relativeLuminance(colour);
    const double v =
        luminance <= 0.0031308 ? 12.92 * luminance : 1.055 * std::pow(luminance, 1 / 2.4) - 0.055;
    const int byte = static_cast<int>(std::lround(v * 255));
    return {byte, byte, byte};
}

/// A colour that may let the ground through.
QColor shownOn(const QColor& ground, const QColor& colour) {
    const auto mixed = [&](int below, int above) { return below + (above - below) * colour.alpha() / 255; };
    return {mixed(ground.red(), colour.red()), mixed(ground.green(), colour.green()),
            mixed(ground.blue(), colour.blue())};
}

bool isGrey(const QColor& c) {
    return c.red() == c.green() && c.green() == c.blue();
}

/// Some desktops' accents are too light for the words on them.
void keepSelectedTextReadable(QPalette& palette, const QPalette& desktop) {
    for (const auto group : {QPalette::Active, QPalette::Inactive}) {
        const QColor accent = desktop.color(group, QPalette::Highlight);
        const QColor carries =
            carrying(accent, desktop.color(group, QPalette::HighlightedText), kTextContrast);
        if (carries != accent) palette.setColor(group, QPalette::Highlight, carries);
    }
}

} // namespace

QPalette surroundPalette(const QPalette& desktop, const QString& name) {
    QPalette palette;
    keepSelectedTextReadable(palette, desktop);
    const QColor base = desktop.color(QPalette::Base);
    if (contrast(base, shownOn(base, desktop.color(QPalette::PlaceholderText))) < kTextContrast)
        palette.setColor(QPalette::PlaceholderText,
                         quietOn(base, desktop.color(QPalette::Text), kTextContrast));
    for (const Ground& ground : grounds) {
        if (name != QLatin1String(ground.name)) continue;
        const QColor window(ground.window), text(ground.text);
        palette.setColor(QPalette::Window, window);
        palette.setColor(QPalette::WindowText, text);
        palette.setColor(QPalette::Disabled, QPalette::WindowText, quietOn(window, text, kTextContrast));
        return palette;
    }
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled})
        if (const QColor window = desktop.color(group, QPalette::Window); !isGrey(window))
            palette.setColor(group, QPalette::Window, greyOf(window));
    const QColor window = greyOf(desktop.color(QPalette::Window)), text = desktop.color(QPalette::WindowText);
    // A readout is greyed, too, that somebody reads: how many were found.
    if (contrast(window, shownOn(window, desktop.color(QPalette::Disabled, QPalette::WindowText))) <
        kTextContrast)
        palette.setColor(QPalette::Disabled, QPalette::WindowText, quietOn(window, text, kTextContrast));
    return palette;
}

SurroundChoice::SurroundChoice(QWidget& window) : QObject(&window), window_(window) {
    for (QAction* item : items()) {
        group_.addAction(item);
        connect(item, &QAction::toggled, this, [this](bool on) {
            guarded([&] {
                if (on) apply();
            });
        });
    }
    window_.installEventFilter(this);
    apply();
}

SurroundChoice* SurroundChoice::of(const QWidget& window) {
    for (QObject* child : window.children())
        if (auto* choice = dynamic_cast<SurroundChoice*>(child)) return choice;
    return nullptr;
}

QList<QAction*> SurroundChoice::items() const {
    QList<QAction*> items;
    for (QAction* item : window_.findChildren<QAction*>())
        if (item->property(kSurround).isValid()) items.append(item);
    return items;
}

QString SurroundChoice::chosen() const {
    for (const QAction* item : items())
        if (item->isChecked()) return item->property(kSurround).toString();
    return {};
}

void SurroundChoice::choose(const QString& name) {
    for (QAction* item : items())
        if (item->property(kSurround).toString() == name) item->setChecked(true);
}

void SurroundChoice::apply() {
    window_.setPalette(surroundPalette(QApplication::palette(&window_), chosen()));
    QPalette ofMenus;
    keepSelectedTextReadable(ofMenus, QApplication::palette(&window_));
    for (auto* menu : window_.findChildren<QMenu*>()) // windows of their own: they take no palette over
        menu->setPalette(ofMenus);
}

bool SurroundChoice::eventFilter(QObject*, QEvent* event) {
    if (event->type() == QEvent::ApplicationPaletteChange) guarded([this] { apply(); });
    return false;
}

} // namespace chromalog
