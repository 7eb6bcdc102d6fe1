#pragma once

#include "base/translated.h"

#include <array>
#include <string>
#include <string_view>

namespace chromalog {

/// Names of the steps, as keys of the string table; an untranslated key is shown as it is. The "!" marks are
/// what the history panel cuts the labels out by.
namespace undo_label {

inline constexpr std::string_view loadSwatch = "!Load Swatch!";
inline constexpr std::string_view loadSwatchFile = "!LoadSwatch!"; ///< second step of every load and append
inline constexpr std::string_view appendSwatch = "!Append Swatch!";
inline constexpr std::string_view deleteSwatch = "!Delete Swatch!"; ///< the whole list is cleared
inline constexpr std::string_view sortAlpha = "!Sort Swatch Alpha!";
inline constexpr std::string_view sortHue = "!Sort Swatch Hue!";
inline constexpr std::string_view colorChanged = "!Swatch Color Changed!";
inline constexpr std::string_view colorDeleted =
    "!Swatch Color deleted!"; ///< one swatch deleted; also every drop
inline constexpr std::string_view colorMoved = "!Swatch Color moved!"; ///< by one row, by the keyboard
inline constexpr std::string_view earlierLists = "!Earlier Lists!";    ///< a list comes back from a kept copy
inline constexpr std::string_view colorsAdded = "!Swatch Colors added!"; ///< by a menu, a key, a double click
inline constexpr std::string_view colorsPasted =
    "!Swatch Colors pasted!"; ///< from the clipboard, one or many

inline constexpr std::string_view rowsDeleted =
    "!Swatches deleted!"; ///< several rows at once, as all of these
inline constexpr std::string_view rowsMoved = "!Swatches moved!";
inline constexpr std::string_view rowsCopiedAcross = "!Swatches copied across!";
inline constexpr std::string_view rowsMovedAcross = "!Swatches moved across!";
inline constexpr std::string_view sortRows = "!Sort selected Swatches!";
inline constexpr std::string_view sortBrightness = "!Sort Swatch Brightness!";
inline constexpr std::string_view sortSaturation = "!Sort Swatch Saturation!";
inline constexpr std::string_view sortDifference = "!Sort Swatch Difference!";
inline constexpr std::string_view sortReversed = "!Sort Swatch Reversed!";
inline constexpr std::string_view rowRenamed = "!Swatch renamed!";
inline constexpr std::string_view fileLoaded =
    "!Swatch File loaded!"; ///< by a drop, or one of the recent files
inline constexpr std::string_view fileAppended = "!Swatch File appended!";
inline constexpr std::string_view paletteImported = "!Import!"; ///< a palette of any kind into a list

inline constexpr std::string_view comparedAdded = "!Compared Swatches added!"; ///< out of a comparison
inline constexpr std::string_view doublesRemoved = "!Near Doubles removed!";

inline constexpr std::array all = {
    loadSwatch,     loadSwatchFile, appendSwatch,   deleteSwatch,     sortAlpha,       sortHue,
    colorChanged,   colorDeleted,   colorMoved,     earlierLists,     paletteImported, colorsAdded,
    colorsPasted,   rowsDeleted,    rowsMoved,      rowsCopiedAcross, rowsMovedAcross, sortRows,
    sortBrightness, sortSaturation, sortDifference, sortReversed,     rowRenamed,      fileLoaded,
    fileAppended,   comparedAdded,  doublesRemoved};

} // namespace undo_label

/// What undoing a step does, in words, by the key of its label. A load or an append changes nothing until its
/// file is in.
std::string_view stepInWords(std::string_view labelKey);
inline constexpr std::string_view kNothingChanged = translatable("nothing changed");

/// The labels between pairs of "!" marks in a description of recorded steps, each followed by a carriage
/// return, after a leading space.
std::string undoListing(std::string_view description);

} // namespace chromalog
