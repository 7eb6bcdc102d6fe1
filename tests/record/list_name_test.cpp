#include "record/list_name.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string_view>

namespace chromalog {
namespace {

using Field = std::array<std::uint8_t, 257>;

Field fieldOf(std::string_view name) {
    Field field;
    field.fill('x');
    field[0] = static_cast<std::uint8_t>(name.size());
    std::ranges::copy(name, field.begin() + 1);
    return field;
}

TEST(ListName, EndsAfterItsLastCharacterOrAtAZero) {
    Field field = fieldOf("Reds");
    EXPECT_EQ(terminatedListName(field), "Reds");
    EXPECT_EQ(field[5], 0);
    field = fieldOf(std::string_view("Re\0ds", 5));
    EXPECT_EQ(terminatedListName(field), "Re");
    field = fieldOf("");
    EXPECT_EQ(terminatedListName(field), "");
}

TEST(ListName, Of255CharactersEndsOneByteFurther) {
    Field field = fieldOf(std::string(255, 'a'));
    EXPECT_EQ(terminatedListName(field), std::string(255, 'a'));
    EXPECT_EQ(field[256], 0);
}

TEST(ListName, WithAByteAbove127IsNone) {
    Field field = fieldOf("Gr\xFCn");
    EXPECT_EQ(terminatedListName(field), std::nullopt);
    field = fieldOf("\x7F");
    EXPECT_EQ(terminatedListName(field), "\x7F");
}

} // namespace
} // namespace chromalog
