#include "qt/window_memory.h"

#include "qt/layout/folds.h"
#include "qt/mishap.h"
#include "qt/settings_file.h"
#include "qt/surround.h"

#include <QDialog>
#include <QEvent>
#include <QGuiApplication>
#include <QJsonArray>
#include <QScreen>

#include <algorithm>

namespace chromalog {

namespace {

constexpr int kTitleBar = 32;      ///< pixels that a window's frame takes of a screen's height
constexpr int kMostPixels = 32767; ///< of a window's side

constexpr const char* kSize = "windowSize";
constexpr const char* kPlace = "windowPlace";
constexpr const char* kFolded = "folded";
constexpr const char* kUnfolded = "unfolded"; ///< of what is folded at first
constexpr const char* kGround = "surround";

/// Two whole numbers; nothing for anything else.
std::optional<QPoint> pairOf(const QJsonValue& value) {
    const QJsonArray pair = value.toArray();
    if (pair.size() != 2) return std::nullopt;
    const auto number = [&](int i) {
        return std::clamp(pair[i].toInt(kMostPixels + 1), -kMostPixels - 1, kMostPixels + 1);
    };
    const QPoint both(number(0), number(1));
    const bool usable = std::max(std::abs(both.x()), std::abs(both.y())) <= kMostPixels;
    return usable ? std::optional(both) : std::nullopt;
}

QJsonArray arrayOf(int a, int b) {
    return {a, b};
}

} // namespace

QRect heldTo(const QRect& available, QSize size, std::optional<QPoint> place) {
    const QSize held = size.boundedTo(available.size() - QSize(0, kTitleBar));
    const QPoint at = place.value_or(available.center() - QPoint(held.width() / 2, held.height() / 2));
    const int mostX = available.x() + available.width() - held.width();
    const int mostY = available.y() + available.height() - held.height() - kTitleBar;
    return {QPoint(std::clamp(at.x(), available.x(), std::max(available.x(), mostX)),
                   std::clamp(at.y(), available.y(), std::max(available.y(), mostY))),
            held};
}

WindowMemory::WindowMemory(QDialog& window, std::string settingsPath)
    : QObject(&window), window_(window), path_(std::move(settingsPath)) {
    const QJsonObject settings = path_.empty() ? QJsonObject() : readSettings(path_);
    restorePlace(settings);
    restoreFolds(settings);
    if (auto* surround = SurroundChoice::of(window_)) surround->choose(settings[kGround].toString());
    window_.installEventFilter(this);
}

void WindowMemory::restorePlace(const QJsonObject& settings) {
    const auto size = pairOf(settings[kSize]), place = pairOf(settings[kPlace]);
    const QScreen* screen = place ? QGuiApplication::screenAt(*place) : nullptr;
    if (!screen) screen = QGuiApplication::primaryScreen();
    if (!screen) return;
    const QSize wanted = size ? QSize(size->x(), size->y()) : window_.size();
    const QRect held = heldTo(screen->availableGeometry(), wanted.expandedTo(window_.minimumSize()), place);
    window_.resize(held.size());
    if (place) window_.move(held.topLeft()); // else the window system knows best
}

void WindowMemory::restoreFolds(const QJsonObject& settings) {
    const QJsonArray folded = settings[kFolded].toArray(), unfolded = settings[kUnfolded].toArray();
    for (QAction* item : foldItems(window_)) {
        const QString name = item->objectName();
        if (!item->isChecked()) foldedAtFirst_.append(name);
        item->setChecked(foldedAtFirst_.contains(name) ? unfolded.contains(name) : !folded.contains(name));
    }
}

void WindowMemory::store() {
    QJsonArray folded, unfolded;
    for (const QAction* item : foldItems(window_))
        if (const bool atFirst = foldedAtFirst_.contains(item->objectName()); atFirst == item->isChecked())
            (atFirst ? unfolded : folded).append(item->objectName());
    QJsonObject settings{{kSize, arrayOf(window_.width(), window_.height())},
                         {kPlace, arrayOf(window_.x(), window_.y())},
                         {kFolded, folded},
                         {kUnfolded, unfolded}};
    if (const auto* surround = SurroundChoice::of(window_)) settings[kGround] = surround->chosen();
    changeSettings(path_, settings);
}

bool WindowMemory::eventFilter(QObject*, QEvent* event) {
    const bool closing = event->type() == QEvent::Hide && !event->spontaneous();
    if (closing && !path_.empty()) guarded([this] { store(); });
    return false;
}

} // namespace chromalog
