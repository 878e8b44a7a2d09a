#pragma once
// How a stored play list is named where the user or a remote sees it: its
// Name, or "(no name)" for the empty Name that Cancel in the save dialog
// stores on purpose. The stored row keeps its Name as it is.

#include <string>

inline constexpr const char* kNoPlayListName = "(no name)";

inline std::string ShownPlayListName(const std::string& name) { return name.empty() ? kNoPlayListName : name; }
