#include "product_view/product_table.h"

#include <QDate>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLocale>
#include <QMenu>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>

#include "binding/date_widgets.h"
#include "product_view/product_table_view.h"
#include "products/product_text.h"
#include "values/error.h"

namespace pelkor::desktop {
namespace {

using Column = ProductListView::Column;

constexpr std::array<Column, ProductTableModel::kFixedColumns> kFixed = {
    Column::kProduct, Column::kQuantity, Column::kUnitPrice, Column::kDiscount, Column::kValue};
constexpr std::array<Column, 2> kChoices = {Column::kDelivery, Column::kNote};
constexpr int kMoneyDecimals = 2;

bool Numeric(Column column) {
  return column == Column::kQuantity || column == Column::kUnitPrice || column == Column::kValue ||
         column == Column::kDiscount;
}

}  // namespace

NumberMarks LocaleNumberMarks() {
  const QLocale locale = QLocale::system();
  return {locale.decimalPoint().toStdString(), locale.groupSeparator().toStdString()};
}

ProductTableModel::ProductTableModel(std::shared_ptr<ProductListView> view, QObject* parent)
    : QAbstractTableModel(parent), view_(std::move(view)) {
  // Amounts are typed and shown as the user's locale writes numbers.
  view_->SetNumberMarks(LocaleNumberMarks());
  view_->onChanged = [this] {
    if (!editing_) Reset();
    emit totalChanged();
  };
}

ProductTableModel::~ProductTableModel() {
  view_->onChanged = nullptr;
}

int ProductTableModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(view_->List().lines.size());
}

int ProductTableModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : kFixedColumns + kChosenColumns;
}

ProductTableModel::Column ProductTableModel::ColumnAt(int section) const {
  if (Chosen(section)) return chosen_.at(static_cast<std::size_t>(section - kFixedColumns));
  return kFixed.at(static_cast<std::size_t>(section));
}

QString ProductTableModel::ColumnTitle(Column column) {
  switch (column) {
    case Column::kProduct:
      return tr("Product");
    case Column::kQuantity:
      return tr("Qty");
    case Column::kUnitPrice:
      return tr("Unit price");
    case Column::kDiscount:
      return tr("Discount %");
    case Column::kValue:
      return tr("Value");
    case Column::kDelivery:
      return tr("Delivery");
    case Column::kNote:
      return tr("Note");
  }
  return {};
}

QString ProductTableModel::DateFormat() {
  // The editor's other date fields' format: the user's order and separator, four-digit years.
  const QString shortFormat = QLocale::system().dateFormat(QLocale::ShortFormat);
  return MaskedDateFormat(shortFormat, DateOrderOf(shortFormat));
}

QVariant ProductTableModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  const Column column = ColumnAt(index.column());
  const auto row = static_cast<std::size_t>(index.row());
  switch (role) {
    case Qt::DisplayRole:
      if (column == Column::kDelivery) {
        const QString stored = QString::fromStdString(view_->CellText(row, column));
        const QDate date = QDate::fromString(stored, Qt::ISODate);
        return date.isValid() ? date.toString(DateFormat()) : stored;
      }
      return QString::fromStdString(view_->CellText(row, column));
    case Qt::EditRole:
      return QString::fromStdString(view_->CellText(row, column));
    case Qt::ToolTipRole:
      if (column == Column::kNote || column == Column::kProduct) {
        return QString::fromStdString(view_->CellText(row, column));
      }
      return {};
    case Qt::TextAlignmentRole:
      return QVariant::fromValue(Numeric(column) ? Qt::AlignRight | Qt::AlignVCenter
                                                 : Qt::AlignLeft | Qt::AlignVCenter);
    default:
      return {};
  }
}

QVariant ProductTableModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal)
    return QAbstractTableModel::headerData(section, orientation, role);
  if (role == Qt::DisplayRole) return ColumnTitle(ColumnAt(section));
  if (role == Qt::ToolTipRole && Chosen(section)) {
    return tr("Right click to choose what this column shows.");
  }
  return {};
}

Qt::ItemFlags ProductTableModel::flags(const QModelIndex& index) const {
  Qt::ItemFlags flags = QAbstractTableModel::flags(index);
  if (index.isValid() && ColumnAt(index.column()) != Column::kValue &&
      view_->Unreadable().empty()) {
    flags |= Qt::ItemIsEditable;
  }
  return flags;
}

bool ProductTableModel::setData(const QModelIndex& index, const QVariant& value, int role) {
  if (!index.isValid() || role != Qt::EditRole) return false;
  editing_ = true;
  const std::string why = view_->Enter(static_cast<std::size_t>(index.row()),
                                       ColumnAt(index.column()), value.toString().toStdString());
  editing_ = false;
  if (!why.empty()) {
    emit entryRefused(QString::fromStdString(why));
    return false;
  }
  emit dataChanged(this->index(index.row(), 0), this->index(index.row(), columnCount() - 1));
  emit entryRefused(QString());
  return true;
}

void ProductTableModel::Choose(int section, Column column) {
  if (!Chosen(section)) return;
  const auto slot = static_cast<std::size_t>(section - kFixedColumns);
  // The other chosen column gives up what this one takes, so nothing shows twice.
  const std::size_t other = 1 - slot;
  if (chosen_[other] == column) chosen_[other] = chosen_[slot];
  chosen_[slot] = column;
  emit headerDataChanged(Qt::Horizontal, kFixedColumns, columnCount() - 1);
  emit dataChanged(index(0, kFixedColumns), index(rowCount() - 1, columnCount() - 1));
}

int ProductTableModel::AddLine() {
  const int row = rowCount();
  beginInsertRows({}, row, row);
  editing_ = true;
  const auto added = view_->AddLine();
  editing_ = false;
  endInsertRows();
  return added ? static_cast<int>(*added) : -1;
}

void ProductTableModel::RemoveLine(int row) {
  if (row < 0 || row >= rowCount()) return;
  beginRemoveRows({}, row, row);
  editing_ = true;
  view_->RemoveLine(static_cast<std::size_t>(row));
  editing_ = false;
  endRemoveRows();
}

void ProductTableModel::Reset() {
  beginResetModel();
  endResetModel();
}

ProductTable::ProductTable(std::shared_ptr<ProductListView> view, QWidget* parent)
    : QWidget(parent),
      model_(new ProductTableModel(std::move(view), this)),
      table_(new ProductTableView(this)),
      add_(new QPushButton(tr("Add line"), this)),
      remove_(new QPushButton(tr("Remove line"), this)),
      total_(new QLabel(this)),
      status_(new QLabel(this)) {
  table_->setModel(model_);
  table_->setSelectionBehavior(QAbstractItemView::SelectRows);
  table_->setSelectionMode(QAbstractItemView::SingleSelection);
  table_->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed |
                          QAbstractItemView::AnyKeyPressed);
  // Tab goes from cell to cell (the value skipped) and leaves the table after the last.
  table_->setTabKeyNavigation(true);
  table_->setItemDelegate(new DeliveryDateDelegate(table_));
  // Seven columns: what does not fit scrolls sideways.
  table_->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
  table_->verticalHeader()->hide();
  table_->verticalHeader()->setDefaultSectionSize(table_->fontMetrics().height() + 8);
  QHeaderView* header = table_->horizontalHeader();
  header->setStretchLastSection(true);
  // Each column as wide as its title and a typical entry, in the user's font.
  const QFontMetrics metrics = table_->fontMetrics();
  const QString typical[] = {"Dispatch integration service",
                             "1,000",
                             "100,000.00",
                             "Discount %",
                             "1,000,000.00",
                             QDate(2026, 12, 31).toString(model_->DateFormat())};
  for (int section = 0; section < static_cast<int>(std::size(typical)); ++section) {
    const QString title = model_->headerData(section, Qt::Horizontal, Qt::DisplayRole).toString();
    header->resizeSection(section, std::max(metrics.horizontalAdvance(typical[section]),
                                            metrics.horizontalAdvance(title)) +
                                       metrics.averageCharWidth() * 3);
  }
  // The delivery date is typed in a field with a calendar button beside the date.
  const int dateColumn = ProductTableModel::kFixedColumns;
  header->resizeSection(dateColumn, header->sectionSize(dateColumn) + metrics.height() * 2);
  header->setContextMenuPolicy(Qt::CustomContextMenu);
  connect(header, &QHeaderView::customContextMenuRequested, this,
          [this, header](const QPoint& pos) {
            ShowColumnMenu(header->logicalIndexAt(pos), header->mapToGlobal(pos));
          });
  table_->setContextMenuPolicy(Qt::CustomContextMenu);
  connect(table_, &QTableView::customContextMenuRequested, this, [this](const QPoint& pos) {
    ShowColumnMenu(table_->columnAt(pos.x()), table_->viewport()->mapToGlobal(pos));
  });
  table_->installEventFilter(this);

  add_->setToolTip(tr("Add a product line (Insert)"));
  remove_->setToolTip(tr("Remove the selected line (Delete)"));
  add_->setFocusPolicy(Qt::TabFocus);
  remove_->setFocusPolicy(Qt::TabFocus);
  connect(add_, &QPushButton::clicked, this, &ProductTable::AddLine);
  connect(remove_, &QPushButton::clicked, this, &ProductTable::RemoveCurrentLine);
  QFont bold = total_->font();
  bold.setBold(true);
  total_->setFont(bold);
  QPalette warning = status_->palette();
  warning.setColor(QPalette::WindowText, Qt::darkRed);
  status_->setPalette(warning);

  // Why an entry was refused gets a line of its own, whole, and only while there is one.
  status_->setWordWrap(true);
  status_->hide();
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(add_);
  buttons->addWidget(remove_);
  buttons->addStretch(1);
  buttons->addWidget(total_);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(table_, 1);
  layout->addWidget(status_);
  layout->addLayout(buttons);
  setFocusProxy(table_);

  connect(model_, &ProductTableModel::entryRefused, this, &ProductTable::ShowProblem);
  connect(model_, &ProductTableModel::totalChanged, this, &ProductTable::Refresh);
  connect(model_, &QAbstractItemModel::modelReset, this, &ProductTable::Refresh);
  Refresh();
}

void ProductTable::ShowColumnMenu(int section, const QPoint& globalPos) {
  if (!ProductTableModel::Chosen(section)) return;
  QMenu menu(this);
  menu.addSection(tr("Show in this column"));
  const Column current = model_->ColumnAt(section);
  for (const Column choice : kChoices) {
    QAction* action = menu.addAction(ProductTableModel::ColumnTitle(choice));
    action->setCheckable(true);
    action->setChecked(choice == current);
    connect(action, &QAction::triggered, this,
            [this, section, choice] { model_->Choose(section, choice); });
  }
  menu.exec(globalPos);
}

bool ProductTable::eventFilter(QObject* watched, QEvent* event) {
  // While a cell is being edited its editor has the keys; these reach the table only between
  // edits.
  if (watched != table_ || event->type() != QEvent::KeyPress) {
    return QWidget::eventFilter(watched, event);
  }
  const int key = static_cast<QKeyEvent*>(event)->key();
  if (key == Qt::Key_Insert) {
    AddLine();
    return true;
  }
  if (key == Qt::Key_Delete) {
    RemoveCurrentLine();
    return true;
  }
  return QWidget::eventFilter(watched, event);
}

void ProductTable::ShowProblem(const QString& why) {
  status_->setText(why);
  status_->setVisible(!why.isEmpty());
}

void ProductTable::Refresh() {
  ProductListView& view = model_->View();
  const bool readable = view.Unreadable().empty();
  add_->setEnabled(readable);
  remove_->setEnabled(readable && model_->rowCount() > 0);
  if (!readable) {
    ShowProblem(tr("This product list cannot be read and is kept as stored: %1")
                    .arg(QString::fromStdString(view.Unreadable())));
    total_->clear();
    return;
  }
  try {
    total_->setText(tr("Total %1")
                        .arg(QString::fromStdString(
                            FormatAmount(view.TotalValue(), kMoneyDecimals, view.Marks()))));
  } catch (const pelkedit::PelkError&) {
    total_->setText(tr("Total too large"));
  }
}

void ProductTable::AddLine() {
  const int row = model_->AddLine();
  if (row < 0) return;
  const QModelIndex first = model_->index(row, 0);
  table_->setCurrentIndex(first);
  table_->setFocus(Qt::OtherFocusReason);
  table_->edit(first);
}

void ProductTable::RemoveCurrentLine() {
  const QModelIndex current = table_->currentIndex();
  if (!current.isValid()) return;
  model_->RemoveLine(current.row());
}

QTableView* ProductTable::Table() const {
  return table_;
}

}  // namespace pelkor::desktop
