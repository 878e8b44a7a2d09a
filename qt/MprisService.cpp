#include "qt/MprisService.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QWidget>
#include <algorithm>

#include "catalogue/CatalogueEvents.h"
#include "qt/MprisAdaptors.h"
#include "qt/SessionBus.h"
#include "qt/dialogs/QtText.h"
#include "ui/CRemoteControl.h"

namespace {

const QString kPlayerInterface = QStringLiteral("org.mpris.MediaPlayer2.Player");
const QString kPlayListsInterface = QStringLiteral("org.mpris.MediaPlayer2.Playlists");
const QString kTrackPath = QStringLiteral("/org/vantrelle/track/%1");
const QString kNoTrack = QStringLiteral("/org/mpris/MediaPlayer2/TrackList/NoTrack");
const QString kPlayListPath = QStringLiteral("/org/vantrelle/playlist/%1");

// The number at the end of one of our object paths, or 0.
int IdOfPath(const QDBusObjectPath& path, const QString& pattern) {
  const QString prefix = pattern.left(pattern.indexOf(QStringLiteral("%1")));
  const QString text = path.path();
  if (!text.startsWith(prefix)) return 0;
  bool number = false;
  const int id = text.mid(prefix.size()).toInt(&number);
  return number ? id : 0;
}

MprisPlayList ToMpris(const std::pair<int, std::string>& stored) {
  return {QDBusObjectPath(kPlayListPath.arg(stored.first)), ToQString(stored.second), QString()};
}

}  // namespace

QDBusArgument& operator<<(QDBusArgument& argument, const MprisPlayList& list) {
  argument.beginStructure();
  argument << list.id << list.name << list.icon;
  argument.endStructure();
  return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, MprisPlayList& list) {
  argument.beginStructure();
  argument >> list.id >> list.name >> list.icon;
  argument.endStructure();
  return argument;
}

QDBusArgument& operator<<(QDBusArgument& argument, const MprisActivePlayList& active) {
  argument.beginStructure();
  argument << active.valid << active.playList;
  argument.endStructure();
  return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, MprisActivePlayList& active) {
  argument.beginStructure();
  argument >> active.valid >> active.playList;
  argument.endStructure();
  return argument;
}

MprisService::MprisService(CRemoteControl& remote, QWidget& window, CatalogueEvents& events)
    : remote_(remote), window_(window), events_(events) {
  qDBusRegisterMetaType<MprisPlayList>();
  qDBusRegisterMetaType<QList<MprisPlayList>>();
  qDBusRegisterMetaType<MprisActivePlayList>();
  new MprisRootAdaptor(*this);  // children of this object
  new MprisPlayerAdaptor(*this);
  playLists_ = new MprisPlayListsAdaptor(*this);
  changesToken_ = events_.Subscribe([this](const CatalogueChanges& changes) { OnCatalogueChanged(changes); });
}

MprisService::~MprisService() {
  events_.Unsubscribe(changesToken_);
  if (!registered_) return;
  QDBusConnection bus = QDBusConnection::sessionBus();
  bus.unregisterObject(QString::fromLatin1(kObjectPath));
  bus.unregisterService(QString::fromLatin1(kBusName));
}

bool MprisService::Register() {
  if (!HasSessionBusAddress()) return false;
  QDBusConnection bus = QDBusConnection::sessionBus();
  if (!bus.isConnected()) return false;
  if (!bus.registerObject(QString::fromLatin1(kObjectPath), this, QDBusConnection::ExportAdaptors)) return false;
  if (!bus.registerService(QString::fromLatin1(kBusName))) {
    bus.unregisterObject(QString::fromLatin1(kObjectPath));
    return false;
  }
  registered_ = true;
  announced_ = PlayerProperties();
  playLists_->RememberStoredLists();
  return true;
}

void MprisService::OnCatalogueChanged(const CatalogueChanges& changes) {
  if (registered_ && changes.Touches(CatalogueTable::PlayLists)) AnnouncePlayLists(playLists_->StoredListsChanged());
}

void MprisService::AnnouncePlayLists(const QVariantMap& changed) {
  if (registered_ && !changed.isEmpty()) Announce(kPlayListsInterface, changed);
}

QVariantMap MprisService::Metadata() const {
  const auto track = remote_.Track();
  if (!track) return {{QStringLiteral("mpris:trackid"), QVariant::fromValue(QDBusObjectPath(kNoTrack))}};
  QVariantMap metadata{
      {QStringLiteral("mpris:trackid"), QVariant::fromValue(QDBusObjectPath(kTrackPath.arg(track->fileId)))},
      {QStringLiteral("mpris:length"), QVariant::fromValue(static_cast<qlonglong>(track->lengthUs))},
      {QStringLiteral("xesam:title"), ToQString(track->title)},
      {QStringLiteral("xesam:album"), ToQString(track->album)},
  };
  if (!track->artist.empty()) metadata[QStringLiteral("xesam:artist")] = QStringList{ToQString(track->artist)};
  if (!track->url.empty()) metadata[QStringLiteral("xesam:url")] = ToQString(track->url);
  return metadata;
}

// What a change announces; the position is read when asked, as is usual.
QVariantMap MprisService::PlayerProperties() const {
  return {{QStringLiteral("PlaybackStatus"), ToQString(remote_.PlaybackStatus())},
          {QStringLiteral("Metadata"), Metadata()},
          {QStringLiteral("Volume"), remote_.Volume()},
          {QStringLiteral("CanGoNext"), remote_.CanGoNext()},
          {QStringLiteral("CanGoPrevious"), remote_.CanGoPrevious()},
          {QStringLiteral("CanSeek"), remote_.CanSeek()},
          {QStringLiteral("Shuffle"), remote_.Shuffle()},
          {QStringLiteral("LoopStatus"), ToQString(remote_.LoopStatus())}};
}

void MprisService::AnnounceChanges() {
  if (!registered_) return;
  const QVariantMap now = PlayerProperties();
  QVariantMap changed;
  for (auto it = now.begin(); it != now.end(); ++it)
    if (announced_.value(it.key()) != it.value()) changed.insert(it.key(), it.value());
  announced_ = now;
  if (!changed.isEmpty()) Announce(kPlayerInterface, changed);
}

void MprisService::Announce(const QString& interface, const QVariantMap& changed) {
  QDBusMessage signal =
      QDBusMessage::createSignal(QString::fromLatin1(kObjectPath), QStringLiteral("org.freedesktop.DBus.Properties"),
                                 QStringLiteral("PropertiesChanged"));
  signal << interface << changed << QStringList();
  QDBusConnection::sessionBus().send(signal);
}

MprisRootAdaptor::MprisRootAdaptor(MprisService& service) : QDBusAbstractAdaptor(&service), service_(service) {}

// Called over D-Bus, by the slot's name.
// cppcheck-suppress unusedFunction
void MprisRootAdaptor::Raise() {
  QWidget& window = service_.Window();
  window.setWindowState(window.windowState() & ~Qt::WindowMinimized);
  service_.Window().show();
  service_.Window().raise();
  service_.Window().activateWindow();
}

// cppcheck-suppress unusedFunction
void MprisRootAdaptor::Quit() { service_.Window().close(); }

MprisPlayerAdaptor::MprisPlayerAdaptor(MprisService& service) : QDBusAbstractAdaptor(&service), service_(service) {}

QString MprisPlayerAdaptor::PlaybackStatus() const { return ToQString(service_.Remote().PlaybackStatus()); }
qlonglong MprisPlayerAdaptor::Position() const { return service_.Remote().PositionUs(); }
double MprisPlayerAdaptor::Volume() const { return service_.Remote().Volume(); }
bool MprisPlayerAdaptor::CanGoNext() const { return service_.Remote().CanGoNext(); }
bool MprisPlayerAdaptor::CanGoPrevious() const { return service_.Remote().CanGoPrevious(); }
bool MprisPlayerAdaptor::CanSeek() const { return service_.Remote().CanSeek(); }
bool MprisPlayerAdaptor::Shuffle() const { return service_.Remote().Shuffle(); }
QString MprisPlayerAdaptor::LoopStatus() const { return ToQString(service_.Remote().LoopStatus()); }

// A property set over the bus is announced at once, not at the next poll.
void MprisPlayerAdaptor::SetVolume(double volume) {
  service_.Remote().SetVolume(volume);
  service_.AnnounceChanges();
}

void MprisPlayerAdaptor::SetShuffle(bool shuffle) {
  service_.Remote().SetShuffle(shuffle);
  service_.AnnounceChanges();
}

void MprisPlayerAdaptor::SetLoopStatus(const QString& status) {
  service_.Remote().SetLoopStatus(status.toStdString());
  service_.AnnounceChanges();
}

void MprisPlayerAdaptor::Play() { service_.Remote().Play(); }
void MprisPlayerAdaptor::Pause() { service_.Remote().Pause(); }
void MprisPlayerAdaptor::PlayPause() { service_.Remote().PlayPause(); }
void MprisPlayerAdaptor::Stop() { service_.Remote().Stop(); }
void MprisPlayerAdaptor::Next() { service_.Remote().Next(); }
void MprisPlayerAdaptor::Previous() { service_.Remote().Previous(); }

// Seeked only for a move within the file: not for a call that was ignored,
// nor for a seek past the end, which went on to the next row.
void MprisPlayerAdaptor::Seek(qlonglong offset) {
  if (const auto position = service_.Remote().Seek(offset)) emit Seeked(*position);
}

void MprisPlayerAdaptor::SetPosition(const QDBusObjectPath& trackId, qlonglong position) {
  if (const auto moved = service_.Remote().SetPosition(IdOfPath(trackId, kTrackPath), position)) emit Seeked(*moved);
}

MprisPlayListsAdaptor::MprisPlayListsAdaptor(MprisService& service)
    : QDBusAbstractAdaptor(&service), service_(service) {}

// Read over D-Bus, by the property's name.
// cppcheck-suppress unusedFunction
uint MprisPlayListsAdaptor::PlaylistCount() const { return static_cast<uint>(service_.Remote().PlayLists().size()); }

// Called over D-Bus, by the slot's name.
// cppcheck-suppress unusedFunction
void MprisPlayListsAdaptor::ActivatePlaylist(const QDBusObjectPath& playListId) {
  const int id = IdOfPath(playListId, kPlayListPath);
  if (!service_.Remote().ActivatePlayList(id)) return;
  for (const auto& stored : service_.Remote().PlayLists())
    if (stored.first == id) active_ = {true, ToMpris(stored)};
  service_.AnnouncePlayLists({{QStringLiteral("ActivePlaylist"), QVariant::fromValue(active_)}});
}

void MprisPlayListsAdaptor::RememberStoredLists() { known_ = service_.Remote().PlayLists(); }

QVariantMap MprisPlayListsAdaptor::StoredListsChanged() {
  const auto stored = service_.Remote().PlayLists();
  for (const auto& list : stored)
    if (std::find(known_.begin(), known_.end(), list) == known_.end()) emit PlaylistChanged(ToMpris(list));
  QVariantMap changed;
  if (stored.size() != known_.size()) changed.insert(QStringLiteral("PlaylistCount"), PlaylistCount());
  known_ = stored;
  if (FollowActive()) changed.insert(QStringLiteral("ActivePlaylist"), QVariant::fromValue(active_));
  return changed;
}

// The active play list removed is active no more; renamed, it has its new name.
bool MprisPlayListsAdaptor::FollowActive() {
  if (!active_.valid) return false;
  const int id = IdOfPath(active_.playList.id, kPlayListPath);
  const auto now = std::find_if(known_.begin(), known_.end(), [id](const auto& list) { return list.first == id; });
  const MprisActivePlayList followed =
      now == known_.end() ? MprisActivePlayList{} : MprisActivePlayList{true, ToMpris(*now)};
  if (followed.playList.name == active_.playList.name && followed.valid) return false;
  active_ = followed;
  return true;
}

// cppcheck-suppress unusedFunction
QList<MprisPlayList> MprisPlayListsAdaptor::GetPlaylists(uint index, uint maxCount, const QString&, bool reverseOrder) {
  auto stored = service_.Remote().PlayLists();
  if (reverseOrder) std::reverse(stored.begin(), stored.end());
  QList<MprisPlayList> lists;
  for (std::size_t i = index; i < stored.size() && static_cast<uint>(lists.size()) < maxCount; ++i)
    lists.push_back(ToMpris(stored[i]));
  return lists;
}
