#pragma once
// Reads the embedded tags and audio properties of one music file into a record.

#include <string>

#include "catalogue/Records.h"

class TagReader {
 public:
  virtual ~TagReader() = default;

  // Fills the id3 text fields and the audio properties of `file` from the file
  // at `fullPath` (a drive path or an absolute Linux path). Leaves the record
  // as it was when the file is not of a known type or cannot be read. Returns 0.
  virtual int GetTag(std::string fullPath, CMediaFile& file) = 0;
};
