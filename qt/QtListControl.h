#pragma once
// A report-view list control: a QTableView over a ReportListModel behind the
// logic's list control interface. Several rows may be selected. The
// extended-style bits of the logic map to the view: grid lines, full-row
// selection and columns the user may drag into another order
// (CMediaList::kHeaderDragDrop). User-interface thread only.

#include <QTableView>
#include <functional>

#include "platform/ListControl.h"

class ReportListModel;

class QtListControl final : public QTableView, public platform::ListControl {
 public:
  explicit QtListControl(QWidget* parent = nullptr);

  // The user asked for a context menu over the list.
  std::function<void()> onContextMenu;
  // The user double-clicked a row.
  std::function<void()> onDoubleClick;

  void InsertColumn(int column, const std::string& heading, int width) override;
  int AppendRow(const std::vector<std::string>& texts, std::int32_t value) override;
  void DeleteRow(int row) override;
  void DeleteAllRows() override;
  int RowCount() const override;
  std::int32_t RowValue(int row) const override;
  std::string RowText(int row, int column) const override;
  bool IsSelected(int row) const override;
  void SetSelected(int row, bool selected) override;
  void SelectAll() override;
  unsigned ExtendedStyle() const override { return styles_; }
  void SetExtendedStyle(unsigned styles) override;

  ReportListModel& Model() const { return *model_; }

 protected:
  void contextMenuEvent(QContextMenuEvent* event) override;

 private:
  ReportListModel* model_;  // a child of the view
  unsigned styles_ = 0;
};
