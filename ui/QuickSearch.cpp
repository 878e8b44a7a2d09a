#include "ui/QuickSearch.h"

#include "ui/CLibraryTree.h"
#include "ui/CMediaList.h"

void QuickSearch(CLibraryTree& tree, CMediaList& list, const std::string& findText) {
  tree.SelectSearchResults();
  list.Clear();
  const std::string text = findText.substr(0, findText.find_last_not_of(" \t\n\v\f\r") + 1);
  if (!text.empty()) list.FillWithSearch(text);
}
