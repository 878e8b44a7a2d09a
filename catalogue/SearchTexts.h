#pragma once
// The texts the quick search looks in (each file's name, titles and
// artists), letter case folded, kept in memory in FileID order: a search
// through a million files then reads some tens of megabytes in one pass
// instead of asking SQLite for every row.
//
// A file takes its id, where its texts start and the texts themselves, each
// ended by a zero byte, so that a part without zero bytes is only ever found
// within one text. Used by one thread at a time.

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

class CaseFold;

class SearchTexts {
 public:
  // Forgets the files; keeps the room they took.
  void Clear();
  // Room for this many files whose texts take about this many bytes each.
  void Reserve(std::size_t files, std::size_t bytesEach);
  // Files must come in rising FileID order. A null text is passed as empty.
  void Add(std::int32_t fileId, std::initializer_list<std::string_view> texts, const CaseFold& fold);
  // Adds the other's files after these; its ids must all be higher.
  void Append(const SearchTexts& other);
  // The files one of whose texts holds the folded part (Fold's result, not
  // empty and without zero bytes), in the order they were added.
  std::vector<std::int32_t> Holding(std::string_view foldedPart) const;
  std::size_t Files() const { return ids_.size(); }

 private:
  std::vector<std::int32_t> ids_;
  std::vector<std::uint32_t> starts_;  // where each file's texts start in texts_ (4 GB at most)
  std::string texts_;
};
