#include "qt/panels/page_habits.h"

#include <QLocale>
#include <QPageSize>
#include <QSizeF>

#include <algorithm>

namespace chromalog {

namespace {

/// Countries where letters are written on Letter; some of them measure in millimetres.
constexpr QLocale::Country letterCountries[] = {
    QLocale::UnitedStates, QLocale::Canada,     QLocale::Mexico,     QLocale::Belize,    QLocale::Chile,
    QLocale::Colombia,     QLocale::CostaRica,  QLocale::Guatemala,  QLocale::Nicaragua, QLocale::Panama,
    QLocale::Philippines,  QLocale::PuertoRico, QLocale::ElSalvador, QLocale::Venezuela,
};

} // namespace

const ShownUnit& shownUnit(LengthUnit unit) {
    static constexpr ShownUnit units[] = {{"pt", 1, 1, 1}, {"mm", 72 / 25.4, 1, 1}, {"in", 72, 2, 0.1}};
    return units[static_cast<int>(unit)];
}

PageHabits pageHabits(const QLocale& locale) {
    if (locale.language() == QLocale::C) return {}; // nobody has said where this is
    const bool inches = locale.measurementSystem() == QLocale::ImperialUSSystem;
    const bool letter = std::ranges::find(letterCountries, locale.country()) != std::end(letterCountries);
    const QSizeF paper = QPageSize::size(letter ? QPageSize::Letter : QPageSize::A4, QPageSize::Point);
    return {inches ? LengthUnit::inches : LengthUnit::millimetres, Size{paper.width(), paper.height()}};
}

} // namespace chromalog
