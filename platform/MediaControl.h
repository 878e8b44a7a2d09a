#pragma once
// A media-control string interface: textual commands such as
// `open "C:\a.mp3" type mpegvideo alias X`, `play X from 0`, `status X length`,
// answered with 0 or a numeric error code, and a reply text where asked for.
//
// Used from one thread at a time: the user-interface thread, or the one thread
// the desktop program hands the player's commands to; AbandonOpensThrough
// alone from any thread.

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace platform {

// Error numbers the player and its callers may meet.
enum MediaControlError : std::uint32_t {
  kMciNoError = 0,
  kMciUnrecognizedCommand = 261,
  kMciNoAudioOutput = 262,
  kMciUnknownAlias = 263,
  kMciFileNotFound = 275,
  kMciOutOfRange = 282,
  kMciAliasInUse = 289,
  kMciCannotDecode = 296,
  // Ours: a path that is a folder, a pipe, a socket or a device.
  kMciNotRegularFile = 320,
  // Ours: the open did not finish within the media control's time limit.
  kMciOpenTimedOut = 321,
  // Ours: a later command gave up the open (AbandonOpensThrough).
  kMciOpenAbandoned = 322,
};

class MediaControl {
 public:
  virtual ~MediaControl() = default;

  // Runs one command. When reply is not null, up to size - 1 bytes of the
  // answer are written there, zero-terminated. Returns 0 or an error number.
  virtual std::uint32_t mciSendString(const char* command, char* reply, unsigned size) = 0;

  // Writes the text of an error number (at most size - 1 bytes, zero-terminated).
  // Returns false for a number it does not know, leaving an empty text.
  virtual bool mciGetErrorString(std::uint32_t code, char* text, unsigned size) = 0;

  // Opens can be given up from another thread. The thread that sends the
  // commands numbers the open it sends next (numbers rise from 1; an open
  // left unnumbered is never given up). AbandonOpensThrough may be called
  // from any thread: every open numbered up to `number` that waits now, or
  // that is sent later, ends at once with kMciOpenAbandoned. A media
  // control whose opens always return promptly may ignore both.
  virtual void NumberNextOpen(std::uint64_t /*number*/) {}
  virtual void AbandonOpensThrough(std::uint64_t /*number*/) {}
};

// Fills a reply or error-text buffer as the two calls above do: up to
// size - 1 bytes of text and a terminating zero. A null buffer or a size of
// 0 takes nothing.
inline void CopyTruncated(std::string_view text, char* out, unsigned size) {
  if (out == nullptr || size == 0) return;
  const std::size_t count = std::min<std::size_t>(text.size(), size - 1);
  std::memcpy(out, text.data(), count);
  out[count] = '\0';
}

}  // namespace platform
