// Pages of the charts: nothing is printed yet.
#include "views/degrade_view.h"
#include "views/tone_view.h"

namespace chromalog {

void toneView::printRect(Canvas&) {}
void degradeView::printRect(Canvas&) {}

} // namespace chromalog
