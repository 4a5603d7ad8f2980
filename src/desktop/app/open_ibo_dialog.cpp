#include "app/open_ibo_dialog.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>
#include <algorithm>

#include "app/host_window.h"

namespace pelkor::desktop {
namespace {

constexpr int kWidth = 600;
// Rows shown without scrolling; a longer list scrolls.
constexpr int kMostRowsShown = 20;
enum Column { kId, kNumber, kCompany, kStatus, kMode, kTable, kColumnCount };

QTableWidgetItem* Cell(const QString& text, Qt::Alignment alignment = Qt::AlignLeft) {
  auto* item = new QTableWidgetItem(text);
  item->setTextAlignment(alignment | Qt::AlignVCenter);
  return item;
}

}  // namespace

OpenIboDialog::OpenIboDialog(std::vector<IboSummary> ibos, const QString& source, QWidget* parent)
    : QDialog(parent), ibos_(std::move(ibos)), table_(new QTableWidget(this)) {
  setObjectName("dlgOpenIbo");
  setWindowTitle(tr("Open IBO"));
  auto* heading = new QLabel(tr("IBOs of the main table and the archive of %1:").arg(source), this);
  heading->setObjectName("lblIboSource");
  heading->setWordWrap(true);
  table_->setObjectName("tblIbos");
  table_->setColumnCount(kColumnCount);
  table_->setHorizontalHeaderLabels(
      {tr("Id"), tr("Number"), tr("Company"), tr("Status"), tr("Mode"), tr("Table")});
  table_->setRowCount(static_cast<int>(ibos_.size()));
  table_->setSelectionBehavior(QAbstractItemView::SelectRows);
  table_->setSelectionMode(QAbstractItemView::SingleSelection);
  table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  table_->verticalHeader()->hide();
  table_->horizontalHeader()->setSectionResizeMode(kCompany, QHeaderView::Stretch);
  for (int row = 0; row < table_->rowCount(); ++row) {
    const IboSummary& ibo = ibos_[static_cast<std::size_t>(row)];
    table_->setItem(row, kId, Cell(QString::number(ibo.id), Qt::AlignRight));
    table_->setItem(row, kNumber, Cell(QString::number(ibo.iboNumber), Qt::AlignRight));
    table_->setItem(row, kCompany, Cell(QString::fromStdString(ibo.company)));
    table_->setItem(row, kStatus, Cell(StatusName(ibo.status)));
    table_->setItem(row, kMode, Cell(ibo.expert ? tr("Expert") : tr("Basic")));
    table_->setItem(row, kTable, Cell(ibo.archived ? tr("Archive") : tr("Main")));
  }
  table_->resizeColumnsToContents();
  table_->horizontalHeader()->setSectionResizeMode(kCompany, QHeaderView::Stretch);
  if (!ibos_.empty()) table_->selectRow(0);

  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Open | QDialogButtonBox::Cancel, this);
  QPushButton* open = buttons->button(QDialogButtonBox::Open);
  open->setDefault(true);
  open->setEnabled(!ibos_.empty());
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  connect(table_, &QTableWidget::cellDoubleClicked, this, &QDialog::accept);

  auto* layout = new QVBoxLayout(this);
  layout->addWidget(heading);
  layout->addWidget(table_);
  layout->addWidget(buttons);
  table_->setFocus();
  // Tall enough for every row (up to a point), so a short list needs no scrolling.
  const int rows = std::min(table_->rowCount(), kMostRowsShown);
  const int rowHeight = table_->verticalHeader()->defaultSectionSize();
  const int tableHeight =
      table_->horizontalHeader()->sizeHint().height() + rows * rowHeight + 2 * table_->frameWidth();
  table_->setMinimumHeight(tableHeight);
  resize(kWidth, sizeHint().height());
}

std::optional<IboSummary> OpenIboDialog::Chosen() const {
  const int row = table_->currentRow();
  if (result() != QDialog::Accepted || row < 0 || row >= static_cast<int>(ibos_.size())) {
    return std::nullopt;
  }
  return ibos_[static_cast<std::size_t>(row)];
}

}  // namespace pelkor::desktop
