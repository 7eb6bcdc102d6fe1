// Of systems whose screens cannot be read yet.
#include "base/translated.h"
#include "qt/screen/begin_screen_pick.h"

namespace chromalog {

std::unique_ptr<ScreenPick> beginScreenPick(QWidget*, ScreenAnswer answer) {
    answer({{}, translated("Colors cannot be picked from the screen on this system")});
    return nullptr;
}

} // namespace chromalog
