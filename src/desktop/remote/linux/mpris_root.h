// The D-Bus interface org.mpris.MediaPlayer2: the program as a whole. Its names and types are those of MPRIS.
#pragma once

#include <QDBusAbstractAdaptor>
#include <QStringList>

#include "desktop/remote/remote_control.h"

namespace plimo {

class MprisRoot : public QDBusAbstractAdaptor {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "org.mpris.MediaPlayer2")
  Q_PROPERTY(bool CanQuit READ yes)
  Q_PROPERTY(bool CanRaise READ yes)
  Q_PROPERTY(bool HasTrackList READ no)
  Q_PROPERTY(QString Identity READ identity)
  Q_PROPERTY(QString DesktopEntry READ desktopEntry)
  Q_PROPERTY(QStringList SupportedUriSchemes READ uriSchemes)
  Q_PROPERTY(QStringList SupportedMimeTypes READ mimeTypes)

 public:
  // The object becomes the owner.
  MprisRoot(const RemoteHost& host, QObject* object);

  bool yes() const { return true; }
  bool no() const { return false; }
  QString identity() const;
  QString desktopEntry() const;
  QStringList uriSchemes() const;
  QStringList mimeTypes() const;

 public Q_SLOTS:
  void Raise();
  void Quit();

 private:
  RemoteHost host_;
};

}  // namespace plimo
