#include "benchmarks/BenchLibrary.h"

#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <stdexcept>

namespace fs = std::filesystem;

namespace bench {
namespace {

constexpr int kTracksPerAlbum = 10;
constexpr int kAlbumsPerArtist = 10;
// Hard links per source file stay far below ext4's limit of 65,000.
constexpr int kTracksPerSourceCopy = 10000;

// Seven MP3s in ten (one with an upper-case ending), one Ogg, one upper-case
// WMA: every track is one the tag phase reads.
constexpr const char* kAlbumPattern[kTracksPerAlbum] = {
    "id3v2.mp3", "id3v1.mp3",  "id3v2.mp3", "ape.mp3",  "SONG.MP3",
    "id3v2.mp3", "vorbis.ogg", "id3v1.mp3", "LOUD.WMA", "id3v2.mp3",
};
constexpr const char* kBonusFixture = "id3v2.mp3";

// Files dropped by the change: the fifth track of every tenth album.
constexpr int kRemovedTrack = 4;
bool LosesTrack(int album) { return album % 10 == 3; }
// Albums that gain a bonus track: every twentieth.
bool GainsTrack(int album) { return album % 20 == 7; }

std::string Ending(const char* fixture) { return std::strrchr(fixture, '.'); }

std::string AlbumFolder(int artist, const char* albumFormat, int album) {
  char text[64];
  std::snprintf(text, sizeof text, "Artist%04d/", artist);
  std::string folder = text;
  std::snprintf(text, sizeof text, albumFormat, album);
  return folder + text + "/";
}

std::string TrackName(int number, const char* title, const char* fixture) {
  char text[32];
  std::snprintf(text, sizeof text, "%02d %s", number, title);
  return text + Ending(fixture);
}

std::string ToDrivePath(const std::string& folder, const std::string& name) {
  std::string path = std::string(BenchLibrary::kScanRoot) + folder + name;
  for (char& c : path)
    if (c == '/') c = '\\';
  return path;
}

}  // namespace

BenchLibrary::BenchLibrary(std::string folder, std::string fixtures, int files)
    : folder_(std::move(folder)),
      fixtures_(std::move(fixtures)),
      files_(files),
      albums_((files + kTracksPerAlbum - 1) / kTracksPerAlbum) {
  for (int album = 0; album < albums_; ++album) {
    const int tracks = std::min(kTracksPerAlbum, files_ - album * kTracksPerAlbum);
    if (LosesTrack(album) && tracks > kRemovedTrack) ++removed_;
    if (GainsTrack(album)) ++addedExisting_;
  }
  // As many files come as go; the ones not given to existing albums fill new
  // album folders.
  if (addedExisting_ > removed_) addedExisting_ = removed_;
  addedNew_ = removed_ - addedExisting_;
}

void BenchLibrary::ForEachOriginalTrack(const std::function<void(const Track&, bool removed)>& visit) const {
  for (int album = 0; album < albums_; ++album) {
    const std::string folder = AlbumFolder(album / kAlbumsPerArtist, "Album%02d", album % kAlbumsPerArtist);
    const int tracks = std::min(kTracksPerAlbum, files_ - album * kTracksPerAlbum);
    for (int t = 0; t < tracks; ++t) {
      const char* fixture = kAlbumPattern[t];
      const bool removed = changed_ && LosesTrack(album) && t == kRemovedTrack;
      visit(Track{folder, TrackName(t + 1, "Track", fixture), fixture, album * kTracksPerAlbum + t}, removed);
    }
  }
}

void BenchLibrary::ForEachAddedTrack(const std::function<void(const Track&)>& visit) const {
  int serial = files_;
  int given = 0;
  for (int album = 0; album < albums_ && given < addedExisting_; ++album) {
    if (!GainsTrack(album)) continue;
    const std::string folder = AlbumFolder(album / kAlbumsPerArtist, "Album%02d", album % kAlbumsPerArtist);
    visit(Track{folder, TrackName(kTracksPerAlbum + 1, "Bonus", kBonusFixture), kBonusFixture, serial++});
    ++given;
  }
  const int artists = std::max(1, (albums_ + kAlbumsPerArtist - 1) / kAlbumsPerArtist);
  for (int k = 0; k < addedNew_; ++k) {
    const int album = k / kTracksPerAlbum;
    const int t = k % kTracksPerAlbum;
    const std::string folder = AlbumFolder(album % artists, "New Album %03d", album);
    visit(Track{folder, TrackName(t + 1, "Track", kAlbumPattern[t]), kAlbumPattern[t], serial++});
  }
}

void BenchLibrary::ForEachTrack(const std::function<void(const Track&)>& visit) const {
  ForEachOriginalTrack([&](const Track& track, bool removed) {
    if (!removed) visit(track);
  });
  if (changed_) ForEachAddedTrack(visit);
}

void BenchLibrary::ForEachFile(
    const std::function<void(const std::string& local, const std::string& drive)>& visit) const {
  const std::string library = folder_ + "/disk/Library/";
  ForEachTrack(
      [&](const Track& track) { visit(library + track.folder + track.name, ToDrivePath(track.folder, track.name)); });
}

std::string BenchLibrary::SourceOf(const Track& track) const {
  const std::string copy = folder_ + "/sources/" + std::to_string(track.serial / kTracksPerSourceCopy) + "/";
  const std::string source = copy + track.fixture;
  if (!fs::exists(source)) {
    fs::create_directories(copy);
    fs::copy_file(fixtures_ + "/" + track.fixture, source);
  }
  return source;
}

void BenchLibrary::Link(const Track& track) const {
  const std::string folder = folder_ + "/disk/Library/" + track.folder;
  const std::string target = folder + track.name;
  if (::link(SourceOf(track).c_str(), target.c_str()) == 0) return;
  if (errno != ENOENT) throw std::runtime_error("cannot link " + target + ": " + std::strerror(errno));
  fs::create_directories(folder);
  if (::link(SourceOf(track).c_str(), target.c_str()) != 0)
    throw std::runtime_error("cannot link " + target + ": " + std::strerror(errno));
}

void BenchLibrary::Build() {
  fs::create_directories(folder_ + "/disk/Library");
  fs::create_directories(folder_ + "/program/drives");
  fs::create_directory_symlink(folder_ + "/disk", folder_ + "/program/drives/c:");
  ForEachTrack([&](const Track& track) { Link(track); });
}

void BenchLibrary::ApplyChange() {
  if (changed_) return;
  const std::string library = folder_ + "/disk/Library/";
  changed_ = true;
  ForEachOriginalTrack([&](const Track& track, bool removed) {
    if (removed) fs::remove(library + track.folder + track.name);
  });
  ForEachAddedTrack([&](const Track& track) { Link(track); });
}

}  // namespace bench
