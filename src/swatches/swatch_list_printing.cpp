#include "swatches/swatch_list_view.h"

namespace chromalog {

void CSwatchList::PrintRect(Canvas&) {}

} // namespace chromalog
