// The map of src/README.md against the tree: who may include whom.
#include "structure/map.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>

namespace chromalog::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

std::vector<std::string> linesOf(const std::string& name) {
    std::ifstream in(std::string(CHROMALOG_SOURCE_DIR) + "/" + name);
    std::vector<std::string> lines;
    for (std::string line; std::getline(in, line);)
        lines.push_back(line);
    return lines;
}

std::vector<SourceFile> wholeTree() {
    std::vector<SourceFile> all;
    for (const char* folder : {"src", "tests", "bench", "fuzz"})
        for (SourceFile& file : sources(folder))
            all.push_back(std::move(file));
    return all;
}

TEST(Map, AllowsWhatIsIncludedAndNothingElse) {
    const std::vector<Room> map = readMap(linesOf("src/README.md"));
    EXPECT_GT(map.size(), 25u) << "no table was read";
    EXPECT_THAT(faultsOf(arrowsOf(wholeTree(), map), map), IsEmpty());
}

// The check itself, on a small tree beside the real files that it names.
class MapFaults : public testing::Test {
  protected:
    std::vector<std::string> faults(const std::vector<std::string>& rows, SourceFile file) {
        const std::vector<Room> map = readMap(rows);
        return faultsOf(arrowsOf({{"src/base/own.h", {}}, {"src/views/own.h", {}}, std::move(file)}, map),
                        map);
    }
    const std::string kBase = "| `base` | values | – |";
};

TEST_F(MapFaults, AnIncludeThatTheMapDoesNotAllow) {
    const SourceFile file{"src/views/new.cpp", {"#include \"base/colour.h\""}};
    EXPECT_THAT(faults({"| `views` | wheel | – |", kBase}, file),
                ElementsAre("views may not include base: src/views/new.cpp (\"base/colour.h\")"));
    EXPECT_THAT(faults({"| `views` | wheel | base |", kBase}, file), IsEmpty());
}

TEST_F(MapFaults, APermissionThatNobodyUses) {
    EXPECT_THAT(faults({"| `views` | wheel | base |", kBase}, {"src/views/new.cpp", {}}),
                ElementsAre("views never includes base"));
}

TEST_F(MapFaults, AnArrowThatRunsUp) {
    const SourceFile file{"src/base/new.cpp", {"#include \"views/tone_view.h\""}};
    EXPECT_THAT(faults({"| `views` | wheel | – |", "| `base` | values | views |"}, file),
                ElementsAre(HasSubstr("base -> views runs up")));
}

TEST_F(MapFaults, ARoomThatTheMapDoesNotHave) {
    EXPECT_THAT(faults({"| `views` | wheel | – |", kBase}, {"src/cellar/new.cpp", {}}),
                ElementsAre("src/cellar is not in the map"));
    EXPECT_THAT(
        faults({"| `views` | wheel | – |", kBase, "| `attic` | nothing | – |"}, {"src/views/new.cpp", {}}),
        ElementsAre("attic has no files"));
}

TEST_F(MapFaults, TheToolkitIsARoomLikeOthers) {
    const SourceFile file{"src/views/new.cpp", {"#include <QWidget>"}};
    EXPECT_THAT(faults({"| `views` | wheel | – |", kBase}, file),
                ElementsAre("views may not include Qt 6: src/views/new.cpp"));
    EXPECT_THAT(faults({"| `views` | wheel | Qt 6 |", kBase}, file), IsEmpty());
}

TEST_F(MapFaults, AnIncludeOfNoFile) {
    const SourceFile file{"src/views/new.cpp", {"#include \"colour.h\""}};
    EXPECT_THAT(faults({"| `views` | wheel | – |", kBase}, file),
                Contains(HasSubstr("may not include nothing")));
}

} // namespace
} // namespace chromalog::test
