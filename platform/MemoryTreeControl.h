#pragma once
// A tree control kept in memory: for the console, which prints it, and for
// tests, which read its items directly. Handles count from 1 in order of
// insertion and start again after DeleteAllItems.

#include <vector>

#include "platform/TreeControl.h"

namespace platform {

class MemoryTreeControl : public TreeControl {
 public:
  struct Item {
    TreeItem parent = kNoItem;
    std::string label;
    std::int32_t value = 0;
    bool bold = false;
    bool expanded = false;
    std::vector<TreeItem> children;
  };

  std::vector<Item> items;  // handle h is items[h - 1]
  std::vector<TreeItem> topLevel;
  TreeItem selected = kNoItem;
  TreeItem shown = kNoItem;  // the item last scrolled into view

  TreeItem InsertItem(TreeItem parent, const std::string& label, std::int32_t value) override {
    items.push_back(Item{parent, label, value, false, false, {}});
    const auto item = static_cast<TreeItem>(items.size());
    (parent == kNoItem ? topLevel : At(parent).children).push_back(item);
    return item;
  }
  void DeleteAllItems() override {
    items.clear();
    topLevel.clear();
    selected = shown = kNoItem;
  }
  std::int32_t ItemValue(TreeItem item) const override { return At(item).value; }
  void SetBold(TreeItem item, bool bold) override { At(item).bold = bold; }
  void Expand(TreeItem item) override { At(item).expanded = true; }
  bool IsExpanded(TreeItem item) const override { return At(item).expanded; }
  void EnsureVisible(TreeItem item) override { shown = item; }
  void Select(TreeItem item) override { selected = item; }
  TreeItem SelectedItem() const override { return selected; }

  Item& At(TreeItem item) { return items.at(item - 1); }
  const Item& At(TreeItem item) const { return items.at(item - 1); }

  // The children of an item (or the top level), in order.
  const std::vector<TreeItem>& Children(TreeItem parent) const {
    return parent == kNoItem ? topLevel : At(parent).children;
  }

  // The first item carrying the value, or kNoItem.
  TreeItem Find(std::int32_t value) const {
    for (TreeItem h = 1; h <= items.size(); ++h)
      if (At(h).value == value) return h;
    return kNoItem;
  }
};

}  // namespace platform
