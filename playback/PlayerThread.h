#pragma once
// Runs the player's commands on a thread of its own, one after another in
// the order they were handed over. Each piece of work's "done" goes back to
// the user-interface thread through the poster the front end supplies (an
// event of its loop). The player is then touched by that thread alone, until
// this object is gone: the destructor waits for the work handed over so far,
// and a "done" that arrives after it is dropped.

#include <condition_variable>
#include <deque>
#include <memory>
#include <mutex>
#include <thread>

#include "playback/PlayerRunner.h"

class PlayerThread final : public PlayerRunner {
 public:
  // Hands a function to the user-interface thread; it may be called from
  // any thread.
  using Poster = std::function<void(std::function<void()>)>;

  PlayerThread(CMciPlayer& player, Poster poster);
  // Call on the user-interface thread.
  ~PlayerThread() override;
  PlayerThread(const PlayerThread&) = delete;
  PlayerThread& operator=(const PlayerThread&) = delete;

  void Run(Work work, Done done) override;

 private:
  struct Job {
    Work work;
    Done done;
  };
  void Loop();

  CMciPlayer& player_;
  Poster poster_;
  // Read on the user-interface thread only: false once this object is going.
  std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
  std::mutex mutex_;
  std::condition_variable wake_;
  std::deque<Job> jobs_;
  bool stopping_ = false;
  std::thread thread_;  // last: starts when everything above is ready
};
