#include "views/accessible_colour.h"

#include <gtest/gtest.h>

namespace chromalog {
namespace {

TEST(AccessibleColour, TellsTheColourThatOkReturns) {
    EXPECT_EQ(accessibleColour(Colour::rgb(0.9, 0.3, 0.1)), "RGB 229 76 25, #e54c19");
    EXPECT_EQ(accessibleColour(Colour::rgb(1, 0, 1)), "RGB 255 0 255, #ff00ff");
    EXPECT_EQ(accessibleColour(Colour::rgb(0.999, 0.4999, 0.001)), "RGB 255 127 0, #ff7f00");
}

} // namespace
} // namespace chromalog
