#include "desktop/remote/linux/mpris_root.h"

#include "app/program.h"

namespace plimo {

MprisRoot::MprisRoot(const RemoteHost& host, QObject* object) : QDBusAbstractAdaptor(object), host_(host) {}

QString MprisRoot::identity() const { return QString::fromUtf8(programName); }

// The name of the program's menu entry, without its extension.
QString MprisRoot::desktopEntry() const { return QStringLiteral("plimo"); }

QStringList MprisRoot::uriSchemes() const { return {QStringLiteral("file")}; }

// Those of the menu entry, and songs, which are opened on request of other programs only.
QStringList MprisRoot::mimeTypes() const {
  return {QStringLiteral("audio/mpeg"), QStringLiteral("audio/x-mpegurl"), QStringLiteral("audio/mpegurl"),
          QStringLiteral("application/x-mpegurl"), QStringLiteral("application/vnd.apple.mpegurl")};
}

void MprisRoot::Raise() { host_.raise(); }

void MprisRoot::Quit() { host_.quit(); }

}  // namespace plimo
