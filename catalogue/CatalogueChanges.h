#pragma once
// What changed in the catalogue: for each table, the ids of the rows added,
// changed or removed, or "any row" when a change reached too many to list
// (a removal of a whole volume, a large scan). Kept small: past kMaxIds ids a
// table counts as wholly changed.

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

enum class CatalogueTable { Volumes, Paths, Files, PlayLists, Settings };

class CatalogueChanges {
 public:
  static constexpr std::size_t kMaxIds = 4096;

  void Add(CatalogueTable table, std::int32_t id);
  void AddIds(CatalogueTable table, const std::vector<std::int32_t>& ids);
  void AddAll(CatalogueTable table);
  void Merge(const CatalogueChanges& other);

  bool Empty() const;
  bool Touches(CatalogueTable table) const;
  // True also when the table changed as a whole.
  bool Touches(CatalogueTable table, std::int32_t id) const;
  bool AllRows(CatalogueTable table) const { return At(table).all; }
  // The ids listed for the table, in no particular order, each once; empty
  // when the table changed as a whole or not at all.
  const std::vector<std::int32_t>& Ids(CatalogueTable table) const { return At(table).ids; }

 private:
  struct TableChanges {
    bool all = false;
    std::vector<std::int32_t> ids;  // sorted, no repeats
  };
  static constexpr std::size_t kTables = 5;

  TableChanges& At(CatalogueTable table) { return tables_[static_cast<std::size_t>(table)]; }
  const TableChanges& At(CatalogueTable table) const { return tables_[static_cast<std::size_t>(table)]; }

  std::array<TableChanges, kTables> tables_;
};
