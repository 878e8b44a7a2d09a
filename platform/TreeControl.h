#pragma once
// A tree control: items under items, each with a label and a signed item
// value, one selected item, and bold and expanded states. Items are appended
// after the last child of their parent. Hit testing stays with the front end:
// a context-menu request reaches the logic with the item hit, or none.
// Used from the user-interface thread only.

#include <cstdint>
#include <string>

namespace platform {

// A handle to an item; meaningless once the items are deleted.
using TreeItem = std::uint32_t;

class TreeControl {
 public:
  // No item; as a parent, the top level.
  static constexpr TreeItem kNoItem = 0;

  virtual ~TreeControl() = default;

  virtual TreeItem InsertItem(TreeItem parent, const std::string& label, std::int32_t value) = 0;
  // Deletes every item; nothing is selected afterwards.
  virtual void DeleteAllItems() = 0;

  virtual std::int32_t ItemValue(TreeItem item) const = 0;
  virtual void SetBold(TreeItem item, bool bold) = 0;
  virtual void Expand(TreeItem item) = 0;
  virtual bool IsExpanded(TreeItem item) const = 0;
  // Scrolls the tree so that the item shows.
  virtual void EnsureVisible(TreeItem item) = 0;

  // Selects the item without reporting it back as a selection change: the
  // logic that selects runs the selection steps itself.
  virtual void Select(TreeItem item) = 0;
  virtual TreeItem SelectedItem() const = 0;
};

}  // namespace platform
