// The desktop's own picker, played by a portal of this test on a message bus of its own.
#include "qt/screen/portal_colour.h"

#include "support/started_program.h"
#include "support/temporary_folder.h"

#include <QCoreApplication>
#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusVariant>
#include <QDBusVirtualObject>
#include <QTest>

#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <cstdlib>
#include <fstream>

namespace chromalog::test {
namespace {

using End = PortalColour::End;
using Numbers = std::vector<double>;

constexpr std::chrono::milliseconds kPatience{150};

QVariant structOf(const Numbers& numbers) {
    QDBusArgument structure;
    structure.beginStructure();
    for (const double number : numbers)
        structure << number;
    structure.endStructure();
    return QVariant::fromValue(structure);
}

QVariantMap coloured(const Numbers& numbers) {
    return {{"color", structOf(numbers)}};
}

/// Answers what the test has set, and remembers what it was asked.
class FakePortal : public QDBusVirtualObject {
  public:
    std::optional<uint> version = 2; ///< none: silent
    bool begins = true;              ///< else silent when a colour is asked for
    bool refuses = false;
    QString otherPath; ///< of the request, as older portals make it up
    uint code = 0;
    std::optional<QVariantMap> results = coloured({0.1, 0.2, 0.3}); ///< none: the person takes long

    QStringList asked;
    QString parent, request;

    QString introspect(const QString&) const override { return {}; }
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& bus) override {
        asked.append(message.member());
        if (message.member() == "Get") {
            EXPECT_EQ(message.arguments(), (QVariantList{"org.freedesktop.portal.Screenshot", "version"}));
            if (version)
                bus.send(
                    message.createReply(QVariant::fromValue(QDBusVariant(QVariant::fromValue(*version)))));
        } else if (message.member() == "PickColor") {
            pickColor(message, bus);
        } else {
            bus.send(message.createReply());
        }
        return true;
    }
    void respond(const QDBusConnection& bus) const {
        auto signal = QDBusMessage::createSignal(request, "org.freedesktop.portal.Request", "Response");
        signal << code << results.value_or(coloured({0.4, 0.5, 0.6}));
        bus.send(signal);
    }

  private:
    /// The answer goes out before the call's own reply: nobody may miss it.
    void pickColor(const QDBusMessage& message, const QDBusConnection& bus) {
        EXPECT_EQ(message.signature(), "sa{sv}");
        parent = message.arguments().value(0).toString();
        const auto options = qdbus_cast<QVariantMap>(message.arguments().value(1));
        const QString sender = message.service().mid(1).replace('.', '_');
        request = "/org/freedesktop/portal/desktop/request/" + sender + '/' +
                  options.value("handle_token").toString();
        if (!otherPath.isEmpty()) request = otherPath;
        if (refuses) return void(bus.send(message.createErrorReply(QDBusError::AccessDenied, "no")));
        if (results && otherPath.isEmpty()) respond(bus);
        if (begins) bus.send(message.createReply(QVariant::fromValue(QDBusObjectPath(request))));
    }
};

class Portal : public testing::Test {
  protected:
    Portal() {
        std::ofstream(folder / "bus.conf")
            << "<busconfig><type>session</type><listen>unix:path=" << folder / "bus"
            << "</listen><policy context=\"default\"><allow send_destination=\"*\" eavesdrop=\"true\"/>"
               "<allow eavesdrop=\"true\"/><allow own=\"*\"/></policy></busconfig>";
        const QString address = QString::fromStdString("unix:path=" + (folder / "bus"));
        setenv("DBUS_SESSION_BUS_ADDRESS", address.toLocal8Bit().constData(), 1);
        const std::string quietly = "exec dbus-daemon --nofork --config-file '" + folder / "bus.conf";
        daemon.emplace(std::vector<std::string>{"sh", "-c", quietly + "' 2>/dev/null"},
                       std::map<std::string, std::string>{});
        for (int tries = 0; tries < 1000 && daemon->runs() && !bus.isConnected(); ++tries) {
            QTest::qWait(2);
            name = "fake portal " + QString::number(tries);
            bus = QDBusConnection::connectToBus(address, name);
        }
    }
    ~Portal() override { QDBusConnection::disconnectFromBus(name); }
    void SetUp() override {
        if (!daemon->runs()) GTEST_SKIP() << "needs dbus-daemon";
        ASSERT_TRUE(bus.isConnected());
        ASSERT_TRUE(
            bus.registerVirtualObject("/org/freedesktop/portal/desktop", &fake, QDBusConnection::SubPath));
        ASSERT_TRUE(bus.registerService("org.freedesktop.portal.Desktop"));
    }

    void begin() {
        pick.emplace(
            "x11:2a", [this](End how, std::optional<Colour> c) { ends.push_back(how), colour = c; },
            kPatience);
    }
    bool answered() {
        return QTest::qWaitFor([this] { return !ends.empty(); }, 5000);
    }
    void expectOnce(End how) {
        begin();
        ASSERT_TRUE(answered());
        EXPECT_EQ(ends, std::vector{how});
        EXPECT_EQ(colour.has_value(), how == End::picked);
    }
    bool waitFor(const char* call) {
        return QTest::qWaitFor([&] { return fake.asked.contains(call); }, 5000);
    }

    int argc = 1;
    char program[5] = "test";
    char* argv[2] = {program, nullptr};
    QCoreApplication application{argc, argv};
    TemporaryFolder folder;
    std::optional<StartedProgram> daemon;
    QString name; ///< of the connection
    QDBusConnection bus{QString()};
    FakePortal fake;
    std::optional<PortalColour> pick;
    std::vector<End> ends;
    std::optional<Colour> colour;
};

TEST_F(Portal, GivesItsColourExactly) {
    expectOnce(End::picked);
    EXPECT_EQ(colour->red(), 0.1);
    EXPECT_EQ(colour->green(), 0.2);
    EXPECT_EQ(colour->blue(), 0.3);
    EXPECT_EQ(colour->alpha(), 1.0);
    EXPECT_EQ(fake.parent, "x11:2a");
    EXPECT_EQ(fake.asked, (QStringList{"Get", "PickColor"}));
}

TEST_F(Portal, OfAnOlderKindMakesUpThePathOfItsAnswer) {
    fake.otherPath = "/org/freedesktop/portal/desktop/request/older";
    begin();
    ASSERT_TRUE(waitFor("PickColor"));
    QTest::qWait(30); // the reply with the path has come
    fake.respond(bus);
    ASSERT_TRUE(answered());
    EXPECT_EQ(ends, std::vector{End::picked});
}

TEST_F(Portal, OfVersion1IsAskedForNoColour) {
    fake.version = 1;
    expectOnce(End::failed);
    EXPECT_EQ(fake.asked, QStringList{"Get"});
}

TEST_F(Portal, ThatIsSilentIsWaitedForNoLongerThanSaid) {
    for (const bool silentAtOnce : {true, false}) {
        fake.version = silentAtOnce ? std::nullopt : std::optional<uint>(2);
        fake.begins = false;
        fake.results.reset();
        const auto from = std::chrono::steady_clock::now();
        ends.clear();
        expectOnce(End::failed);
        const auto took = std::chrono::steady_clock::now() - from;
        EXPECT_GE(took, kPatience);
        EXPECT_LT(took, kPatience * 10);
    }
    pick.reset();
    EXPECT_TRUE(waitFor("Close"));
    fake.respond(bus);
    QTest::qWait(30);
    EXPECT_EQ(ends.size(), 1u) << "an answer that comes later is none";
}

TEST_F(Portal, TellsThatThePersonHasTakenItBack) {
    fake.code = 1;
    expectOnce(End::takenBack);
}

TEST_F(Portal, FailsByItsOwnWord) {
    fake.code = 2;
    expectOnce(End::failed);
}

TEST_F(Portal, ThatRefusesFails) {
    fake.refuses = true;
    expectOnce(End::failed);
}

TEST_F(Portal, WhoseAnswerIsNoColourFails) {
    for (const QVariantMap& results :
         {QVariantMap(), QVariantMap{{"color", "#102030"}}, QVariantMap{{"color", 0.5}}, coloured({0.1, 0.2}),
          coloured({0.1, 0.2, 0.3, 0.4}), coloured({0.1, std::nan(""), 0.3}),
          QVariantMap{{"color", QVariant::fromValue(QVariantList{0.1, 0.2, 0.3})}}}) {
        fake.results = results;
        ends.clear();
        expectOnce(End::failed);
    }
}

TEST_F(Portal, WhoseNumbersLieOutsideGivesTheNearestOnes) {
    fake.results = coloured({-0.25, 1.5, 1});
    expectOnce(End::picked);
    EXPECT_EQ(colour->red(), 0);
    EXPECT_EQ(colour->green(), 1);
}

TEST_F(Portal, IsToldOfTheEndOfThePickAndAnswersNothingAnyMore) {
    fake.results.reset();
    begin();
    ASSERT_TRUE(waitFor("PickColor"));
    QTest::qWait(int(kPatience.count()) * 2);
    EXPECT_TRUE(ends.empty()) << "the person takes any time";
    pick.reset();
    EXPECT_TRUE(waitFor("Close"));
    fake.respond(bus);
    QTest::qWait(30);
    EXPECT_TRUE(ends.empty());
}

TEST_F(Portal, ThatIsNotThereFailsAtOnce) {
    bus.unregisterService("org.freedesktop.portal.Desktop");
    expectOnce(End::failed);
    for (const char* address : {"unix:path=/there/is/none", "", "no address"}) {
        setenv("DBUS_SESSION_BUS_ADDRESS", address, 1);
        setenv("XDG_RUNTIME_DIR", folder.path().c_str(), 1);
        std::rename((folder / "bus").c_str(), (folder / "elsewhere").c_str());
        ends.clear();
        expectOnce(End::failed);
    }
}

TEST_F(Portal, IsFoundByTheRuntimeFolderToo) {
    unsetenv("DBUS_SESSION_BUS_ADDRESS");
    setenv("XDG_RUNTIME_DIR", folder.path().c_str(), 1);
    expectOnce(End::picked);
}

} // namespace
} // namespace chromalog::test
