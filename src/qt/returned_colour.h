#pragma once

#include "base/colour.h"

namespace chromalog {

/// The colour that OK returned, on the clipboard for other programs: the colour itself and its hex as text.
/// The window system asks this process for it, so where it does so the application has to live on without a
/// window, until another program takes the clipboard.
class ReturnedColour {
  public:
    static void copy(const Colour&); ///< while a window has the focus: not every system lets others do so
    static bool isHeld();            ///< whether others can get it from this process alone
    /// Returns once another program has taken the clipboard. Ends the process, without a word, where the
    /// window system goes away. Nothing where it is not held.
    static void holdToItsEnd();
};

} // namespace chromalog
