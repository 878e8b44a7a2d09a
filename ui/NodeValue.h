#pragma once
// The item value of a library tree node: a kind's base plus an identifier,
// so that one signed number tells what the node stands for. Row keys stay far
// below the bases; the ranges are fixed. Pure functions; any thread.

#include <cstdint>

enum class NodeKind : int { None = -1, Folder = 0, Volume, Group, Root, PlayList };

// Identifiers of the Group and Root nodes.
enum GroupId : int { kLocalDisksGroup = 3, kCdsGroup = 5 };
enum RootId : int { kSpacerRoot = 1, kAllMediaRoot = 2, kSearchResultsRoot = 3, kPlayListsRoot = 4 };

struct DecodedNode {
  NodeKind kind = NodeKind::None;
  int id = -1;  // PathID, VolID, group's volume type, root number or PlayListID
};

constexpr std::int32_t kVolumeBase = 50000000;
constexpr std::int32_t kGroupBase = 60000000;
constexpr std::int32_t kRootBase = 70000000;
constexpr std::int32_t kPlayListBase = 80000000;

constexpr std::int32_t ItemValue(NodeKind kind, int id) {
  switch (kind) {
    case NodeKind::Volume:
      return kVolumeBase + id;
    case NodeKind::Group:
      return kGroupBase + id;
    case NodeKind::Root:
      return kRootBase + id;
    case NodeKind::PlayList:
      return kPlayListBase + id;
    default:
      return id;
  }
}

// 0, negatives and exactly kPlayListBase decode to no kind, with id -1.
constexpr DecodedNode DecodeItemValue(std::int32_t value) {
  if (value <= 0 || value == kPlayListBase) return {};
  if (value < kVolumeBase) return {NodeKind::Folder, value};
  if (value < kGroupBase) return {NodeKind::Volume, value - kVolumeBase};
  if (value < kRootBase) return {NodeKind::Group, value - kGroupBase};
  if (value < kPlayListBase) return {NodeKind::Root, value - kRootBase};
  return {NodeKind::PlayList, value - kPlayListBase};
}
