#pragma once
// The three interfaces of the media-player remote object, each forwarding to
// MprisService's remote control. User-interface thread only.

#include <QDBusAbstractAdaptor>
#include <QDBusObjectPath>
#include <QList>
#include <QStringList>
#include <QVariantMap>
#include <string>
#include <utility>
#include <vector>

#include "qt/MprisService.h"

class MprisRootAdaptor final : public QDBusAbstractAdaptor {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "org.mpris.MediaPlayer2")
  Q_PROPERTY(QString Identity READ Identity)
  Q_PROPERTY(QString DesktopEntry READ DesktopEntry)
  Q_PROPERTY(bool CanQuit READ CanQuit)
  Q_PROPERTY(bool CanRaise READ CanRaise)
  Q_PROPERTY(bool HasTrackList READ HasTrackList)
  Q_PROPERTY(QStringList SupportedUriSchemes READ SupportedUriSchemes)
  Q_PROPERTY(QStringList SupportedMimeTypes READ SupportedMimeTypes)

 public:
  explicit MprisRootAdaptor(MprisService& service);
  QString Identity() const { return QStringLiteral("Vantrelle"); }
  QString DesktopEntry() const { return QStringLiteral("org.vantrelle.Vantrelle"); }
  bool CanQuit() const { return true; }
  bool CanRaise() const { return true; }
  bool HasTrackList() const { return false; }
  QStringList SupportedUriSchemes() const { return {}; }
  QStringList SupportedMimeTypes() const { return {}; }

 public slots:
  void Raise();
  void Quit();

 private:
  MprisService& service_;
};

class MprisPlayerAdaptor final : public QDBusAbstractAdaptor {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "org.mpris.MediaPlayer2.Player")
  Q_PROPERTY(QString PlaybackStatus READ PlaybackStatus)
  Q_PROPERTY(QVariantMap Metadata READ Metadata)
  Q_PROPERTY(qlonglong Position READ Position)
  Q_PROPERTY(double Volume READ Volume WRITE SetVolume)
  Q_PROPERTY(double Rate READ Rate WRITE SetRate)
  Q_PROPERTY(double MinimumRate READ Rate)
  Q_PROPERTY(double MaximumRate READ Rate)
  Q_PROPERTY(bool CanGoNext READ CanGoNext)
  Q_PROPERTY(bool CanGoPrevious READ CanGoPrevious)
  Q_PROPERTY(bool CanPlay READ CanControl)
  Q_PROPERTY(bool CanPause READ CanControl)
  Q_PROPERTY(bool CanSeek READ CanSeek)
  Q_PROPERTY(bool Shuffle READ Shuffle WRITE SetShuffle)
  Q_PROPERTY(QString LoopStatus READ LoopStatus WRITE SetLoopStatus)
  Q_PROPERTY(bool CanControl READ CanControl)

 public:
  explicit MprisPlayerAdaptor(MprisService& service);
  QString PlaybackStatus() const;
  QVariantMap Metadata() const { return service_.Metadata(); }
  qlonglong Position() const;
  double Volume() const;
  void SetVolume(double volume);
  double Rate() const { return 1.0; }
  void SetRate(double) {}  // one rate only
  bool CanGoNext() const;
  bool CanGoPrevious() const;
  bool CanSeek() const;
  bool CanControl() const { return true; }
  bool Shuffle() const;
  void SetShuffle(bool shuffle);
  // "None", "Track" or "Playlist"; anything else is ignored.
  QString LoopStatus() const;
  void SetLoopStatus(const QString& status);

 public slots:
  void Play();
  void Pause();
  void PlayPause();
  void Stop();
  void Next();
  void Previous();
  void Seek(qlonglong offset);
  void SetPosition(const QDBusObjectPath& trackId, qlonglong position);
  void OpenUri(const QString&) {}  // the catalogue plays catalogued files only

 signals:
  void Seeked(qlonglong position);

 private:
  MprisService& service_;
};

class MprisPlayListsAdaptor final : public QDBusAbstractAdaptor {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "org.mpris.MediaPlayer2.Playlists")
  Q_PROPERTY(uint PlaylistCount READ PlaylistCount)
  Q_PROPERTY(QStringList Orderings READ Orderings)
  Q_PROPERTY(MprisActivePlayList ActivePlaylist READ ActivePlaylist)

 public:
  explicit MprisPlayListsAdaptor(MprisService& service);
  uint PlaylistCount() const;
  QStringList Orderings() const { return {QStringLiteral("UserDefined")}; }
  MprisActivePlayList ActivePlaylist() const { return active_; }

  // Takes the stored play lists as they are now, before any change is announced.
  void RememberStoredLists();
  // The stored play lists changed: PlaylistChanged for each one added or
  // renamed; returns the properties that changed with them.
  QVariantMap StoredListsChanged();

 public slots:
  void ActivatePlaylist(const QDBusObjectPath& playListId);
  QList<MprisPlayList> GetPlaylists(uint index, uint maxCount, const QString& order, bool reverseOrder);

 signals:
  void PlaylistChanged(MprisPlayList playList);

 private:
  bool FollowActive();

  MprisService& service_;
  MprisActivePlayList active_;
  std::vector<std::pair<int, std::string>> known_;  // the stored play lists as last announced
};
