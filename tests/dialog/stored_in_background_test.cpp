// The write of every step, beside the event loop.
#include "dialog/stored_lists.h"
#include "prefs/preferences_layout.h"
#include "support/headless_desktop.h"
#include "support/temporary_folder.h"

#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <memory>
#include <new>
#include <utility>

namespace chromalog::test {
namespace {

/// Begins nothing before somebody waits for it.
class LateDesktop : public HeadlessDesktop {
  public:
    std::function<void()> work, then;
    bool refuses = false;

    void inBackground(std::function<void()> doWork, std::function<void()> thenDo) override {
        if (refuses) throw std::bad_alloc();
        work = std::move(doWork);
        then = std::move(thenDo);
    }
    void finishBackground() override {
        if (!work) return;
        std::exchange(work, nullptr)();
        std::exchange(then, nullptr)();
    }
};

class StoredInBackground : public testing::Test {
  protected:
    void SetUp() override {
        desktop.applications = folder.path();
        stored->open(*record, false);
        path = stored->path();
    }
    void save(std::int16_t count, Flush flush = Flush::later) {
        record->numColors1 = count;
        stored->save(*record, flush);
    }
    /// The first list's count in the file; -1 without one.
    int countOnDisk() const {
        std::ifstream in(path, std::ios::binary);
        const std::vector<char> bytes(std::istreambuf_iterator<char>(in), {});
        return bytes.size() == kPreferencesSize ? bytes[kFileCounts[0]] : -1;
    }

    TemporaryFolder folder;
    LateDesktop desktop;
    std::string path;
    std::unique_ptr<GlobalRecord> record = std::make_unique<GlobalRecord>();
    std::unique_ptr<StoredLists> stored = std::make_unique<StoredLists>(desktop);
};

TEST_F(StoredInBackground, AStepIsStoredAsItWasWhenItWasTaken) {
    save(3);
    EXPECT_EQ(countOnDisk(), -1) << "not yet";
    record->numColors1 = 4; // what the step does then
    desktop.finishBackground();
    EXPECT_EQ(countOnDisk(), 3);
}

TEST_F(StoredInBackground, TheNextStepWaitsForTheOneBefore) {
    save(3);
    save(4);
    EXPECT_EQ(countOnDisk(), 3);
}

TEST_F(StoredInBackground, OkWaitsAndWritesItself) {
    save(3);
    save(5, Flush::toDisk);
    EXPECT_EQ(countOnDisk(), 5);
    EXPECT_FALSE(desktop.work);
}

TEST_F(StoredInBackground, APickThatEndsWaits) {
    save(6);
    stored.reset();
    EXPECT_TRUE(std::ifstream(path).is_open());
    EXPECT_FALSE(desktop.work);
}

TEST_F(StoredInBackground, WhoeverLooksAtTheFileWaits) {
    save(6);
    EXPECT_EQ(stored->path(), path);
    EXPECT_EQ(countOnDisk(), 6);
}

TEST_F(StoredInBackground, WithoutAThreadItIsWrittenAtOnce) {
    desktop.refuses = true;
    save(7);
    EXPECT_EQ(countOnDisk(), 7);
}

TEST_F(StoredInBackground, WhatWentWrongIsSaidWhenItHasEnded) {
    std::filesystem::create_directory(path); // no file can take its place
    save(8);
    EXPECT_EQ(desktop.statusLine().text(), "");
    desktop.finishBackground();
    EXPECT_NE(desktop.statusLine().text().find("The lists were not stored"), std::string::npos)
        << desktop.statusLine().text();
}

} // namespace
} // namespace chromalog::test
