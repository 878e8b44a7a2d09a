#include "qt/QtTreeControl.h"

#include <QContextMenuEvent>
#include <QHeaderView>

#include "qt/dialogs/QtText.h"

namespace {

constexpr int kValueRole = Qt::UserRole;
constexpr int kHandleRole = Qt::UserRole + 1;

// Holds a flag up for the lifetime of the object.
class FlagUp {
 public:
  explicit FlagUp(bool& flag) : flag_(flag), before_(flag) { flag_ = true; }
  ~FlagUp() { flag_ = before_; }
  FlagUp(const FlagUp&) = delete;
  FlagUp& operator=(const FlagUp&) = delete;

 private:
  bool& flag_;
  bool before_;
};

}  // namespace

QtTreeControl::QtTreeControl(QWidget* parent) : QTreeWidget(parent) {
  setHeaderHidden(true);
  setColumnCount(1);
  setSelectionMode(QAbstractItemView::SingleSelection);
  setRootIsDecorated(true);
  setMouseTracking(true);  // hot tracking
  setDragEnabled(false);
  header()->setStretchLastSection(true);
  connect(this, &QTreeWidget::itemSelectionChanged, this, [this] { ReportSelection(); });
}

platform::TreeItem QtTreeControl::InsertItem(platform::TreeItem parent, const std::string& label, std::int32_t value) {
  FlagUp changing(changing_);
  auto* item = new QTreeWidgetItem(QStringList{ToQString(label)});
  item->setData(0, kValueRole, value);
  if (QTreeWidgetItem* parentItem = Item(parent))
    parentItem->addChild(item);
  else
    addTopLevelItem(item);
  items_.push_back(item);
  const auto handle = static_cast<platform::TreeItem>(items_.size());
  item->setData(0, kHandleRole, handle);
  return handle;
}

void QtTreeControl::DeleteAllItems() {
  FlagUp changing(changing_);
  clear();
  items_.clear();
}

std::int32_t QtTreeControl::ItemValue(platform::TreeItem item) const {
  const QTreeWidgetItem* shown = Item(item);
  return shown ? shown->data(0, kValueRole).toInt() : 0;
}

void QtTreeControl::SetBold(platform::TreeItem item, bool bold) {
  if (QTreeWidgetItem* shown = Item(item)) {
    QFont font = shown->font(0);
    font.setBold(bold);
    shown->setFont(0, font);
  }
}

void QtTreeControl::Expand(platform::TreeItem item) {
  if (QTreeWidgetItem* shown = Item(item)) shown->setExpanded(true);
}

bool QtTreeControl::IsExpanded(platform::TreeItem item) const {
  const QTreeWidgetItem* shown = Item(item);
  return shown && shown->isExpanded();
}

void QtTreeControl::EnsureVisible(platform::TreeItem item) {
  if (QTreeWidgetItem* shown = Item(item)) scrollToItem(shown);
}

void QtTreeControl::Select(platform::TreeItem item) {
  FlagUp changing(changing_);
  setCurrentItem(Item(item));
}

platform::TreeItem QtTreeControl::SelectedItem() const {
  const QList<QTreeWidgetItem*> selected = selectedItems();
  return selected.isEmpty() ? kNoItem : Handle(selected.front());
}

platform::TreeItem QtTreeControl::Handle(const QTreeWidgetItem* item) const {
  return item ? item->data(0, kHandleRole).value<platform::TreeItem>() : kNoItem;
}

QTreeWidgetItem* QtTreeControl::Item(platform::TreeItem handle) const {
  if (handle == kNoItem || handle > items_.size()) return nullptr;
  return items_[handle - 1];
}

void QtTreeControl::contextMenuEvent(QContextMenuEvent* event) {
  event->accept();
  const bool byMouse = event->reason() == QContextMenuEvent::Mouse;
  const platform::TreeItem hit = byMouse ? Handle(itemAt(event->pos())) : kNoItem;
  if (onContextMenu) onContextMenu(hit);
}

void QtTreeControl::ReportSelection() const {
  if (changing_ || !onSelectionChanged) return;
  const platform::TreeItem selected = SelectedItem();
  if (selected != kNoItem) onSelectionChanged(selected);
}
