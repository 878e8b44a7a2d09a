#pragma once
// A made-up music library for the scan benchmark: artist/album/track folders
// of ten tracks, every track a hard link to one of the audio fixtures, and a
// program folder whose drive C is the library's parent.
//
// Paths are worked out from the file's position on each walk rather than kept,
// so the benchmark's own memory stays out of the peaks it measures.

#include <functional>
#include <string>

namespace bench {

class BenchLibrary {
 public:
  // folder: a new folder for this library (created by Build);
  // fixtures: the folder holding the audio fixtures.
  BenchLibrary(std::string folder, std::string fixtures, int files);

  // Lays out the sources, the tree of N files and the drive table.
  void Build();

  // Removes 1 % of the files and adds as many: half in existing album
  // folders, half in new ones.
  void ApplyChange();

  // Every file of the library as it stands: its Linux path and drive path.
  void ForEachFile(const std::function<void(const std::string& local, const std::string& drive)>& visit) const;

  int FileCount() const { return files_; }
  int Removed() const { return changed_ ? removed_ : 0; }
  int Added() const { return changed_ ? addedExisting_ + addedNew_ : 0; }
  const std::string& Folder() const { return folder_; }
  std::string ProgramFolder() const { return folder_ + "/program/"; }
  static constexpr const char* kScanRoot = "C:\\Library\\";

 private:
  // One track: its folder below Library (with "/"), its file name, the
  // fixture it links to and its number among all tracks ever made.
  struct Track {
    std::string folder;
    std::string name;
    const char* fixture;
    int serial;
  };

  void ForEachTrack(const std::function<void(const Track&)>& visit) const;
  void ForEachOriginalTrack(const std::function<void(const Track&, bool removed)>& visit) const;
  void ForEachAddedTrack(const std::function<void(const Track&)>& visit) const;
  void Link(const Track& track) const;
  std::string SourceOf(const Track& track) const;

  std::string folder_;
  std::string fixtures_;
  int files_;
  int albums_;
  int removed_ = 0;
  int addedExisting_ = 0;
  int addedNew_ = 0;
  bool changed_ = false;
};

}  // namespace bench
