// A person takes the colours of a photo.
#include "e2e/story.h"

namespace chromalog::test {
namespace {

using testing::SizeIs;

using StoryOfPictures = Story;

std::string hex(const json& record) {
    const auto byte = [&record](const char* channel) { return (record[channel].get<int>() + 128) / 257; };
    char text[8];
    std::snprintf(text, sizeof text, "#%02x%02x%02x", byte("SRed"), byte("SGreen"), byte("SBlue"));
    return text;
}

TEST_F(StoryOfPictures, APhotoIsPickedFromAndItsColoursAreTakenAndUndone) {
    // A script does the same first: it tells where the panel's controls stand, and what comes out.
    prepare("picture chromaView $/wheel.png\n"
            "choose $/wheel.png\n"
            "press choosePicture:\n"
            "click picture 200 150\n"
            "press pictureToList1:\n");
    const json seen = state("frames.json");
    open();
    click({"choosePicture"});
    waitForWindow("Open picture");
    type(file("wheel.png") + "\n");
    waitForWindow("Picture");
    click(panel("pictureToList1")); // perhaps before the colours are there
    click(panel("pictureToList2"));
    waitForColour({"swatch2", 20, 13}, hex(seen["lists"][0]["records"][0]));
    click({"picture", 200, 150, true});
    keys("Escape"); // the panel may lie over the switch
    waitForWindow("Chromalog");
    click({"undoButton"});
    click({"toggleSecondColor", 300, 12});
    click({"okButton"});
    const json& second = seen["secondColor"];
    char picked[8];
    std::snprintf(picked, sizeof picked, "#%02x%02x%02x", int(second[0].get<double>() * 255 + 0.5),
                  int(second[1].get<double>() * 255 + 0.5), int(second[2].get<double>() * 255 + 0.5));
    EXPECT_EQ(ended(), picked);
    EXPECT_THAT(swatches(1), SizeIs(24)) << "twelve are the script's";
    EXPECT_THAT(swatches(2), SizeIs(0));
}

} // namespace
} // namespace chromalog::test
