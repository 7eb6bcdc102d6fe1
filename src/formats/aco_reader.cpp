#include "formats/aco_reader.h"

namespace chromalog {
namespace {

constexpr std::size_t kHeaderSize = 4;
constexpr std::size_t kColourSize = 10;
constexpr int kLeastSecondSection = 5; // bytes left after version 1 that make a second section

/// A section of version 2 that makes the whole file, or one that follows a section of version 1. They differ
/// in what counts as signed, in the factor after a conversion (255 or 256) and in colour books: kept.
enum class Section { alone, afterVersion1 };

/// (value + offset) * factor / divisor, truncated toward zero.
struct Scale {
    int offset = 0, factor = 1, divisor = 1;
};

/// How the components of a space go to the host.
struct SpaceRule {
    std::int16_t space;     ///< in the file
    std::int16_t hostSpace; ///< colour-services code
    bool signedAlone;       ///< components count as signed in a section alone
    bool signedAfter;       ///< and in one after version 1
    Scale scales[4];
};

constexpr Scale kToDegrees{0, 359, 65535}; // a hue of 360 never comes out: kept
constexpr Scale kTo8Bit{0, 255, 65535};
constexpr Scale kPercentTo8Bit{0, 255, 10000};
constexpr Scale kLabAxis{12800, 1, 100};

constexpr SpaceRule kSpaces[] = {
    {1, plugIncolorServicesHSBSpace, true, false, {kToDegrees, kTo8Bit, kTo8Bit, {}}},
    {2, plugIncolorServicesCMYKSpace, false, false, {kTo8Bit, kTo8Bit, kTo8Bit, kTo8Bit}},
    {7, plugIncolorServicesLabSpace, true, true, {kPercentTo8Bit, kLabAxis, kLabAxis, {}}},
    {8, plugIncolorServicesGraySpace, true, false, {kPercentTo8Bit, {}, {}, {}}},
};

void storeColour(FCOStruct& record, std::int64_t red, std::int64_t green, std::int64_t blue) {
    record.SRed = red;
    record.SGreen = green;
    record.SBlue = blue;
}

/// One hexadecimal digit for 0..15; other values give other bytes: kept.
std::uint8_t hexByte(int digit) {
    return static_cast<std::uint8_t>(digit + 48 + 7 * (digit / 10));
}

void SetHexValue(std::uint8_t* characters, std::int16_t value) {
    characters[0] = hexByte(value / 16);
    characters[1] = hexByte(value - 16 * (value / 16));
}

class AcoRecords {
  public:
    AcoRecords(ByteCursor cursor, std::int16_t start, ListRecords records, ColorServicesProc services,
               const ColourBookRegistry& registry)
        : cursor_(cursor), start_(start), records_(records), services_(services), books_(registry, services) {
    }

    void readVersion1(int count);
    void readVersion2(int count, Section);
    ByteCursor& cursor() { return cursor_; }

  private:
    /// The record after which no other one can fall into the array.
    int reachable(int count) const { return std::min(count, kListCapacity - start_); }
    void readColour(FCOStruct&, Section);
    void readName(FCOStruct&, Section);
    void convert(const std::uint16_t (&words)[5], FCOStruct&, Section);

    ByteCursor cursor_;
    int start_; ///< may be negative: a view's count as told
    ListRecords records_;
    ColorServicesProc services_;
    BookLookup books_;
};

/// The space code is ignored and the components taken as signed, times 256; the name is the colour in
/// hexadecimal.
void AcoRecords::readVersion1(int count) {
    const std::size_t end = cursor_.offset() + kColourSize * static_cast<std::size_t>(std::max(count, 0));
    for (int i = 0; i < reachable(count); ++i) {
        const auto bytes = cursor_.take<kColourSize>();
        FCOStruct* record = recordAt(records_, start_ + i);
        if (!record) continue;
        record->Namen[0] = 6;
        std::int64_t channels[3];
        for (int c = 0; c < 3; ++c) {
            const auto value =
                static_cast<std::int16_t>(bigEndian16(&bytes[2 + 2 * static_cast<std::size_t>(c)]));
            channels[c] = value * 256;
            SetHexValue(record->Namen + 1 + 2 * c, value);
        }
        storeColour(*record, channels[0], channels[1], channels[2]);
    }
    cursor_.skip(end - cursor_.offset());
}

void AcoRecords::readVersion2(int count, Section section) {
    FCOStruct outside; // takes what falls before the array
    for (int i = 0; i < reachable(count); ++i) {
        FCOStruct* record = recordAt(records_, start_ + i);
        readColour(record ? *record : outside, section);
        readName(record ? *record : outside, section);
    }
}

void AcoRecords::readColour(FCOStruct& record, Section section) {
    const auto bytes = cursor_.take<kColourSize>();
    std::uint16_t words[5];
    for (std::size_t i = 0; i < 5; ++i)
        words[i] = bigEndian16(&bytes[2 * i]);
    const auto space = static_cast<std::int16_t>(words[0]);
    if (space == 0) {
        storeColour(record, words[1], words[2], words[3]);
    } else if (section == Section::afterVersion1 && isBookSpace(space)) {
        const BookKey key{bytes[2], bytes[3], bytes[4], bytes[5], bytes[6], bytes[7]};
        const auto& found = books_.getValueFromAse(space, key);
        storeColour(record, found[0] * 256, found[1] * 256, found[2] * 256);
    } else {
        convert(words, record, section);
    }
}

void AcoRecords::convert(const std::uint16_t (&words)[5], FCOStruct& record, Section section) {
    const auto space = static_cast<std::int16_t>(words[0]);
    SpaceRule rule{space, space, false, false, {}}; // an unknown space goes to the host as it stands
    bool known = isBookSpace(space);
    for (const SpaceRule& row : kSpaces)
        if (row.space == space) rule = row, known = true;
    if (!known) books_.meetUnknownSpace(space);
    const bool isSigned = section == Section::alone ? rule.signedAlone : rule.signedAfter;
    std::int16_t slots[4];
    for (int i = 0; i < 4; ++i) {
        const std::uint16_t word = words[i + 1];
        const int value = isSigned ? static_cast<std::int16_t>(word) : word;
        const Scale& scale = rule.scales[i];
        slots[i] = static_cast<std::int16_t>((value + scale.offset) * scale.factor / scale.divisor);
    }
    HostCSConvertColor(services_, rule.hostSpace, plugIncolorServicesRGBSpace, slots);
    const int times = section == Section::alone ? 255 : 256;
    storeColour(record, slots[0] * times, slots[1] * times, slots[2] * times);
}

/// Only the lowest byte of the length counts, and only the low byte of each unit; a terminating unit is
/// always assumed.
void AcoRecords::readName(FCOStruct& record, Section section) {
    const auto length = static_cast<std::uint8_t>(cursor_.take<4>()[3] - 1);
    record.Namen[0] = length;
    const Bytes units = cursor_.upTo(2 * std::size_t{length});
    const std::size_t whole = units.size() / 2;
    for (std::size_t k = 0; k < whole; ++k)
        record.Namen[k + 1] = units[2 * k + 1];
    std::fill(record.Namen + 1 + whole, record.Namen + 1 + length, std::uint8_t{0});
    const auto terminator = static_cast<std::uint8_t>(cursor_.word());
    // A section alone keeps one byte more. Past a name of 255 it is dropped: it would land in the colour.
    if (section == Section::alone && length < 255) record.Namen[length + 1] = terminator;
}

bool hasSecondSection(Bytes file, int count) {
    return static_cast<std::int32_t>(file.size()) - static_cast<int>(kHeaderSize) -
               static_cast<int>(kColourSize) * count >=
           kLeastSecondSection;
}

} // namespace

AcoHeader readAcoHeader(Bytes file, std::int16_t start) {
    const auto bytes = ByteCursor(file).take<kHeaderSize>();
    AcoHeader header;
    header.version = static_cast<std::int8_t>(bytes[1]);
    header.count = static_cast<std::int16_t>(bigEndian16(&bytes[2]));
    const int total = header.count + start;
    if (total >= kListCapacity) {
        header.overLimit = total;
        header.count = static_cast<std::int16_t>(total - kListCapacity);
    }
    header.viewCount = static_cast<std::int16_t>(start + header.count);
    return header;
}

std::optional<std::int16_t> readAcoRecords(Bytes file, const AcoHeader& header, std::int16_t start,
                                           ListRecords records, ColorServicesProc services,
                                           const ColourBookRegistry& registry) {
    AcoRecords reader(ByteCursor(file, kHeaderSize), start, records, services, registry);
    if (header.version == 2) reader.readVersion2(header.count, Section::alone);
    if (header.version != 1) return std::nullopt;
    reader.readVersion1(header.count);
    if (!hasSecondSection(file, header.count)) return std::nullopt;
    reader.cursor().skip(2); // the section's version: not checked
    const auto count = static_cast<std::int16_t>(reader.cursor().word());
    reader.readVersion2(count, Section::afterVersion1);
    return static_cast<std::int16_t>(start + count);
}

} // namespace chromalog
