#include <gtest/gtest.h>

#include "scan/Paths.h"

TEST(Paths, NormalizeFolder) {
  EXPECT_EQ(NormalizeFolder("C:\\Music"), "C:\\Music\\");
  EXPECT_EQ(NormalizeFolder("C:\\Music\\"), "C:\\Music\\");
  EXPECT_EQ(NormalizeFolder("Music"), "\\Music\\");
  EXPECT_EQ(NormalizeFolder(""), "\\");
  EXPECT_EQ(NormalizeFolder("\\"), "\\");
  EXPECT_EQ(NormalizeFolder("C:"), "C:\\");
  EXPECT_EQ(NormalizeFolder("\\Music"), "\\Music\\");
}

TEST(Paths, FullPathsAndTheirParts) {
  EXPECT_EQ(MakeFullPath("E", "\\Jazz\\", "a.mp3"), "E:\\Jazz\\a.mp3");
  EXPECT_EQ(MakeFullPath("Ex", "Jazz", "a.mp3"), "E:\\Jazz\\a.mp3");
  EXPECT_EQ(MakeFullPath("", "C:\\QORCache", "a.mp3"), "C:\\QORCache\\a.mp3");
  EXPECT_EQ(MakeFullPath("", "", "a.mp3"), "\\a.mp3");

  EXPECT_EQ(GetFileNamePart("C:\\Music\\song.mp3"), "song.mp3");
  EXPECT_EQ(GetFileNamePart("C:\\Music\\"), "");
  EXPECT_EQ(GetFolderPart("C:\\Music\\Rock\\"), "\\Music\\Rock\\");
  EXPECT_EQ(GetFolderPart("C:\\Music\\song.mp3"), "\\Music\\");
  EXPECT_EQ(GetFolderPart("C:\\Music"), "\\");  // the last component is taken for a file
  EXPECT_EQ(GetFolderPart("E:\\"), "\\");

  EXPECT_EQ(GetFolderName("\\"), "\\");
  EXPECT_EQ(GetFolderName("C:\\"), "\\");
  EXPECT_EQ(GetFolderName("\\Music\\Rock\\"), "Rock");
  EXPECT_EQ(GetFolderName("C:\\Music"), "Music");
  EXPECT_EQ(GetFolderName("\\It's 100%_é\\"), "It's 100%_é");
}

TEST(Paths, FileTypeFromTheExtension) {
  EXPECT_EQ(GetFileType("SONG.MP3"), kMp3);
  EXPECT_EQ(GetFileType("a.b.Ogg"), kOgg);
  EXPECT_EQ(GetFileType("x.wma"), kWma);
  EXPECT_EQ(GetFileType("song.mp3.txt"), kNotMedia);
  EXPECT_EQ(GetFileType("mp3"), kMp3);  // no dot: the whole name is compared
  EXPECT_EQ(GetFileType("song."), kNotMedia);
  EXPECT_EQ(GetFileType("flac.flac"), kNotMedia);
}
