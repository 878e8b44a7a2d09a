#pragma once
// What the quick search looks through, kept current: every file's folded
// texts (SearchTexts), read once, with the files changed since read again
// one by one and laid over them. Only changes to the files' rows count
// (names, titles, artists; rows added or removed); a saved play list or a
// setting costs nothing. When too many files changed to list, every text is
// read again: on a thread and connection of its own once ReadAhead was
// asked for (the window does, so that no typed search waits for the texts),
// else by the next search.
//
// Owned with the catalogue: its members are called by whichever thread
// holds the catalogue, one at a time.

#include <atomic>
#include <cstdint>
#include <functional>
#include <future>
#include <memory>
#include <set>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "catalogue/SearchTexts.h"

class CatalogueChanges;

class SearchIndex {
 public:
  using Texts = std::shared_ptr<const SearchTexts>;
  // Reads every file's texts; the flag, once set, asks it to give up.
  using ReadAll = std::function<Texts(const std::atomic<bool>& cancel)>;
  // Reads the texts of these files (rising ids) into texts.
  using ReadSome = std::function<void(const std::vector<std::int32_t>& fileIds, SearchTexts& texts)>;

  SearchIndex() = default;
  SearchIndex(const SearchIndex&) = delete;
  SearchIndex& operator=(const SearchIndex&) = delete;
  ~SearchIndex() { Forget(); }

  // Drops what was read and any reading under way (a catalogue opened anew).
  void Forget();
  // From now on every text is read on a thread with readElsewhere: now, and
  // at ReadAheadIfStale after the files changed too much to read one by one.
  void ReadAhead(ReadAll readElsewhere);
  void ReadAheadIfStale();
  // A commit's changes, as they are made. A reading under way that began
  // before a large change is given up.
  void Note(const CatalogueChanges& changes);
  // The files one of whose texts holds the folded part (not empty), in
  // rising FileID order; reads what it must with readHere and readSome.
  std::vector<std::int32_t> Holding(std::string_view foldedPart, const ReadAll& readHere, const ReadSome& readSome);
  // Whether a search now would wait for the texts being read elsewhere.
  bool WouldWait() const;

 private:
  // Past this many files read one by one, every text is read again.
  static constexpr std::size_t kMostAmended = 4096;

  void StartReading();
  void StopReading();
  void AllChanged();
  void Settle(const ReadAll& readHere);
  void Amend(const ReadSome& readSome);

  Texts base_;
  bool baseStale_ = true;
  ReadAll readElsewhere_;
  std::future<Texts> coming_;
  std::shared_ptr<std::atomic<bool>> cancelComing_;
  // Files changed since base_ (or since coming_ began) and not yet read.
  std::set<std::int32_t> pending_;
  // Files whose texts in base_ are out of date, and their texts now.
  std::unordered_set<std::int32_t> amendedIds_;
  SearchTexts amended_;
};
