#pragma once
// Loads records from the current row of a result set, by column name. A NULL
// integer loads as 0 and a NULL text as empty; a missing column throws
// "Invalid field name requested".

#include "catalogue/CppSQLite3ResultSet.h"
#include "catalogue/Records.h"

void LoadRecord(const CppSQLite3ResultSet& row, CMediaFile& file);
void LoadRecord(const CppSQLite3ResultSet& row, CMediaPath& path);
void LoadRecord(const CppSQLite3ResultSet& row, CMediaVolume& volume);
void LoadRecord(const CppSQLite3ResultSet& row, CPlayList& playList);
// The rows a scan, the tree and the list read many at a time, by position.
void LoadRecord(const CppSQLite3ResultSet& row, PathRow& path);
void LoadRecord(const CppSQLite3ResultSet& row, FileRow& file);
void LoadRecord(const CppSQLite3ResultSet& row, PathNodeRow& path);
void LoadRecord(const CppSQLite3ResultSet& row, MediaListRow& file);
