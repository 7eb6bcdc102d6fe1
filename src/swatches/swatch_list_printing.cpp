#include "swatches/swatch_list_view.h"

namespace chromalog {

void CSwatchList::PrintRect(Canvas& canvas) {
    if (onPaper) onPaper(canvas);
}

} // namespace chromalog
