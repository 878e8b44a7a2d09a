#include "qt/dialogs/QueuedCalls.h"

#include <QCoreApplication>
#include <QEvent>
#include <QRunnable>
#include <QThread>
#include <QThreadPool>
#include <condition_variable>
#include <mutex>

#include "base/ThreadHandOver.h"

namespace {

const QEvent::Type kCallEvent = static_cast<QEvent::Type>(QEvent::registerEventType());

class CallEvent : public QEvent {
 public:
  explicit CallEvent(std::function<void()> call) : QEvent(kCallEvent), call_(std::move(call)) { HandOver(this); }
  // A call dropped unrun is destroyed on whichever thread drops it.
  ~CallEvent() override { TakeOver(this); }
  void Run() {
    TakeOver(this);
    call_();
  }

 private:
  std::function<void()> call_;
};

class TaskRunnable : public QRunnable {
 public:
  TaskRunnable(std::function<void()> task, QThreadPool& pool) : task_(std::move(task)), pool_(pool) { HandOver(this); }
  void run() override {
    TakeOver(this);
    task_();
    HandOver(&pool_);
  }

 private:
  std::function<void()> task_;
  QThreadPool& pool_;
};

}  // namespace

void QueuedCalls::Post(std::function<void()> call) {
  QCoreApplication::postEvent(this, new CallEvent(std::move(call)));
}

void QueuedCalls::RunAndWait(const std::function<void()>& call) {
  if (QThread::currentThread() == thread()) return call();
  std::mutex mutex;
  std::condition_variable ran;
  bool done = false;
  Post([&] {
    call();
    const std::lock_guard lock(mutex);
    done = true;
    ran.notify_one();
  });
  std::unique_lock lock(mutex);
  ran.wait(lock, [&] { return done; });
}

bool QueuedCalls::event(QEvent* event) {
  TakeOver(event);  // before reading what the poster wrote, its type included
  if (event->type() != kCallEvent) return QObject::event(event);
  static_cast<CallEvent*>(event)->Run();
  return true;
}

void StartTask(QThreadPool& pool, std::function<void()> task) { pool.start(new TaskRunnable(std::move(task), pool)); }

void ClearAndWait(QThreadPool& pool) {
  pool.clear();
  pool.waitForDone();
  TakeOver(&pool);
}
