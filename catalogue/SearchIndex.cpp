#include "catalogue/SearchIndex.h"

#include <algorithm>

#include "catalogue/CatalogueChanges.h"

void SearchIndex::Forget() {
  StopReading();
  base_.reset();
  baseStale_ = true;
  pending_.clear();
  amendedIds_.clear();
  amended_.Clear();
}

void SearchIndex::ReadAhead(ReadAll readElsewhere) {
  readElsewhere_ = std::move(readElsewhere);
  ReadAheadIfStale();
}

void SearchIndex::ReadAheadIfStale() {
  if (readElsewhere_ && baseStale_ && !coming_.valid()) StartReading();
}

void SearchIndex::Note(const CatalogueChanges& changes) {
  if (!changes.Touches(CatalogueTable::Files)) return;
  if (changes.AllRows(CatalogueTable::Files)) return AllChanged();
  const auto& ids = changes.Ids(CatalogueTable::Files);
  pending_.insert(ids.begin(), ids.end());
  if (pending_.size() + amendedIds_.size() > kMostAmended) AllChanged();
}

bool SearchIndex::WouldWait() const {
  return coming_.valid() && coming_.wait_for(std::chrono::seconds(0)) != std::future_status::ready;
}

void SearchIndex::AllChanged() {
  StopReading();  // it may have begun before the change
  baseStale_ = true;
  pending_.clear();
  amendedIds_.clear();
  amended_.Clear();
}

void SearchIndex::StartReading() {
  cancelComing_ = std::make_shared<std::atomic<bool>>(false);
  coming_ = std::async(std::launch::async, [read = readElsewhere_, cancel = cancelComing_] { return read(*cancel); });
}

void SearchIndex::StopReading() {
  if (!coming_.valid()) return;
  *cancelComing_ = true;
  coming_.wait();
  coming_ = {};
}

// Makes base_ hold every file's texts as they were when it was read; files
// changed since are in pending_.
void SearchIndex::Settle(const ReadAll& readHere) {
  if (coming_.valid()) {
    base_ = coming_.get();
    cancelComing_.reset();
    baseStale_ = !base_;  // a reading that failed is done here
  }
  if (!baseStale_) return;
  const std::atomic<bool> never{false};
  base_ = readHere(never);
  if (!base_) base_ = std::make_shared<const SearchTexts>();
  baseStale_ = false;
  pending_.clear();
}

// Reads the changed files' texts again, with those read before, so that
// amended_ holds the current texts of every file base_ is out of date for.
void SearchIndex::Amend(const ReadSome& readSome) {
  if (pending_.empty()) return;
  amendedIds_.insert(pending_.begin(), pending_.end());
  pending_.clear();
  std::vector<std::int32_t> ids(amendedIds_.begin(), amendedIds_.end());
  std::sort(ids.begin(), ids.end());
  amended_.Clear();
  readSome(ids, amended_);
}

std::vector<std::int32_t> SearchIndex::Holding(std::string_view foldedPart, const ReadAll& readHere,
                                               const ReadSome& readSome) {
  Settle(readHere);
  Amend(readSome);
  std::vector<std::int32_t> found = base_->Holding(foldedPart);
  if (amendedIds_.empty()) return found;
  std::erase_if(found, [&](std::int32_t id) { return amendedIds_.count(id) != 0; });
  const std::vector<std::int32_t> amended = amended_.Holding(foldedPart);
  std::vector<std::int32_t> merged;
  merged.reserve(found.size() + amended.size());
  std::merge(found.begin(), found.end(), amended.begin(), amended.end(), std::back_inserter(merged));
  return merged;
}
