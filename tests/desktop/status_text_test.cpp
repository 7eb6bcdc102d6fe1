// What the quiet line says, and for how long.
#include "desktop/status_line.h"

#include <gmock/gmock.h>

namespace chromalog {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using About = StatusLine::About;

TEST(StatusLineTest, WhatWasSaidLastStandsUntilItIsTakenBack) {
    StatusLine status;
    std::vector<std::string> shown;
    status.onChange = [&] { shown.push_back(status.text()); };
    status.say(About::storing, "not stored");
    status.say(About::files, "not read");
    status.say(About::files, "not read");
    status.say(About::printing, "not printed");
    status.takeBack(About::files);
    status.takeBack(About::files);
    status.takeBack(About::printing);
    status.say(About::storing, "stored nowhere");
    status.takeBack(About::storing);
    EXPECT_THAT(shown,
                ElementsAre("not stored", "not read", "not printed", "not stored", "stored nowhere", ""));
}

TEST(StatusLineTest, FilesThatWereNotWrittenAreToldOnce) {
    StatusLine status;
    status.sayNotWritten(About::files, "/some/where/a.aco", "no room");
    status.sayNotWritten(About::printing, "b.pdf", "no room");
    EXPECT_EQ(status.text(), "b.pdf was not written: no room");
    EXPECT_THAT(status.takeNotWritten(), ElementsAre("/some/where/a.aco: no room", "b.pdf: no room"));
    EXPECT_THAT(status.takeNotWritten(), IsEmpty());
}

} // namespace
} // namespace chromalog
