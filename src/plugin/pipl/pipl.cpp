#include "plugin/pipl/pipl.h"

namespace chromalog {

namespace {

void append(Bytes& out, std::uint32_t value, int bytes) {
    for (int shift = 8 * (bytes - 1); shift >= 0; shift -= 8)
        out.push_back(static_cast<std::uint8_t>(value >> shift));
}

void append(Bytes& out, const std::string& text) {
    out.insert(out.end(), text.begin(), text.end());
}

Bytes number(std::uint32_t value, int bytes = 4) {
    Bytes out;
    append(out, value, bytes);
    return out;
}

Bytes code(const std::string& fourCharacters) {
    return Bytes(fourCharacters.begin(), fourCharacters.end());
}

Bytes cString(const std::string& text) {
    Bytes out(text.begin(), text.end());
    out.push_back(0);
    return out;
}

Bytes pascalString(const std::string& text) {
    Bytes out{static_cast<std::uint8_t>(text.size())};
    append(out, text);
    return out;
}

constexpr std::uint32_t kAllTenImageModes = 0xFFC0; // the first mode is the highest of 16 bits

} // namespace

std::vector<PiplProperty> pickerProperties(const std::string& name, const std::string& entry) {
    return {
        {"kind", code("8BCM")},
        {"vers", number(1 << 16)}, // of the picker interface: 1.0
        {"prty", number(0)},
        {"host", code("8BIM")},
        {"name", pascalString(name)},
        {"catg", pascalString(name)},
        {"pnme", cString("Quorvex " + name)}, // unique among pickers: by it the host keeps the user's choice
        {"mi64", pascalString(entry)},
        {"ma64", pascalString(entry)},
        {"mode", number(kAllTenImageModes, 2)},
        {"enbl", cString("true")}};
}

Bytes piplBytes(const std::vector<PiplProperty>& properties) {
    Bytes out;
    append(out, 0, 4); // version of the list
    append(out, static_cast<std::uint32_t>(properties.size()), 4);
    for (const PiplProperty& property : properties) {
        append(out, "8BIM");
        append(out, property.key);
        append(out, 0, 4); // identifier
        append(out, static_cast<std::uint32_t>(property.data.size()), 4);
        out.insert(out.end(), property.data.begin(), property.data.end());
        while (out.size() % 4 != 0)
            out.push_back(0);
    }
    return out;
}

Bytes resourceFile(const char* type, std::int16_t id, const Bytes& resource) {
    constexpr std::uint32_t kDataStart = 256, kMapLength = 50;
    const auto dataLength = static_cast<std::uint32_t>(resource.size() + 4);
    Bytes header;
    append(header, kDataStart, 4);
    append(header, kDataStart + dataLength, 4);
    append(header, dataLength, 4);
    append(header, kMapLength, 4);

    Bytes out = header;
    out.resize(kDataStart);
    append(out, static_cast<std::uint32_t>(resource.size()), 4);
    out.insert(out.end(), resource.begin(), resource.end());

    out.insert(out.end(), header.begin(), header.end()); // the map starts with a copy
    append(out, 0, 4);                                   // next map
    append(out, 0, 4);                                   // file number, attributes
    append(out, 28, 2);                                  // from the map's start to the list of types
    append(out, kMapLength, 2);                          // to the list of names, which is empty
    append(out, 0, 2);                                   // types less one
    append(out, type);
    append(out, 0, 2);  // resources of this type less one
    append(out, 10, 2); // from the list of types to the list of resources
    append(out, static_cast<std::uint16_t>(id), 2);
    append(out, 0xFFFF, 2); // no name
    append(out, 0, 1 + 3);  // attributes, place in the data
    append(out, 0, 4);
    return out;
}

} // namespace chromalog
