#pragma once
// Linux paths as file URLs ("file:///Music/A%20B.mp3") and back, as play list
// files hold them. Pure functions of their text; any thread.

#include <optional>
#include <string>

// "file://" and the path with every byte but the unreserved ones (letters,
// digits, "-", ".", "_", "~") and "/" written as %XX.
std::string FileUrlOf(const std::string& path);

// Each %XX (hex digits of either case) as its byte; a "%" not followed by two
// hex digits stays as it is. "+" is no blank here.
std::string PercentDecode(const std::string& text);

// The local path of a file URL ("file:///p", "file://localhost/p" or
// "file:/p", the scheme in either case), percent-decoded; none for any other
// text, a URL naming another host among them.
std::optional<std::string> PathOfFileUrl(const std::string& url);
