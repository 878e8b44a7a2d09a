#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <stdexcept>
#include <thread>

#include "scan/TagReadAhead.h"
#include "tags/TagReader.h"

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
  // Readers never run more than the window ahead of what was taken.
  EXPECT_LE(reader.reads.load(), 302 + 8 + 3);
}

TEST(TagReadAhead, StoppingEndsTheReadersWithoutReadingTheRest) {
  EchoReader reader;
  std::vector<std::string> paths(10000, "x");
  {
    TagReadAhead readAhead(reader, paths, 2, 4);
    readAhead.Take(0);
    readAhead.Stop();
  }  // the destructor joins the readers
  EXPECT_LT(reader.reads.load(), 100);
}

TEST(TagReadAhead, ACancelledWaitReturnsWhileAReaderIsStuckAndStoppingStillJoinsIt) {
  struct StuckReader : TagReader {
    std::atomic<bool> release{false};
    std::atomic<int> reads{0};
    int GetTag(std::string, CMediaFile&) override {
      for (++reads; !release;) std::this_thread::sleep_for(std::chrono::milliseconds(1));
      return 0;
    }
  } reader;
  std::atomic<bool> cancel{false};
  {
    TagReadAhead readAhead(reader, {"a", "b", "c"}, 1, 4);
    std::thread canceller([&] {
      std::this_thread::sleep_for(std::chrono::milliseconds(100));
      cancel = true;
    });
    const auto start = std::chrono::steady_clock::now();
    EXPECT_FALSE(readAhead.WaitFor(0, cancel));
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(500));
    canceller.join();
    readAhead.Stop();
    reader.release = true;  // the destructor waits for the read under way, and no other
  }
  EXPECT_EQ(reader.reads.load(), 1);
}

}  // namespace
