#pragma once
// Finds the catalogue's rows of files named by their absolute Linux paths
// (files dropped from a file manager, the entries of a play list file): each
// path is put on its drive and looked up among the disk volumes of that
// drive letter. User-interface thread only.

#include <string>
#include <vector>

#include "catalogue/MediaDB.h"

class CDriveServices;

struct CataloguedFiles {
  IdList fileIds;                          // in the order of the paths, each found file once
  std::vector<std::string> notCatalogued;  // paths no drive holds or the catalogue lacks, in order
};

CataloguedFiles FindCataloguedFiles(MediaDB& db, const CDriveServices& drives,
                                    const std::vector<std::string>& localPaths);
