#include "qt/QtListControl.h"

#include <QContextMenuEvent>
#include <QDrag>
#include <QDropEvent>
#include <QHeaderView>
#include <QMimeData>
#include <QPainter>
#include <QUrl>

#include "playlists/FileIds.h"
#include "qt/ReportListModel.h"
#include "qt/dialogs/QtText.h"
#include "ui/CMediaList.h"

QtListControl::QtListControl(QWidget* parent) : QTableView(parent), model_(new ReportListModel(this)) {
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
  connect(horizontalHeader(), &QHeaderView::sectionClicked, this, [this](int column) {
    if (onHeaderClicked) onHeaderClicked(column);
  });
  horizontalHeader()->setContextMenuPolicy(Qt::CustomContextMenu);
  connect(horizontalHeader(), &QWidget::customContextMenuRequested, this, [this] {
    if (onHeaderContextMenu) onHeaderContextMenu();
  });
}

void QtListControl::InsertColumn(int column, const std::string& heading, int width) {
  model_->InsertColumn(column, heading);
  setColumnWidth(std::min(column, model_->columnCount() - 1), width);
}

int QtListControl::AppendRow(const std::vector<std::string>& texts, std::int32_t value) {
  return model_->AppendRow(texts, value);
}

void QtListControl::AppendRows(std::vector<AddedRow> rows) {
  for (AddedRow& row : rows) model_->AppendRow(std::move(row.texts), row.value);
}

void QtListControl::AppendRowsByValue(const std::vector<std::int32_t>& values, RowTextSource source) {
  model_->AppendByValue(values, std::move(source));
}

void QtListControl::SetRowTexts(int row, const std::vector<std::string>& texts) { model_->SetTexts(row, texts); }

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

void QtListControl::SelectAll() {
  model_->Flush();
  const int rows = model_->rowCount();
  const int columns = model_->columnCount();
  if (rows == 0 || columns == 0) return;
  selectionModel()->select(QItemSelection(model_->index(0, 0), model_->index(rows - 1, columns - 1)),
                           QItemSelectionModel::Select | QItemSelectionModel::Rows);
}

void QtListControl::SelectOnly(int row) {
  model_->Flush();
  if (row < 0 || row >= model_->rowCount()) return;
  const QModelIndex index = model_->index(row, 0);
  selectionModel()->select(index, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
  selectionModel()->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
  scrollTo(index);
}

void QtListControl::SetExtendedStyle(unsigned styles) {
  styles_ = styles;
  setShowGrid((styles & kGridLines) != 0);
  setSelectionBehavior((styles & kFullRowSelect) != 0 ? QAbstractItemView::SelectRows : QAbstractItemView::SelectItems);
  horizontalHeader()->setSectionsMovable((styles & CMediaList::kHeaderDragDrop) != 0);
}

void QtListControl::ReorderRows(const std::vector<int>& order) { model_->Reorder(order); }

void QtListControl::SetSortIndicator(int column, bool ascending) {
  horizontalHeader()->setSortIndicatorShown(column >= 0);
  horizontalHeader()->setSortIndicator(column, ascending ? Qt::AscendingOrder : Qt::DescendingOrder);
}

void QtListControl::SetEmptyText(const std::string& text) {
  emptyText_ = ToQString(text);
  viewport()->update();
}

int QtListControl::ColumnWidth(int column) const {
  const auto hidden = hiddenWidths_.find(column);
  return hidden != hiddenWidths_.end() ? hidden->second : columnWidth(column);
}

void QtListControl::SetColumnWidth(int column, int width) {
  if (const auto hidden = hiddenWidths_.find(column); hidden != hiddenWidths_.end())
    hidden->second = width;
  else
    setColumnWidth(column, width);
}

void QtListControl::SetColumnHidden(int column, bool hidden) {
  if (hidden == IsColumnHidden(column)) return;
  if (hidden) {
    hiddenWidths_[column] = columnWidth(column);
    setColumnHidden(column, true);
    return;
  }
  const int width = hiddenWidths_[column];
  hiddenWidths_.erase(column);
  setColumnHidden(column, false);
  setColumnWidth(column, width);
}

bool QtListControl::IsColumnHidden(int column) const { return hiddenWidths_.count(column) > 0; }

std::vector<int> QtListControl::ColumnOrder() const {
  std::vector<int> order;
  order.reserve(static_cast<std::size_t>(horizontalHeader()->count()));
  for (int visual = 0; visual < horizontalHeader()->count(); ++visual)
    order.push_back(horizontalHeader()->logicalIndex(visual));
  return order;
}

void QtListControl::SetColumnOrder(const std::vector<int>& order) {
  QHeaderView& header = *horizontalHeader();
  for (int visual = 0; visual < static_cast<int>(order.size()) && visual < header.count(); ++visual)
    header.moveSection(header.visualIndex(order[static_cast<std::size_t>(visual)]), visual);
}

int QtListControl::TextWidth(const std::string& text) const { return fontMetrics().horizontalAdvance(ToQString(text)); }

void QtListControl::paintEvent(QPaintEvent* event) {
  QTableView::paintEvent(event);
  if (emptyText_.isEmpty() || model_->rowCount() > 0) return;
  QPainter painter(viewport());
  painter.setPen(palette().color(QPalette::PlaceholderText));
  painter.drawText(viewport()->rect(), Qt::AlignCenter | Qt::TextWordWrap, emptyText_);
}

void QtListControl::AllowDragging(bool rowsMovable) {
  rowsMovable_ = rowsMovable;
  setDragEnabled(true);
  setAcceptDrops(rowsMovable);
  viewport()->setAcceptDrops(rowsMovable);
  setDragDropMode(rowsMovable ? QAbstractItemView::DragDrop : QAbstractItemView::DragOnly);
  setDropIndicatorShown(rowsMovable);
}

std::unique_ptr<QMimeData> QtListControl::DragData() const {
  IdList ids;
  QStringList rows;
  for (int row = 0; row < RowCount(); ++row) {
    if (!IsSelected(row)) continue;
    ids.push_back(RowValue(row));
    rows.push_back(QString::number(row));
  }
  auto carried = std::make_unique<QMimeData>();
  carried->setData(kFileIdsMime, QByteArray::fromStdString(BuildIdList(ids)));
  // Rows make sense to this list only: they name it.
  if (rowsMovable_)
    carried->setData(kRowsMime, (QString::number(reinterpret_cast<quintptr>(this)) + ";" + rows.join(',')).toUtf8());
  return carried;
}

// Qt calls the overrides of its virtuals; cppcheck sees no caller.
// cppcheck-suppress unusedFunction
void QtListControl::startDrag(Qt::DropActions) {
  std::unique_ptr<QMimeData> carried = DragData();
  if (carried->data(kFileIdsMime).isEmpty()) return;
  auto* drag = new QDrag(this);
  drag->setMimeData(carried.release());
  drag->exec(Qt::CopyAction | Qt::MoveAction, Qt::CopyAction);
}

bool QtListControl::Accepts(const QMimeData& carried) const {
  return rowsMovable_ && (carried.hasFormat(kFileIdsMime) || carried.hasUrls());
}

// cppcheck-suppress unusedFunction
void QtListControl::dragEnterEvent(QDragEnterEvent* event) {
  if (Accepts(*event->mimeData()))
    event->acceptProposedAction();
  else
    event->ignore();
}

// cppcheck-suppress unusedFunction
void QtListControl::dragMoveEvent(QDragMoveEvent* event) {
  if (Accepts(*event->mimeData()))
    event->acceptProposedAction();
  else
    event->ignore();
}

// Before the row under the point, or after it when the point lies in its
// lower half; at the end below the last row.
int QtListControl::RowBefore(const QPoint& at) const {
  const QModelIndex index = indexAt(at);
  if (!index.isValid()) return RowCount();
  const QRect cell = visualRect(index);
  return at.y() > cell.center().y() ? index.row() + 1 : index.row();
}

// cppcheck-suppress unusedFunction
void QtListControl::dropEvent(QDropEvent* event) {
  if (!Accepts(*event->mimeData())) return event->ignore();
  event->acceptProposedAction();
  Drop(*event->mimeData(), event->position().toPoint());
}

void QtListControl::Drop(const QMimeData& carried, const QPoint& at) {
  if (!Accepts(carried)) return;
  const QStringList rows = QString::fromUtf8(carried.data(kRowsMime)).split(';');
  if (rows.size() == 2 && rows[0] == QString::number(reinterpret_cast<quintptr>(this))) {
    std::vector<int> moved;
    for (const QString& row : rows[1].split(',', Qt::SkipEmptyParts)) moved.push_back(row.toInt());
    if (onRowsMoved) onRowsMoved(moved, RowBefore(at));
  } else if (carried.hasFormat(kFileIdsMime)) {
    if (onFileIdsDropped) onFileIdsDropped(ParseIdList(carried.data(kFileIdsMime).toStdString()));
  } else if (onLocalFilesDropped) {
    std::vector<std::string> paths;
    for (const QUrl& url : carried.urls())
      if (url.isLocalFile()) paths.push_back(ToStdString(url.toLocalFile()));
    onLocalFilesDropped(paths);
  }
}

void QtListControl::contextMenuEvent(QContextMenuEvent* event) {
  event->accept();
  if (onContextMenu) onContextMenu();
}
