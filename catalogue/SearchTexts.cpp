#include "catalogue/SearchTexts.h"

#include <algorithm>
#include <cstring>

#include "base/CaseFold.h"

void SearchTexts::Clear() {
  ids_.clear();
  starts_.clear();
  texts_.clear();  // the room stays for the texts read next
}

void SearchTexts::Reserve(std::size_t files, std::size_t bytesEach) {
  ids_.reserve(files);
  starts_.reserve(files);
  texts_.reserve(files * bytesEach);
}

void SearchTexts::Add(std::int32_t fileId, std::initializer_list<std::string_view> texts, const CaseFold& fold) {
  ids_.push_back(fileId);
  starts_.push_back(static_cast<std::uint32_t>(texts_.size()));
  for (std::string_view text : texts) {
    fold.AppendFolded(text, texts_);
    texts_ += '\0';
  }
}

void SearchTexts::Append(const SearchTexts& other) {
  const auto offset = static_cast<std::uint32_t>(texts_.size());
  ids_.insert(ids_.end(), other.ids_.begin(), other.ids_.end());
  for (std::uint32_t start : other.starts_) starts_.push_back(start + offset);
  texts_ += other.texts_;
}

std::vector<std::int32_t> SearchTexts::Holding(std::string_view foldedPart) const {
  std::vector<std::int32_t> found;
  const char* const begin = texts_.data();
  const char* const end = begin + texts_.size();
  for (const char* at = begin; at < end;) {
    const void* hit = memmem(at, static_cast<std::size_t>(end - at), foldedPart.data(), foldedPart.size());
    if (!hit) break;
    // The file whose texts hold the hit; the search goes on after them.
    const auto offset = static_cast<std::size_t>(static_cast<const char*>(hit) - begin);
    const std::size_t file =
        static_cast<std::size_t>(std::upper_bound(starts_.begin(), starts_.end(), static_cast<std::uint32_t>(offset)) -
                                 starts_.begin()) -
        1;
    found.push_back(ids_[file]);
    at = file + 1 < starts_.size() ? begin + starts_[file + 1] : end;
  }
  return found;
}
