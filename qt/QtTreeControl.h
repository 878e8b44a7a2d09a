#pragma once
// The library tree's control: a QTreeWidget behind the logic's tree control
// interface. Handles count from 1 in order of insertion and start again
// after DeleteAllItems. Only the user's own actions are reported back (a
// new selection, a context-menu request); what the logic does to the tree
// is not. User-interface thread only.

#include <QTreeWidget>
#include <functional>
#include <vector>

#include "platform/TreeControl.h"

class QtTreeControl final : public QTreeWidget, public platform::TreeControl {
 public:
  explicit QtTreeControl(QWidget* parent = nullptr);

  // The user selected this item.
  std::function<void(platform::TreeItem)> onSelectionChanged;
  // The user asked for a context menu: the item under the mouse, or kNoItem
  // (empty space, or a request from the keyboard).
  std::function<void(platform::TreeItem)> onContextMenu;

  platform::TreeItem InsertItem(platform::TreeItem parent, const std::string& label, std::int32_t value) override;
  void DeleteAllItems() override;
  std::int32_t ItemValue(platform::TreeItem item) const override;
  void SetBold(platform::TreeItem item, bool bold) override;
  void Expand(platform::TreeItem item) override;
  bool IsExpanded(platform::TreeItem item) const override;
  void EnsureVisible(platform::TreeItem item) override;
  void Select(platform::TreeItem item) override;
  platform::TreeItem SelectedItem() const override;

  // The handle of a shown item (for tests and the context menu), or kNoItem.
  platform::TreeItem Handle(const QTreeWidgetItem* item) const;
  QTreeWidgetItem* Item(platform::TreeItem handle) const;

 protected:
  void contextMenuEvent(QContextMenuEvent* event) override;

 private:
  void ReportSelection() const;

  std::vector<QTreeWidgetItem*> items_;  // handle h is items_[h - 1]
  bool changing_ = false;                // the logic is changing the tree
};
