#include "catalogue/CatalogueChanges.h"

#include <algorithm>

void CatalogueChanges::Add(CatalogueTable table, std::int32_t id) {
  TableChanges& changes = At(table);
  if (changes.all) return;
  const auto at = std::lower_bound(changes.ids.begin(), changes.ids.end(), id);
  if (at != changes.ids.end() && *at == id) return;
  if (changes.ids.size() >= kMaxIds) {
    AddAll(table);
    return;
  }
  changes.ids.insert(at, id);
}

void CatalogueChanges::AddIds(CatalogueTable table, const std::vector<std::int32_t>& ids) {
  if (ids.size() > kMaxIds) {
    AddAll(table);
    return;
  }
  for (const std::int32_t id : ids) Add(table, id);
}

void CatalogueChanges::AddAll(CatalogueTable table) {
  TableChanges& changes = At(table);
  changes.all = true;
  changes.ids.clear();
  changes.ids.shrink_to_fit();
}

void CatalogueChanges::Merge(const CatalogueChanges& other) {
  for (std::size_t t = 0; t < kTables; ++t) {
    const auto table = static_cast<CatalogueTable>(t);
    if (other.At(table).all)
      AddAll(table);
    else
      AddIds(table, other.At(table).ids);
  }
}

bool CatalogueChanges::Empty() const {
  return std::none_of(tables_.begin(), tables_.end(),
                      [](const TableChanges& changes) { return changes.all || !changes.ids.empty(); });
}

bool CatalogueChanges::Touches(CatalogueTable table) const { return At(table).all || !At(table).ids.empty(); }

bool CatalogueChanges::Touches(CatalogueTable table, std::int32_t id) const {
  const TableChanges& changes = At(table);
  return changes.all || std::binary_search(changes.ids.begin(), changes.ids.end(), id);
}
