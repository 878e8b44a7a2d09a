#pragma once
// The player on the session bus under the media-player remote interfaces, so
// that media keys, the desktop's sound menu, widgets and command-line remotes
// drive it: bus name org.mpris.MediaPlayer2.vantrelle, object
// /org/mpris/MediaPlayer2, with the root, Player and Playlists interfaces.
// What they ask is forwarded to CRemoteControl; changes of the Player are
// announced with PropertiesChanged after each status the main window polled
// and after each property set over the bus, those of the stored play lists
// when the catalogue change event says the PlayLists table changed.
// User-interface thread only.

#include <QDBusArgument>
#include <QDBusObjectPath>
#include <QObject>
#include <QStringList>
#include <QVariantMap>

class CatalogueChanges;
class CatalogueEvents;
class CRemoteControl;
class MprisPlayListsAdaptor;
class QWidget;

// One entry of GetPlaylists: (oss) id, name, icon. The id is a valid object
// path even for "no play list" ("/"): an empty one cannot be sent.
struct MprisPlayList {
  QDBusObjectPath id{QStringLiteral("/")};
  QString name;
  QString icon;
};
// ActivePlaylist: (b(oss)) whether there is one, and which.
struct MprisActivePlayList {
  bool valid = false;
  MprisPlayList playList;
};
Q_DECLARE_METATYPE(MprisPlayList)
Q_DECLARE_METATYPE(MprisActivePlayList)

QDBusArgument& operator<<(QDBusArgument& argument, const MprisPlayList& list);
const QDBusArgument& operator>>(const QDBusArgument& argument, MprisPlayList& list);
QDBusArgument& operator<<(QDBusArgument& argument, const MprisActivePlayList& active);
const QDBusArgument& operator>>(const QDBusArgument& argument, MprisActivePlayList& active);

class MprisService final : public QObject {
  Q_OBJECT
 public:
  static constexpr const char* kBusName = "org.mpris.MediaPlayer2.vantrelle";
  static constexpr const char* kObjectPath = "/org/mpris/MediaPlayer2";

  // window is raised by Raise and closed by Quit; events is the catalogue's.
  MprisService(CRemoteControl& remote, QWidget& window, CatalogueEvents& events);
  ~MprisService() override;

  // Takes the bus name and exports the object; false, quietly, when there is
  // no session bus or the name is held by another program. Without a bus
  // address (see SessionBus.h) the bus is never touched, so none is started.
  bool Register();
  // Announces the Player properties that changed since the last call.
  void AnnounceChanges();
  void AnnouncePlayLists(const QVariantMap& changed);

  CRemoteControl& Remote() const { return remote_; }
  QWidget& Window() const { return window_; }
  QVariantMap Metadata() const;

 private:
  QVariantMap PlayerProperties() const;
  void Announce(const QString& interface, const QVariantMap& changed);
  void OnCatalogueChanged(const CatalogueChanges& changes);

  CRemoteControl& remote_;
  QWidget& window_;
  CatalogueEvents& events_;
  int changesToken_ = 0;
  MprisPlayListsAdaptor* playLists_;  // a child of this object
  bool registered_ = false;
  QVariantMap announced_;  // the Player properties as last announced
};
