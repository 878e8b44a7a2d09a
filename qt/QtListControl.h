#pragma once
// A report-view list control: a QTableView over a ReportListModel behind the
// logic's list control interface. Several rows may be selected. The
// extended-style bits of the logic map to the view: grid lines, full-row
// selection and columns the user may drag into another order
// (CMediaList::kHeaderDragDrop). User-interface thread only.

#include <QTableView>
#include <functional>
#include <map>
#include <memory>

#include "platform/ListControl.h"

class QMimeData;
class ReportListModel;

class QtListControl final : public QTableView, public platform::ListControl {
 public:
  explicit QtListControl(QWidget* parent = nullptr);

  // The user asked for a context menu over the list.
  std::function<void()> onContextMenu;
  // The user double-clicked a row.
  std::function<void()> onDoubleClick;
  // The user clicked a column's heading (the column's number at insertion).
  std::function<void(int)> onHeaderClicked;
  // The user asked for a context menu over the headings.
  std::function<void()> onHeaderContextMenu;

  // Dragging: the selected rows leave as their item values (file ids); with
  // rows movable, they also move within the list, and file ids and files
  // from a file manager may be dropped in.
  static constexpr const char* kFileIdsMime = "application/x-vantrelle-file-ids";
  static constexpr const char* kRowsMime = "application/x-vantrelle-rows";
  void AllowDragging(bool rowsMovable);
  // What a drag of the selected rows carries.
  std::unique_ptr<QMimeData> DragData() const;
  // What dropping the data at a point of the viewport does.
  void Drop(const QMimeData& carried, const QPoint& at);
  // The user dropped rows of this list before row `before` (RowCount: at the end).
  std::function<void(const std::vector<int>&, int)> onRowsMoved;
  std::function<void(const std::vector<std::int32_t>&)> onFileIdsDropped;
  std::function<void(const std::vector<std::string>&)> onLocalFilesDropped;

  void InsertColumn(int column, const std::string& heading, int width) override;
  int AppendRow(const std::vector<std::string>& texts, std::int32_t value) override;
  void AppendRows(std::vector<AddedRow> rows) override;
  void AppendRowsByValue(const std::vector<std::int32_t>& values, RowTextSource source) override;
  void SetRowTexts(int row, const std::vector<std::string>& texts) override;
  void DeleteRow(int row) override;
  void DeleteAllRows() override;
  int RowCount() const override;
  std::int32_t RowValue(int row) const override;
  std::string RowText(int row, int column) const override;
  bool IsSelected(int row) const override;
  void SelectAll() override;
  void SelectOnly(int row) override;
  unsigned ExtendedStyle() const override { return styles_; }
  void SetExtendedStyle(unsigned styles) override;
  void ReorderRows(const std::vector<int>& order) override;
  void SetSortIndicator(int column, bool ascending) override;
  void SetEmptyText(const std::string& text) override;
  int ColumnWidth(int column) const override;
  void SetColumnWidth(int column, int width) override;
  std::vector<int> ColumnOrder() const override;
  void SetColumnOrder(const std::vector<int>& order) override;
  void SetColumnHidden(int column, bool hidden) override;
  bool IsColumnHidden(int column) const override;
  int TextWidth(const std::string& text) const override;

  const QString& EmptyText() const { return emptyText_; }

  ReportListModel& Model() const { return *model_; }

 protected:
  void contextMenuEvent(QContextMenuEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void startDrag(Qt::DropActions actions) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dragMoveEvent(QDragMoveEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  ReportListModel* model_;  // a child of the view
  unsigned styles_ = 0;
  QString emptyText_;
  bool rowsMovable_ = false;
  // The hidden columns with the widths they show at again (the header
  // gives a hidden section no width).
  std::map<int, int> hiddenWidths_;

  bool Accepts(const QMimeData& carried) const;
  int RowBefore(const QPoint& at) const;
};
