#include "files/in_child.h"
#include "prefs/data_directory.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <optional>

#include <pwd.h>

namespace chromalog {
namespace {

/// In the environment of the test alone.
class Variable {
  public:
    Variable(const char* name, const char* value) : name_(name) {
        if (const char* before = std::getenv(name)) before_ = before;
        value ? ::setenv(name, value, 1) : ::unsetenv(name);
    }
    ~Variable() { before_ ? ::setenv(name_, before_->c_str(), 1) : ::unsetenv(name_); }

  private:
    const char* name_;
    std::optional<std::string> before_;
};

TEST(DataDirectory, LiesBelowTheDataHomeOfTheEnvironment) {
    const Variable home("HOME", "/somebody");
    const Variable data("XDG_DATA_HOME", "/data");
    EXPECT_EQ(userApplicationsDirectory(), "/data/applications");
}

TEST(DataDirectory, LiesBelowTheHomeFolderOtherwise) {
    const Variable home("HOME", "/somebody/");
    for (const char* none : {static_cast<const char*>(nullptr), "", "relative"}) {
        const Variable data("XDG_DATA_HOME", none);
        EXPECT_EQ(userApplicationsDirectory(), "/somebody/.local/share/applications");
    }
}

TEST(DataDirectory, WithoutAHomeFolderTheAccountsOwnServes) {
    const passwd* account = ::getpwuid(::getuid());
    ASSERT_NE(account, nullptr);
    const Variable data("XDG_DATA_HOME", nullptr);
    for (const char* none : {static_cast<const char*>(nullptr), ""}) {
        const Variable home("HOME", none);
        EXPECT_EQ(userApplicationsDirectory(), std::string(account->pw_dir) + "/.local/share/applications");
    }
}

TEST(DataDirectory, WithoutAnAccountThereIsNone) {
    if (::getuid() != 0) GTEST_SKIP() << "needs to become somebody without an account";
    const Variable data("XDG_DATA_HOME", nullptr);
    const Variable home("HOME", nullptr);
    EXPECT_EQ(test::inChild([] {
                  constexpr uid_t nobodyKnows = 4'000'123;
                  return ::setuid(nobodyKnows) == 0 && userApplicationsDirectory().empty() ? 0 : 1;
              }),
              0);
}

} // namespace
} // namespace chromalog
