#include <gtest/gtest.h>

#include <utility>

#include "volumes/Paths.h"

TEST(Paths, FoldersFullPathsAndTheirParts) {
  EXPECT_EQ(NormalizeFolder("C:\\Music"), "C:\\Music\\");
  EXPECT_EQ(NormalizeFolder(""), "\\");
  EXPECT_EQ(NormalizeFolder("C:"), "C:\\");

  EXPECT_EQ(MakeFullPath("Ex", "Jazz", "a.mp3"), "E:\\Jazz\\a.mp3");
  EXPECT_EQ(MakeFullPath("", "C:\\QORCache", "a.mp3"), "C:\\QORCache\\a.mp3");
  EXPECT_EQ(GetFileNamePart("C:\\Music\\"), "");
  EXPECT_EQ(GetFolderPart("C:\\Music\\song.mp3"), "\\Music\\");
  EXPECT_EQ(GetFolderPart("C:\\Music"), "\\");  // the last component is taken for a file
  EXPECT_EQ(GetFolderName("C:\\"), "\\");
  EXPECT_EQ(GetFolderName("C:\\Music"), "Music");
}

TEST(Paths, FileTypeFromTheExtension) {
  EXPECT_EQ(GetFileType("SONG.MP3"), kMp3);
  EXPECT_EQ(GetFileType("a.b.Ogg"), kOgg);
  EXPECT_EQ(GetFileType("song.mp3.txt"), kNotMedia);
  EXPECT_EQ(GetFileType("song."), kNotMedia);
  // The other formats only when every format is asked for.
  for (auto [name, type] : {std::pair{"a.FLAC", kFlac}, {"b.mpc", kMusepack}, {"c.Opus", kOpus}, {"d.m4A", kM4a}}) {
    EXPECT_EQ(GetFileType(name), kNotMedia) << name;
    EXPECT_EQ(GetFileType(name, AudioFormats::Every), type) << name;
  }
  EXPECT_EQ(GetFileType("e.wma", AudioFormats::Every), kWma);
  EXPECT_EQ(GetFileType("f.aiff", AudioFormats::Every), kNotMedia);
}
