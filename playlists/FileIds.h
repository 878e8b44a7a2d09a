#pragma once
// The FileIDs text of a stored play list and the id-list helpers around it.
// The text is the ids in order, in signed decimal, joined by "," with no
// blanks ("12,7,40"; "" for no ids). Pure functions; any thread.

#include <string>

#include "catalogue/MediaDB.h"  // IdList

// Each id written as a signed 32-bit number, joined by ",".
std::string BuildIdList(const IdList& ids);

// Reads a number at the start of the text and after each ",", the way atoi
// does (leading white space, an optional sign, digits up to the first other
// character, 0 when there are none, clamped to the 32-bit range), and keeps
// the numbers above 0. Never fails: junk gives no ids.
IdList ParseIdList(const std::string& text);

// The ids in order of first appearance, each once.
IdList UniqueIds(const IdList& ids);

// The position of the first element equal to value at or after start, or -1.
int IndexOf(std::int32_t value, const IdList& ids, int start);
