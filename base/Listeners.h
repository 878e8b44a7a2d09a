#pragma once
// Any number of listeners, each known by the token its subscription returned,
// called in the order they subscribed. A listener may subscribe or
// unsubscribe others (or itself) while being called: each call works on the
// list as it was when the call began. Not thread-safe: one thread uses it.

#include <algorithm>
#include <functional>
#include <utility>
#include <vector>

template <class... Args>
class Listeners {
 public:
  using Listener = std::function<void(Args...)>;

  // Returns a token above 0 for Unsubscribe.
  int Subscribe(Listener listener) {
    entries_.push_back({++lastToken_, std::move(listener)});
    return lastToken_;
  }
  // An unknown token (or 0) is passed over.
  void Unsubscribe(int token) {
    std::erase_if(entries_, [token](const Entry& entry) { return entry.token == token; });
  }
  void Notify(Args... args) const {
    const auto entries = entries_;
    for (const Entry& entry : entries)
      if (Subscribed(entry.token)) entry.listener(args...);
  }
  bool Empty() const { return entries_.empty(); }

 private:
  struct Entry {
    int token;
    Listener listener;
  };
  bool Subscribed(int token) const {
    return std::any_of(entries_.begin(), entries_.end(), [token](const Entry& entry) { return entry.token == token; });
  }

  std::vector<Entry> entries_;
  int lastToken_ = 0;
};
