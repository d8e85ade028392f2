// The remote control of Linux desktops: an object on the session bus, as MPRIS describes it.
#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QFileInfo>
#include <QObject>

#include "desktop/remote/linux/mpris_player.h"
#include "desktop/remote/linux/mpris_root.h"

namespace plimo {

namespace {

QString busName() { return QStringLiteral("org.mpris.MediaPlayer2.plimo"); }
QString objectPath() { return QStringLiteral("/org/mpris/MediaPlayer2"); }

// Without one, the library would start a bus of its own.
bool hasSessionBus() {
  if (!qEnvironmentVariableIsEmpty("DBUS_SESSION_BUS_ADDRESS")) return true;
  const QString folder = qEnvironmentVariable("XDG_RUNTIME_DIR");
  return !folder.isEmpty() && QFileInfo::exists(folder + QStringLiteral("/bus"));
}

class MprisService : public RemoteControl {
 public:
  explicit MprisService(const RemoteHost& host) : bus_(QDBusConnection::sessionBus()) {
    new MprisRoot(host, &object_);
    new MprisPlayer(host, objectPath(), &object_);
    if (!bus_.registerObject(objectPath(), &object_)) return;
    requestName(busName(), [this] {
      const QString pid = QString::number(QCoreApplication::applicationPid());
      requestName(busName() + QStringLiteral(".instance") + pid, [] {});
    });
  }

  ~MprisService() override {
    bus_.unregisterObject(objectPath());
    if (!name_.isEmpty()) call(QStringLiteral("ReleaseName"), {name_});
  }

 private:
  QDBusPendingCall call(const QString& method, const QVariantList& arguments) {
    const QString bus = QStringLiteral("org.freedesktop.DBus");
    QDBusMessage message = QDBusMessage::createMethodCall(bus, QStringLiteral("/org/freedesktop/DBus"), bus, method);
    message.setArguments(arguments);
    return bus_.asyncCall(message);
  }

  // Asks the bus for a name without waiting, since a bus may be slow to answer.
  void requestName(const QString& name, std::function<void()> taken) {
    constexpr uint doNotQueue = 4;
    constexpr uint primaryOwner = 1;
    constexpr uint alreadyOwner = 4;
    auto* watcher = new QDBusPendingCallWatcher(call(QStringLiteral("RequestName"), {name, doNotQueue}), &object_);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, &object_,
                     [this, watcher, name, taken = std::move(taken)] {
                       watcher->deleteLater();
                       const QDBusPendingReply<uint> reply = *watcher;
                       if (reply.isError()) return;
                       if (reply.value() == primaryOwner || reply.value() == alreadyOwner) {
                         name_ = name;
                       } else {
                         taken();
                       }
                     });
  }

  QDBusConnection bus_;
  QString name_;    // on the bus; empty if there is none yet
  QObject object_;  // it and its adaptors, which are its children, are what the bus sees
};

}  // namespace

std::unique_ptr<RemoteControl> startRemoteControl(const RemoteHost& host) {
  if (!hasSessionBus() || !QDBusConnection::sessionBus().isConnected()) return nullptr;
  return std::make_unique<MprisService>(host);
}

}  // namespace plimo
