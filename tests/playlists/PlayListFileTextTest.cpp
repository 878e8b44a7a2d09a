// Play list file texts, written and read without a catalogue.
#include <gtest/gtest.h>

#include "playlists/PlayListFileReader.h"
#include "playlists/PlayListFileWriter.h"

namespace {

using Strings = std::vector<std::string>;

TEST(PlayListFileText, WritesM3uLinesAndXspfWithEscapedTextsAndEncodedUrls) {
  const std::vector<PlayListFileEntry> entries = {{"/m/Sub Dir/Café.mp3", "Rock & <Roll>", "Zoë \"Z\"", 61},
                                                  {"/m/new\nline.mp3", "Two\r\nlines", "", 0},
                                                  {"/m/latin\xE9.mp3", "Caf\xE9\x01", "", 2}};
  EXPECT_EQ(WritePlayListFile(PlayListFileFormat::M3u, entries),
            "#EXTM3U\n"
            "#EXTINF:61,Zoë \"Z\" - Rock & <Roll>\n/m/Sub Dir/Café.mp3\n"
            "#EXTINF:-1,Two  lines\nfile:///m/new%0Aline.mp3\n"
            "#EXTINF:2,Café \nfile:///m/latin%E9.mp3\n");
  const std::string xspf = WritePlayListFile(PlayListFileFormat::Xspf, entries);
  EXPECT_TRUE(
      xspf.starts_with("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                       "<playlist version=\"1\" xmlns=\"http://xspf.org/ns/0/\">\n  <trackList>\n"));
  EXPECT_NE(xspf.find("<location>file:///m/Sub%20Dir/Caf%C3%A9.mp3</location>\n"
                      "      <title>Rock &amp; &lt;Roll&gt;</title>\n"
                      "      <creator>Zoë \"Z\"</creator>\n      <duration>61000</duration>"),
            std::string::npos)
      << xspf;
  EXPECT_NE(xspf.find("<title>Café</title>"), std::string::npos);  // Latin-1 taken in, control left out
  EXPECT_EQ(xspf.find("<creator></creator>"), std::string::npos);
  EXPECT_TRUE(xspf.ends_with("  </trackList>\n</playlist>\n"));
  // What is written is read back as the same paths.
  for (const auto format : {PlayListFileFormat::M3u, PlayListFileFormat::Xspf})
    EXPECT_EQ(ReadPlayListFile(format, WritePlayListFile(format, entries), "/elsewhere"),
              (Strings{"/m/Sub Dir/Café.mp3", "/m/new\nline.mp3", "/m/latin\xE9.mp3"}));
}

TEST(PlayListFileText, ReadsEntriesRelativeToTheListAndFileUrls) {
  EXPECT_EQ(ReadPlayListFile(PlayListFileFormat::M3u,
                             "\xEF\xBB\xBF#EXTM3U\r\n#EXTINF:1,x\r\n\r\n  ../a.mp3 \r\n./b//c.mp3\r\n"
                             "file:///x/Caf%C3%A9%20%zz.mp3\r\nFILE://localhost/y.mp3\r\nfile://host/z.mp3\r\n"
                             "http://radio/s\r\n/abs/../d.mp3",
                             "/lists/m3u"),
            (Strings{"/lists/a.mp3", "/lists/m3u/b/c.mp3", "/x/Café %zz.mp3", "/y.mp3", "file://host/z.mp3",
                     "http://radio/s", "/d.mp3"}));
  EXPECT_EQ(ReadPlayListFile(PlayListFileFormat::Pls,
                             "[playlist]\nFile10=ten.mp3\nfile2 = /two.mp3\nTitle2=Two\nFile2=/again.mp3\n"
                             "FileX=/no.mp3\nFile3=\nNumberOfEntries=2\nVersion=2\n",
                             "/p"),
            (Strings{"/two.mp3", "/p/ten.mp3"}));
  EXPECT_EQ(
      ReadPlayListFile(PlayListFileFormat::Xspf,
                       "<?xml version='1.0'?><!-- <track><location>/no</location></track> -->"
                       "<playlist><location>/the/list/itself</location><trackList>"
                       "<track><title a='>'>t</title><location>file:///a%20b.mp3</location>"
                       "<location>/second.mp3</location></track>"
                       "<x:track><x:location> <![CDATA[/c&d]]>&amp;&#233;&#xE9;&bogus;.mp3 </x:location></x:track>"
                       "<track><location>rel%20x.mp3</location></track><track/><track><location/></track>"
                       "</trackList></playlist>",
                       "/l"),
      (Strings{"/a b.mp3", "/c&d&éé&bogus;.mp3", "/l/rel x.mp3"}));
}

TEST(PlayListFileText, BrokenXspfGivesWhatWasFoundAndNeverReadsPast) {
  const std::string track = "<track><location>/a.mp3</location></track>";
  for (const std::string& cut : {track + "<track><location>/b.mp3", track + "<track><loc", track + "<!-- open",
                                 track + "<![CDATA[", track + "<track><location><![CDATA[/b", track + "<tr'ack>"})
    EXPECT_EQ(ReadPlayListFile(PlayListFileFormat::Xspf, cut, "/")[0], "/a.mp3") << cut;
  std::string hostile(1 << 20, '&');
  hostile += std::string(1 << 20, '<') + std::string(1 << 20, 'x') + '\0' + "\xFF\xFE";
  EXPECT_TRUE(ReadPlayListFile(PlayListFileFormat::Xspf, "<track><location>" + hostile, "/").size() <= 1);
  EXPECT_TRUE(ReadPlayListFile(PlayListFileFormat::Xspf, hostile, "/").empty());
}

}  // namespace
