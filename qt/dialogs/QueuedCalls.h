#pragma once
// Functions handed from one thread to another through Qt: calls run on an
// object's thread from its event loop, tasks run on a thread pool.
//
// Qt's queues lock with futexes of their own, which ThreadSanitizer cannot
// see. Each hand-over here is marked as one (a release where the function is
// handed over, an acquire where it is taken), so that ThreadSanitizer judges
// the code on both sides instead of reporting the hand-over itself. Other
// builds mark nothing.

#include <QObject>
#include <functional>

class QEvent;
class QThreadPool;

// Runs calls on the thread this object lives on. Calls still queued when it
// goes are dropped with it.
class QueuedCalls : public QObject {
 public:
  explicit QueuedCalls(QObject* parent = nullptr) : QObject(parent) {}

  // Any thread; the call runs later, never inside Post.
  void Post(std::function<void()> call);
  // Any thread: the call runs at once on this object's thread, or is posted
  // there and waited for.
  void RunAndWait(const std::function<void()>& call);

 protected:
  bool event(QEvent* event) override;
};

// Runs a task on one of the pool's threads.
void StartTask(QThreadPool& pool, std::function<void()> task);
// Drops the pool's queued tasks and waits for the ones under way; what they
// did is then seen by the caller.
void ClearAndWait(QThreadPool& pool);
