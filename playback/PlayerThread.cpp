#include "playback/PlayerThread.h"

PlayerThread::PlayerThread(CMciPlayer& player, Poster poster)
    : player_(player), poster_(std::move(poster)), thread_([this] { Loop(); }) {}

PlayerThread::~PlayerThread() {
  *alive_ = false;
  {
    std::lock_guard lock(mutex_);
    stopping_ = true;
  }
  wake_.notify_one();
  thread_.join();
}

void PlayerThread::Run(Work work, Done done) {
  {
    std::lock_guard lock(mutex_);
    jobs_.push_back({std::move(work), std::move(done)});
  }
  wake_.notify_one();
}

// Works through the queue; once asked to stop, finishes what was queued.
void PlayerThread::Loop() {
  while (true) {
    Job job;
    {
      std::unique_lock lock(mutex_);
      wake_.wait(lock, [this] { return stopping_ || !jobs_.empty(); });
      if (jobs_.empty()) return;
      job = std::move(jobs_.front());
      jobs_.pop_front();
    }
    job.work(player_);
    if (job.done)
      poster_([alive = alive_, done = std::move(job.done)] {
        if (*alive) done();
      });
  }
}
