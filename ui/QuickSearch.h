#pragma once
// The quick search ("Go", or Enter in the Find field): "Search Results"
// becomes the selected, current node, and the list shows every file of the
// catalogue whose name, titles or artists hold the Find field's text with
// its trailing white space removed (leading white space counts). An empty
// text leaves the list empty. User-interface thread only.

#include <string>

class CLibraryTree;
class CMediaList;

void QuickSearch(CLibraryTree& tree, CMediaList& list, const std::string& findText);
