#include "dialog/host_side.h"

#include "base/channels.h"
#include "base/colour_text.h"
#include "formats/colour_books.h"
#include "record/host_conversion.h"
#include "record/host_version.h"

#include <algorithm>

namespace chromalog {

Colour takeHostColour(PickerRecord& record) {
    PickParms& parms = record.pickParms;
    auto c = highBytes(parms.colorComponents);
    parms.resultSpace = plugIncolorServicesRGBSpace;
    // A failure leaves the components as they are, and they are used as they stand.
    if (parms.sourceSpace != plugIncolorServicesRGBSpace)
        HostCSConvertColor(record.colorServices, parms.sourceSpace, plugIncolorServicesRGBSpace, c.data());
    return colourOfBytes(c);
}

void returnColour(PickerRecord& record, const Colour& colour) {
    std::ranges::copy(channelsOf(colour), record.pickParms.colorComponents); // the fourth stays
}

std::string hostBooks(const PickerRecord& record, const Desktop& desktop) {
    return pathOfBooks(hostVersion(record.propertyProcs), desktop.colourBooksDirectory());
}

} // namespace chromalog
