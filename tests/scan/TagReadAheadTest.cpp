#include <gtest/gtest.h>

#include <atomic>
#include <future>
#include <stdexcept>
#include <thread>

#include "scan/TagReadAhead.h"
#include "tags/TagReader.h"
#include "tests/support/Eventually.h"

namespace {

// Titles each record with its path; throws for "bad"; counts the files read.
class EchoReader : public TagReader {
 public:
  std::atomic<int> reads{0};
  int GetTag(std::string fullPath, CMediaFile& file) override {
    ++reads;
    if (fullPath == "bad") throw std::runtime_error("unreadable");
    file.id3Title = fullPath;
    return 0;
  }
};

TEST(TagReadAhead, ResultsComeInListOrderAndFailuresTravelWithTheirFile) {
  EchoReader reader;
  std::vector<std::string> paths;
  for (int i = 0; i < 500; ++i) paths.push_back(i == 300 ? "bad" : std::to_string(i));
  TagReadAhead readAhead(reader, paths, 3, 8);
  for (std::size_t i = 0; i < 300; ++i) EXPECT_EQ(readAhead.Take(i).id3Title, paths[i]);
  EXPECT_THROW(readAhead.Take(300), std::runtime_error);
  EXPECT_EQ(readAhead.Take(301).id3Title, "301");
  // Readers never start a file more than the window ahead of what was taken.
  EXPECT_LE(reader.reads.load(), 302 + 8);
}

TEST(TagReadAhead, StoppingEndsTheReadersWithoutReadingTheRest) {
  EchoReader reader;
  std::vector<std::string> paths(10000, "x");
  {
    TagReadAhead readAhead(reader, paths, 2, 4);
    readAhead.Take(0);
    readAhead.Stop();
  }                                       // the destructor joins the readers
  EXPECT_LE(reader.reads.load(), 1 + 4);  // the one taken and a window ahead of it
}

TEST(TagReadAhead, ACancelledWaitReturnsWhileAReaderIsStuckAndStoppingStillJoinsIt) {
  struct StuckReader : TagReader {
    std::promise<void> release;
    std::shared_future<void> released = release.get_future().share();
    std::atomic<int> reads{0};
    int GetTag(std::string, CMediaFile&) override {
      ++reads;
      released.wait();
      return 0;
    }
  } reader;
  std::atomic<bool> cancel{false};
  {
    TagReadAhead readAhead(reader, {"a", "b", "c"}, 1, 4);
    std::thread canceller([&] {
      EXPECT_TRUE(testing_support::Eventually([&] { return reader.reads.load() == 1; }));
      cancel = true;
    });
    EXPECT_FALSE(readAhead.WaitFor(0, cancel));  // returns on the cancel, the read still stuck
    canceller.join();
    readAhead.Stop();
    reader.release.set_value();  // the destructor waits for the read under way, and no other
  }
  EXPECT_EQ(reader.reads.load(), 1);
}

}  // namespace
