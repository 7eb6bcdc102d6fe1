#include "qt/screen/portal_colour.h"

#include "qt/mishap.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <QFile>
#include <QRandomGenerator>
#include <QTimer>
#include <QUrl>

#include <cmath>

namespace chromalog {

namespace {

constexpr const char* kService = "org.freedesktop.portal.Desktop";
constexpr const char* kPath = "/org/freedesktop/portal/desktop";
constexpr const char* kScreenshot = "org.freedesktop.portal.Screenshot";
constexpr const char* kRequest = "org.freedesktop.portal.Request";
constexpr uint kFirstVersionThatPicks = 2;

/// Empty where no bus is said to be: the library would start one.
QString sessionBus() {
    QString named = qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS");
    const QString socket = qEnvironmentVariable("XDG_RUNTIME_DIR") + "/bus";
    if (!named.isEmpty() || !QFile::exists(socket)) return named;
    return "unix:path=" + QString::fromLatin1(QUrl::toPercentEncoding(socket, "/"));
}

/// The three numbers of a colour; nothing where the answer has another form.
std::optional<Colour> colourIn(const QVariantMap& results) {
    const QVariant value = results.value("color");
    if (value.metaType() != QMetaType::fromType<QDBusArgument>()) return std::nullopt;
    const auto argument = value.value<QDBusArgument>();
    if (argument.currentSignature() != "(ddd)") return std::nullopt;
    double red = 0, green = 0, blue = 0;
    argument.beginStructure();
    argument >> red >> green >> blue;
    argument.endStructure();
    if (!std::isfinite(red) || !std::isfinite(green) || !std::isfinite(blue)) return std::nullopt;
    return Colour::rgb(red, green, blue);
}

} // namespace

/// One request on a connection of its own, so that nothing of it stays with the host.
class PortalColour::Request : public QObject {
    Q_OBJECT
  public:
    Request(QString parent, Answer answer, std::chrono::milliseconds patience)
        : parent_(std::move(parent)), answer_(std::move(answer)), patience_(patience),
          token_("chromalog" + QString::number(QRandomGenerator::global()->generate64())), bus_(token_) {
        const QString address = sessionBus();
        if (!address.isEmpty()) bus_ = QDBusConnection::connectToBus(address, token_);
        bus_.isConnected() ? askForVersion() : end(End::failed);
    }
    ~Request() override {
        if (!begun_.isEmpty()) bus_.send(QDBusMessage::createMethodCall(kService, begun_, kRequest, "Close"));
        bus_ = QDBusConnection(QString());
        QDBusConnection::disconnectFromBus(token_);
    }

  private Q_SLOTS:
    void response(uint code, const QVariantMap& results) {
        guarded([&] {
            begun_.clear(); // closed by the portal
            const auto colour = code == 0 ? colourIn(results) : std::nullopt;
            end(colour ? End::picked : code == 1 ? End::takenBack : End::failed, colour);
        });
    }

  private:
    template <typename Then> void call(const QDBusMessage& message, Then then) {
        auto* watcher = new QDBusPendingCallWatcher(bus_.asyncCall(message, int(patience_.count())), this);
        connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher, then] {
            watcher->deleteLater();
            guarded([&] { then(*watcher); });
        });
    }

    void askForVersion() {
        auto message =
            QDBusMessage::createMethodCall(kService, kPath, "org.freedesktop.DBus.Properties", "Get");
        message << QString(kScreenshot) << QString("version");
        call(message, [this](const QDBusPendingCall& answered) {
            const QDBusPendingReply<QDBusVariant> version = answered;
            if (version.isError() || version.value().variant().toUInt() < kFirstVersionThatPicks)
                return end(End::failed);
            begin();
        });
    }

    /// Listens before it asks: the answer may come as soon as the question is there.
    void begin() {
        QString sender = bus_.baseService().mid(1);
        listen(QString("%1/request/%2/%3").arg(kPath, sender.replace('.', '_'), token_));
        auto message = QDBusMessage::createMethodCall(kService, kPath, kScreenshot, "PickColor");
        message << parent_ << QVariantMap{{"handle_token", token_}};
        call(message, [this](const QDBusPendingCall& answered) {
            const QDBusPendingReply<QDBusObjectPath> handle = answered;
            if (handle.isError()) return end(End::failed);
            if (handle.value().path() != begun_) listen(handle.value().path()); // of an older portal
        });
    }

    void listen(const QString& path) {
        if (!answer_) return;
        begun_ = path;
        bus_.connect(kService, path, kRequest, "Response", this, SLOT(response(uint, QVariantMap)));
    }

    /// From the event loop: the caller may be in the middle of making this object, or destroy it.
    void end(End how, std::optional<Colour> colour = std::nullopt) {
        if (!answer_) return;
        QTimer::singleShot(0, this, [answer = std::exchange(answer_, {}), how, colour] {
            guarded([&] { answer(how, colour); });
        });
    }

    const QString parent_;
    Answer answer_; ///< empty once it is on its way
    const std::chrono::milliseconds patience_;
    const QString token_; ///< names the connection and the request
    QDBusConnection bus_;
    QString begun_; ///< the request's path while it is open
};

PortalColour::PortalColour(const QString& parent, Answer answer, std::chrono::milliseconds patience)
    : request_(std::make_unique<Request>(parent, std::move(answer), patience)) {}

PortalColour::~PortalColour() = default;

} // namespace chromalog

#include <portal_colour.moc> // made of this file, which other systems do not build
