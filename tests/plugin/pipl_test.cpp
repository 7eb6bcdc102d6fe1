// The bundle's resource, read back by the published layout.
#include "plugin/pipl/pipl.h"

#include <gtest/gtest.h>
#include <map>

namespace chromalog {
namespace {

struct Reader {
    const Bytes& bytes;
    std::size_t at = 0;
    std::uint32_t number(int count) {
        std::uint32_t value = 0;
        while (count-- > 0)
            value = value << 8 | bytes.at(at++);
        return value;
    }
    std::string text(std::size_t count) {
        at += count;
        return {bytes.begin() + static_cast<std::ptrdiff_t>(at - count),
                bytes.begin() + static_cast<std::ptrdiff_t>(at)};
    }
};

/// Key to data of a property list.
std::map<std::string, std::string> propertiesOf(const Bytes& list) {
    Reader in{list};
    EXPECT_EQ(in.number(4), 0u) << "version of the list";
    std::map<std::string, std::string> properties;
    for (std::uint32_t count = in.number(4); count > 0; --count) {
        EXPECT_EQ(in.text(4), "8BIM");
        const std::string key = in.text(4);
        EXPECT_EQ(in.number(4), 0u);
        const std::uint32_t length = in.number(4);
        properties[key] = in.text(length);
        for (; in.at % 4 != 0; ++in.at)
            EXPECT_EQ(list.at(in.at), 0);
    }
    EXPECT_EQ(in.at, list.size());
    return properties;
}

TEST(Pipl, NamesAColourPickerAndItsEntry) {
    const auto properties = propertiesOf(piplBytes(pickerProperties("Chromalog", "PluginMain")));
    const std::string entry = "\x0APluginMain", zero(1, '\0');
    EXPECT_EQ(properties.at("kind"), "8BCM");
    EXPECT_EQ(properties.at("vers"), (std::string{0, 1, 0, 0}));
    EXPECT_EQ(properties.at("prty"), std::string(4, '\0'));
    EXPECT_EQ(properties.at("name"), "\x09"
                                     "Chromalog");
    EXPECT_EQ(properties.at("catg"), "\x09"
                                     "Chromalog");
    EXPECT_EQ(properties.at("mi64"), entry);
    EXPECT_EQ(properties.at("ma64"), entry);
    EXPECT_EQ(properties.at("pnme"), "Quorvex Chromalog" + zero);
    EXPECT_EQ(properties.at("mode"), "\xFF\xC0");
    EXPECT_EQ(properties.at("enbl"), "true" + zero);
    EXPECT_EQ(properties.at("host"), "8BIM");
}

TEST(Pipl, TheResourceFileHoldsTheListUnderItsTypeAndNumber) {
    const Bytes list = piplBytes(pickerProperties("Chromalog", "PluginMain"));
    const Bytes file = resourceFile("PiPL", 16000, list);
    Reader header{file};
    const std::uint32_t data = header.number(4), map = header.number(4), dataLength = header.number(4),
                        mapLength = header.number(4);
    EXPECT_EQ(data + dataLength, map);
    EXPECT_EQ(map + mapLength, file.size());

    Reader in{file, map + 24};
    const std::uint32_t types = map + in.number(2), names = map + in.number(2);
    EXPECT_EQ(names, file.size());
    in.at = types;
    EXPECT_EQ(in.number(2), 0u) << "one type";
    EXPECT_EQ(in.text(4), "PiPL");
    EXPECT_EQ(in.number(2), 0u) << "one resource";
    in.at = types + in.number(2);
    EXPECT_EQ(in.number(2), 16000u);
    EXPECT_EQ(in.number(2), 0xFFFFu) << "no name";
    in.at += 1;
    in.at = data + in.number(3);
    ASSERT_EQ(in.number(4), list.size());
    EXPECT_EQ(in.text(list.size()), std::string(list.begin(), list.end()));
}

} // namespace
} // namespace chromalog
