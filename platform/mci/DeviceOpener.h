#pragma once
// Opens files as devices on a thread of their own, so that an open wedged in
// the kernel (a file replaced by a named pipe, a network share that no
// longer answers, where even stat never returns) cannot hold up the thread
// that sends the commands. That thread waits at most the time limit, and
// less when a later command gives the open up.
//
// Open is called from one thread (the one sending the commands);
// AbandonThrough from any thread.

#include <chrono>
#include <cstdint>
#include <memory>
#include <mutex>
#include <string>

#include "platform/mci/GstMediaControl.h"

namespace platform::mci {

class AudioCapture;
class PlaybinDevice;
struct PendingOpen;

// Whether file is a regular file (links followed) that opens for reading;
// otherwise false with error 275, kMciNotRegularFile or 296. Folders, pipes,
// sockets and devices are refused before anything opens them.
bool ReachRegularFile(const std::string& file, std::uint32_t& error);

class DeviceOpener {
 public:
  explicit DeviceOpener(std::chrono::milliseconds limit);
  ~DeviceOpener();
  DeviceOpener(const DeviceOpener&) = delete;
  DeviceOpener& operator=(const DeviceOpener&) = delete;

  // The device of a regular file (links followed), or null with error set:
  // 275 missing, kMciNotRegularFile, 296, 262 (see PlaybinDevice::Open),
  // kMciOpenTimedOut after the limit, kMciOpenAbandoned when given up.
  // number 0 is never given up.
  std::unique_ptr<PlaybinDevice> Open(const std::string& file, AudioOutput output, std::uint64_t number,
                                      std::uint32_t& error, std::shared_ptr<AudioCapture> capture = nullptr);
  // Gives up every open numbered up to number, now waiting or to come.
  void AbandonThrough(std::uint64_t number);

  std::chrono::milliseconds Limit() const { return limit_; }

 private:
  std::chrono::milliseconds limit_;
  std::mutex mutex_;  // guards the three below
  std::uint64_t abandonedThrough_ = 0;
  std::shared_ptr<PendingOpen> waiting_;
  std::uint64_t waitingNumber_ = 0;
};

}  // namespace platform::mci
