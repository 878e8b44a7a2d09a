#pragma once
// A list's columns as the settings keep them: left to right, each as its
// number at insertion and its width, and ":hidden" after a hidden one's,
// "2:160,0:100,1:100,6:80:hidden". Used from the user-interface thread only.

#include <string>

namespace platform {

class ListControl;

std::string SaveColumnLayout(const ListControl& list);
// Puts the columns in the text's order with its widths, and hides those it
// marks hidden. A text naming only the first columns (written before the
// list had the others) leaves the others as they are, after them. A text
// that does not name each of the first columns exactly once, with widths
// from 10 to 5000 pixels (a hand edit, junk), changes nothing and returns
// false.
bool RestoreColumnLayout(ListControl& list, const std::string& text);
// Scales the columns' widths so that together they take the width (as far as
// they can: none shrinks below 60 pixels, or below its width when narrower);
// the kept column (if any) and hidden columns keep their widths.
void FitColumns(ListControl& list, int width, int keptColumn = -1);

}  // namespace platform
