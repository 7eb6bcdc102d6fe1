#pragma once

#include <QString>

#include <algorithm>
#include <array>

namespace chromalog {

/// Captions, layouts, spacers, groups, boxes and the toolkit's own children stand in a form for looks alone.
inline bool isDecoration(const QString& objectName) {
    static constexpr std::array<QLatin1String, 6> prefixes = {
        QLatin1String("caption"), QLatin1String("layout"), QLatin1String("spacer"),
        QLatin1String("group"),   QLatin1String("box"),    QLatin1String("qt_")};
    return objectName.isEmpty() || std::any_of(prefixes.begin(), prefixes.end(), [&](QLatin1String prefix) {
               return objectName.startsWith(prefix);
           });
}

/// The property of a widget that names the class that it is to whoever looks from outside, where that is not
/// its own.
inline constexpr const char* kClassName = "className";

/// Of a button with a menu: the menu's name, and the place on the button where a press opens it.
inline constexpr const char* kMenuName = "menuName";
inline constexpr const char* kMenuSpot = "menuSpot";

/// Of a menu item that folds: the names of the boxes that it shows while it is checked, with spaces between.
inline constexpr const char* kShows = "shows";

/// Of a menu item that chooses the ground around colours: which one.
inline constexpr const char* kSurround = "surround";

/// Of a panel: it opens beside the dialog, not over its middle.
inline constexpr const char* kBeside = "beside";

/// Classes of ours as the toolkit's own objects name them, for whoever knows no more of them than that.
inline constexpr const char* kDialogClass = "chromalog::DialogWindow";
inline constexpr const char* kStepperClass = "chromalog::StepperWidget";

} // namespace chromalog
