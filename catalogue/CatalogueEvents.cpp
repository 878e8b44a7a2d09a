#include "catalogue/CatalogueEvents.h"

#include "base/ThreadOwner.h"

void CatalogueEvents::Publish(const CatalogueChanges& changes) {
  if (changes.Empty()) return;
  std::unique_lock lock(mutex_);
  pending_.Merge(changes);
  if (owner_.Lent()) return;  // the loan's end schedules the delivery
  ScheduleDelivery(lock);
}

void CatalogueEvents::LoanEnded() {
  std::unique_lock lock(mutex_);
  if (pending_.Empty()) return;
  // Without a poster the owner delivers when it takes the catalogue back.
  if (poster_) ScheduleDelivery(lock);
}

void CatalogueEvents::ScheduleDelivery(std::unique_lock<std::mutex>& lock) {
  if (!poster_) {
    lock.unlock();
    DeliverPending();
    return;
  }
  if (scheduled_) return;
  scheduled_ = true;
  lock.unlock();
  poster_([this] { DeliverPending(); });
}

void CatalogueEvents::DeliverPending() {
  CatalogueChanges changes;
  {
    std::lock_guard lock(mutex_);
    scheduled_ = false;
    if (owner_.Lent() || pending_.Empty()) return;
    std::swap(changes, pending_);
  }
  owner_.Check();
  listeners_.Notify(changes);
}
