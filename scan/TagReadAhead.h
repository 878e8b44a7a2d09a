#pragma once
// Reads the tags of a list of files on reader threads, ahead of the scan
// worker, which takes the results in list order and alone writes them to the
// catalogue. TagLib's parsing then uses every core while the worker stores.
// At most `window` results wait to be taken, so memory stays flat however
// long the list is.
//
// Constructed, taken from and stopped by the scan worker only.

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <exception>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "catalogue/Records.h"

class TagReader;

class TagReadAhead {
 public:
  TagReadAhead(TagReader& reader, std::vector<std::string> fullPaths, unsigned threads, std::size_t window = 64);
  // The full path of file i, made when a reader comes to it (on a reader
  // thread), so that a long list costs no memory of its own.
  using PathOf = std::function<std::string(std::size_t)>;
  TagReadAhead(TagReader& reader, std::size_t count, PathOf pathOf, unsigned threads, std::size_t window = 64);
  // Stops reading and waits for the reader threads, each of which finishes the
  // file it is reading.
  ~TagReadAhead();
  TagReadAhead(const TagReadAhead&) = delete;
  TagReadAhead& operator=(const TagReadAhead&) = delete;

  // How often a wait for a result looks at the cancel flag.
  static constexpr std::chrono::milliseconds kCancelCheck{50};

  // Waits until the result for file `index` is there (true) or cancel is set
  // (false), whichever comes first: a reader stuck in a slow read never keeps
  // the worker from stopping.
  bool WaitFor(std::size_t index, const std::atomic<bool>& cancel);

  // The tags read for file `index` (taken in order, each once), in a fresh
  // record, waiting for them if need be; rethrows whatever the reader threw
  // for that file.
  CMediaFile Take(std::size_t index);

  // No further file is read; the worker takes nothing after this.
  void Stop();

 private:
  TagReadAhead(TagReader& reader, const std::shared_ptr<const std::vector<std::string>>& paths, unsigned threads,
               std::size_t window);

  struct Slot {
    std::size_t job = 0;  // job + 1 once filled; 0 while empty
    CMediaFile record;
    std::exception_ptr error;
  };

  void ReadFiles();

  TagReader& reader_;
  const std::size_t count_;
  const PathOf pathOf_;
  std::vector<Slot> slots_;
  std::size_t nextToRead_ = 0;
  std::size_t taken_ = 0;
  bool stopping_ = false;
  int readersWaiting_ = 0;
  std::mutex mutex_;
  std::condition_variable roomFree_;     // readers wait here for the worker to take
  std::condition_variable resultReady_;  // the worker waits here for a reader
  std::vector<std::thread> threads_;
};
