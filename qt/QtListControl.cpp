#include "qt/QtListControl.h"

#include <QContextMenuEvent>
#include <QHeaderView>

#include "qt/ReportListModel.h"
#include "ui/CMediaList.h"

QtListControl::QtListControl(QWidget* parent)
    : QTableView(parent), model_(new ReportListModel(this)) {
  setModel(model_);
  setSelectionMode(QAbstractItemView::ExtendedSelection);
  setEditTriggers(QAbstractItemView::NoEditTriggers);
  setWordWrap(false);
  setSortingEnabled(false);
  verticalHeader()->hide();
  verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);
  horizontalHeader()->setStretchLastSection(false);
  horizontalHeader()->setHighlightSections(false);
  SetExtendedStyle(0);
  connect(this, &QAbstractItemView::doubleClicked, this, [this] {
    if (onDoubleClick) onDoubleClick();
  });
}

void QtListControl::InsertColumn(int column, const std::string& heading, int width) {
  model_->InsertColumn(column, heading);
  setColumnWidth(std::min(column, model_->columnCount() - 1), width);
}

int QtListControl::AppendRow(const std::vector<std::string>& texts, std::int32_t value) {
  return model_->AppendRow(texts, value);
}

void QtListControl::DeleteRow(int row) { model_->RemoveRow(row); }

void QtListControl::DeleteAllRows() { model_->RemoveAllRows(); }

int QtListControl::RowCount() const {
  model_->Flush();
  return model_->rowCount();
}

std::int32_t QtListControl::RowValue(int row) const {
  model_->Flush();
  return model_->Value(row);
}

std::string QtListControl::RowText(int row, int column) const {
  model_->Flush();
  return model_->Text(row, column);
}

bool QtListControl::IsSelected(int row) const {
  model_->Flush();
  return selectionModel()->rowIntersectsSelection(row, {});
}

void QtListControl::SetSelected(int row, bool selected) {
  model_->Flush();
  const auto how = (selected ? QItemSelectionModel::Select : QItemSelectionModel::Deselect) |
                   QItemSelectionModel::Rows;
  selectionModel()->select(model_->index(row, 0), how);
}

void QtListControl::SelectAll() {
  model_->Flush();
  const int rows = model_->rowCount();
  const int columns = model_->columnCount();
  if (rows == 0 || columns == 0) return;
  selectionModel()->select(
      QItemSelection(model_->index(0, 0), model_->index(rows - 1, columns - 1)),
      QItemSelectionModel::Select | QItemSelectionModel::Rows);
}

void QtListControl::SetExtendedStyle(unsigned styles) {
  styles_ = styles;
  setShowGrid((styles & kGridLines) != 0);
  setSelectionBehavior((styles & kFullRowSelect) != 0 ? QAbstractItemView::SelectRows
                                                      : QAbstractItemView::SelectItems);
  horizontalHeader()->setSectionsMovable((styles & CMediaList::kHeaderDragDrop) != 0);
}

void QtListControl::contextMenuEvent(QContextMenuEvent* event) {
  event->accept();
  if (onContextMenu) onContextMenu();
}
