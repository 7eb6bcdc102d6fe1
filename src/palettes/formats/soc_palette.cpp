#include "palettes/formats/soc_palette.h"

#include "base/translated.h"
#include "palettes/palette_text.h"
#include "record/name_text.h"

#include <expat.h>
#include <memory>

namespace chromalog {
namespace {

/// What the parser's calls share. Nothing thrown may cross the parser: it is kept and thrown later.
struct Reading {
    XML_Parser parser;
    ReadPalette read;
    bool isTable = false; ///< an element of such files was met
    bool hasEntities = false;
    std::exception_ptr thrown;
};

void takeColour(Reading& reading, const char** attributes) {
    PaletteColour colour;
    std::string_view name, value;
    for (; attributes[0]; attributes += 2) {
        if (std::string_view(attributes[0]) == "draw:name") name = attributes[1];
        if (std::string_view(attributes[0]) == "draw:color") value = attributes[1];
    }
    auto read = value.starts_with('#') ? colourOfHex(value.substr(1)) : std::nullopt;
    if (!read) {
        ++reading.read.unread;
        return;
    }
    read->name = name;
    addColour(reading.read.palette, std::move(*read));
}

void startElement(void* data, const char* name, const char** attributes) {
    auto& reading = *static_cast<Reading*>(data);
    const std::string_view element(name);
    if (element.ends_with(":color-table")) reading.isTable = true;
    if (element != "draw:color") return;
    reading.isTable = true;
    try {
        takeColour(reading, attributes);
    } catch (...) {
        reading.thrown = std::current_exception();
        XML_StopParser(reading.parser, XML_FALSE);
    }
}

/// A few of them, one inside the other, would fill any memory.
void declareEntity(void* data, const char*, int, const char*, int, const char*, const char*, const char*,
                   const char*) {
    auto& reading = *static_cast<Reading*>(data);
    reading.hasEntities = true;
    XML_StopParser(reading.parser, XML_FALSE);
}

/// What XML 1.0 allows in a text.
bool isXmlCharacter(char32_t c) {
    return c == '\t' || c == '\n' || c == '\r' || (c >= 0x20 && c != 0xFFFE && c != 0xFFFF);
}

} // namespace

ReadPalette readSocPalette(Bytes file) {
    const std::unique_ptr<XML_ParserStruct, decltype(&XML_ParserFree)> parser(XML_ParserCreate(nullptr),
                                                                              &XML_ParserFree);
    if (!parser) throw std::bad_alloc();
    Reading reading{parser.get(), {}, false, false, {}};
    XML_SetUserData(parser.get(), &reading);
    XML_SetStartElementHandler(parser.get(), startElement);
    XML_SetEntityDeclHandler(parser.get(), declareEntity);
    const auto status = XML_Parse(parser.get(), reinterpret_cast<const char*>(file.data()),
                                  static_cast<int>(file.size()), XML_TRUE);
    if (reading.thrown) std::rethrow_exception(reading.thrown);
    if (reading.hasEntities) throw PaletteError(translated("this XML file declares entities of its own"));
    if (status != XML_STATUS_OK) {
        const auto line = XML_GetCurrentLineNumber(parser.get());
        throw PaletteError(translated("the XML is broken in line %1", line));
    }
    if (!reading.isTable) throw PaletteError(translated("this XML file is no table of colors"));
    return std::move(reading.read);
}

std::vector<std::uint8_t> writeSocPalette(const Palette& palette) {
    std::string text = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                       "<ooo:color-table xmlns:draw=\"urn:oasis:names:tc:opendocument:xmlns:drawing:1.0\" "
                       "xmlns:ooo=\"http://openoffice.org/2004/office\">\n";
    text.reserve(text.size() + palette.colours.size() * 60);
    for (const PaletteColour& colour : palette.colours)
        text.append("  <draw:color draw:name=\"")
            .append(xmlText(colour.name))
            .append("\" draw:color=\"")
            .append(hexWithoutAlpha(colour))
            .append("\"/>\n");
    text += "</ooo:color-table>\n";
    return {text.begin(), text.end()};
}

std::string xmlText(std::string_view text) {
    std::string xml;
    for (const char c : text) {
        if (c == '&')
            xml += "&amp;";
        else if (c == '<')
            xml += "&lt;";
        else if (c == '>')
            xml += "&gt;";
        else if (c == '"')
            xml += "&quot;";
        else if (c == '\t' || c == '\n' || c == '\r') // as they are, an attribute would turn them into spaces
            xml.append("&#").append(std::to_string(static_cast<int>(c))).append(";");
        else
            xml.push_back(c);
    }
    return xml;
}

std::string withoutXmlControls(std::string_view text) {
    std::string clean;
    while (!text.empty()) {
        const char32_t c = takeCodePoint(text);
        appendUtf8(clean, isXmlCharacter(c) ? c : U' ');
    }
    return clean;
}

} // namespace chromalog
