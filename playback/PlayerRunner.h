#pragma once
// Where the player's commands run. The plain runner runs each piece of work
// at once on the calling thread; PlayerThread runs them, in order, on a
// thread of their own, so that a slow open never holds up the window.

#include <functional>

class CMciPlayer;

class PlayerRunner {
 public:
  using Work = std::function<void(CMciPlayer&)>;
  using Done = std::function<void()>;

  virtual ~PlayerRunner() = default;
  // Runs work on the player after every piece handed over before it, then
  // done (when given) on the thread that handed the work over.
  virtual void Run(Work work, Done done) = 0;
};

// Runs everything at once on the caller's thread.
class InlinePlayerRunner final : public PlayerRunner {
 public:
  explicit InlinePlayerRunner(CMciPlayer& player) : player_(player) {}
  void Run(Work work, Done done) override {
    work(player_);
    if (done) done();
  }

 private:
  CMciPlayer& player_;
};
