#pragma once
// The one catalogue change event. Whatever changes the catalogue publishes
// what it changed once it is committed; every listener (the tree, the media
// list, the play list window, the now-playing strip, the session bus) hears
// of it on the thread that owns the catalogue, the window's.
//
// Changes published on the owning thread reach the listeners at once, or
// through the poster when one is set (the window posts them to its event
// loop, so that a listener never runs inside the code that made the change).
// Changes a worker publishes while it holds the catalogue are kept until the
// loan ends and the owner takes them (DeliverPending, or the poster).

#include <functional>
#include <mutex>

#include "base/Listeners.h"
#include "catalogue/CatalogueChanges.h"

class ThreadOwner;

class CatalogueEvents {
 public:
  using Listener = std::function<void(const CatalogueChanges&)>;
  // Runs a function later on the owning thread; callable from any thread.
  using Poster = std::function<void(std::function<void()>)>;

  explicit CatalogueEvents(const ThreadOwner& owner) : owner_(owner) {}

  // Owning thread only. Returns a token for Unsubscribe.
  int Subscribe(Listener listener) { return listeners_.Subscribe(std::move(listener)); }
  void Unsubscribe(int token) { listeners_.Unsubscribe(token); }
  // Set once, before any change; an empty poster delivers at once.
  void PostWith(Poster poster) { poster_ = std::move(poster); }

  // Any thread: the changes of one commit.
  void Publish(const CatalogueChanges& changes);
  // A worker's loan ended: its changes may now be delivered.
  void LoanEnded();
  // Owning thread: hands what is pending to the listeners, unless a worker
  // holds the catalogue.
  void DeliverPending();

 private:
  // Asks the poster for a delivery unless one is already asked for.
  void ScheduleDelivery(std::unique_lock<std::mutex>& lock);

  const ThreadOwner& owner_;
  Listeners<const CatalogueChanges&> listeners_;
  Poster poster_;
  std::mutex mutex_;  // guards what follows
  CatalogueChanges pending_;
  bool scheduled_ = false;
};
