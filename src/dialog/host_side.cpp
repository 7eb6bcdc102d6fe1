#include "dialog/host_side.h"

#include "base/colour_text.h"
#include "formats/colour_books.h"
#include "record/host_conversion.h"
#include "record/host_version.h"

namespace chromalog {

Colour takeHostColour(PickerRecord& record) {
    PickParms& parms = record.pickParms;
    std::int16_t c[4];
    for (int i = 0; i < 4; ++i)
        c[i] = static_cast<std::int16_t>(parms.colorComponents[i] >> 8);
    parms.resultSpace = plugIncolorServicesRGBSpace;
    // A failure leaves the components as they are, and they are used as they stand.
    if (parms.sourceSpace != plugIncolorServicesRGBSpace)
        HostCSConvertColor(record.colorServices, parms.sourceSpace, plugIncolorServicesRGBSpace, c);
    return Colour::rgb(c[0] / 255.0, c[1] / 255.0, c[2] / 255.0);
}

void returnColour(PickerRecord& record, const Colour& colour) {
    std::uint16_t* components = record.pickParms.colorComponents;
    components[0] = wordOf(colour.red());
    components[1] = wordOf(colour.green());
    components[2] = wordOf(colour.blue());
}

std::string hostBooks(const PickerRecord& record, const Desktop& desktop) {
    return pathOfBooks(hostVersion(record.propertyProcs), desktop.colourBooksDirectory());
}

} // namespace chromalog
