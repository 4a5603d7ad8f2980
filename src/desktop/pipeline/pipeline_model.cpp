#include "pipeline/pipeline_model.h"

#include <QBrush>
#include <QLocale>
#include <QPalette>
#include <algorithm>

#include "app/host_window.h"
#include "pictures/drawing.h"
#include "product_view/product_table.h"

namespace pelkor::desktop {
namespace {

// Rows read from the database at a time; a screenful or two.
constexpr std::int64_t kPageRows = 100;
constexpr int kMoneyDecimals = 2;
// EditIBOStatusEnum's open.
constexpr std::int32_t kOpen = 1;
// A date that has passed: red, and bold for those who cannot tell red.
const QColor kOverdueInk{0xB0, 0x1C, 0x1C};

constexpr std::array<const char*, PipelineModel::kColumnCount> kHeaders = {
    "IBO#",    "Company",   "Contact", "Status", "Priority",
    "Advisor", "WWIH date", "Value",   "Owner",  "Saved"};

QDate DateOf(const std::string& iso) {
  return QDate::fromString(QString::fromStdString(iso), Qt::ISODate);
}

}  // namespace

QString MoneyDisplay(std::int64_t tenThousandths) {
  return QString::fromStdString(FormatAmount(pelkedit::Currency::FromScaled(tenThousandths),
                                             kMoneyDecimals, LocaleNumberMarks()));
}

PipelineModel::PipelineModel(StoreSource store, std::function<void(const QString&)> failed,
                             QObject* parent)
    : QAbstractTableModel(parent), store_(std::move(store)), failed_(std::move(failed)) {}

SummaryColumn PipelineModel::SortColumnOf(int column) {
  switch (column) {
    case kNumber:
      return SummaryColumn::kNumber;
    case kCompany:
      return SummaryColumn::kCompany;
    case kContact:
      return SummaryColumn::kContact;
    case kStatus:
      return SummaryColumn::kStatus;
    case kPriority:
      return SummaryColumn::kPriority;
    case kAdvisorPriority:
      return SummaryColumn::kAdvisorPriority;
    case kWwihDate:
      return SummaryColumn::kWwihDate;
    case kValue:
      return SummaryColumn::kValue;
    case kOwner:
      return SummaryColumn::kOwner;
    default:
      return SummaryColumn::kSavedAt;
  }
}

bool PipelineModel::Overdue(const IboSummary& deal, const QDate& today) {
  const QDate wwih = DateOf(deal.wwihDate);
  return deal.status == kOpen && wwih.isValid() && wwih < today;
}

void PipelineModel::SetQuery(const IboQuery& query) {
  query_ = query;
  loaded_ = true;
  beginResetModel();
  rows_.clear();
  total_ = 0;
  Load(kPageRows);
  endResetModel();
}

void PipelineModel::Refresh() {
  const auto keep = std::max<std::int64_t>(static_cast<std::int64_t>(rows_.size()), kPageRows);
  beginResetModel();
  rows_.clear();
  Load(keep);
  endResetModel();
}

std::vector<IboSummary> PipelineModel::ReadRows(std::int64_t rows) {
  IboQuery page = query_;
  page.offset = static_cast<std::int64_t>(rows_.size());
  page.limit = rows;
  try {
    IboPage read = store_()->QueryIbos(page);
    total_ = read.total;
    return std::move(read.rows);
  } catch (const std::exception& error) {
    // What was read stays; nothing more is asked for until the next query.
    total_ = static_cast<std::int64_t>(rows_.size());
    failed_(ErrorText(error));
    return {};
  }
}

void PipelineModel::Load(std::int64_t rows) {
  for (IboSummary& deal : ReadRows(rows)) rows_.push_back(std::move(deal));
}

const IboSummary* PipelineModel::Summary(int row) const {
  if (row < 0 || row >= static_cast<int>(rows_.size())) return nullptr;
  return &rows_[static_cast<std::size_t>(row)];
}

int PipelineModel::RowOf(std::int32_t id) const {
  const auto found = std::find_if(rows_.begin(), rows_.end(),
                                  [id](const IboSummary& deal) { return deal.id == id; });
  return found == rows_.end() ? -1 : static_cast<int>(found - rows_.begin());
}

int PipelineModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int PipelineModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : kColumnCount;
}

bool PipelineModel::canFetchMore(const QModelIndex& parent) const {
  return !parent.isValid() && static_cast<std::int64_t>(rows_.size()) < total_;
}

void PipelineModel::fetchMore(const QModelIndex& parent) {
  if (!canFetchMore(parent)) return;
  std::vector<IboSummary> read = ReadRows(kPageRows);
  if (read.empty()) return;
  const int first = static_cast<int>(rows_.size());
  beginInsertRows({}, first, first + static_cast<int>(read.size()) - 1);
  for (IboSummary& deal : read) rows_.push_back(std::move(deal));
  endInsertRows();
}

void PipelineModel::sort(int column, Qt::SortOrder order) {
  IboQuery query = query_;
  query.sort = SortColumnOf(column);
  query.descending = order == Qt::DescendingOrder;
  // Before the first query (the view turning sorting on) the order is only noted.
  if (!loaded_) {
    query_ = query;
    return;
  }
  if (query.sort == query_.sort && query.descending == query_.descending && !rows_.empty()) return;
  SetQuery(query);
}

QVariant PipelineModel::Display(const IboSummary& deal, int column) const {
  switch (column) {
    case kNumber:
      return deal.iboNumber;
    case kCompany:
      return QString::fromStdString(deal.company);
    case kContact:
      return QString::fromStdString(deal.firstName + (deal.firstName.empty() ? "" : " ") +
                                    deal.lastName);
    case kStatus:
      return StatusName(deal.status);
    case kPriority:
      return deal.priority;
    case kAdvisorPriority:
      return deal.advisorPriority;
    case kWwihDate: {
      const QDate date = DateOf(deal.wwihDate);
      return date.isValid() ? QLocale().toString(date, QLocale::ShortFormat) : QString();
    }
    case kValue:
      return MoneyDisplay(deal.value);
    case kOwner:
      return QString::fromStdString(deal.owner);
    default:
      return QString::fromStdString(deal.savedAt);
  }
}

QVariant PipelineModel::data(const QModelIndex& index, int role) const {
  const IboSummary* deal = Summary(index.row());
  if (deal == nullptr) return {};
  const int column = index.column();
  switch (role) {
    case Qt::DisplayRole:
      if (column == kPriority) return drawing::PriorityText(deal->priority);
      if (column == kAdvisorPriority) return drawing::PriorityText(deal->advisorPriority);
      return Display(*deal, column);
    case Qt::AccessibleTextRole:
    case Qt::ToolTipRole:
      if (column == kWwihDate && Overdue(*deal, today_)) {
        return tr("%1: overdue, the deal was expected to happen by then")
            .arg(Display(*deal, column).toString());
      }
      if (column == kPriority || column == kAdvisorPriority) {
        return tr("Priority %1").arg(Display(*deal, column).toInt());
      }
      return role == Qt::AccessibleTextRole ? Display(*deal, column) : QVariant();
    case Qt::BackgroundRole:
      // In the colours of the editor's priority pictures: yours light, the advisor's dark.
      if (column == kPriority) return QBrush(drawing::colors::Panel());
      if (column == kAdvisorPriority) return QBrush(drawing::colors::DarkPanel());
      return {};
    case Qt::TextAlignmentRole:
      if (column == kValue || column == kNumber) return int(Qt::AlignRight | Qt::AlignVCenter);
      if (column == kPriority || column == kAdvisorPriority) return int(Qt::AlignCenter);
      return int(Qt::AlignLeft | Qt::AlignVCenter);
    case Qt::ForegroundRole:
      if (column == kWwihDate && Overdue(*deal, today_)) return QBrush(kOverdueInk);
      if (column == kPriority) return QBrush(drawing::colors::Ink());
      if (column == kAdvisorPriority) return QBrush(drawing::colors::LightInk());
      return {};
    case Qt::FontRole:
      if (column == kWwihDate && Overdue(*deal, today_)) {
        QFont bold;
        bold.setBold(true);
        return bold;
      }
      return {};
    case kSummaryIdRole:
      return deal->id;
    default:
      return {};
  }
}

QVariant PipelineModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || section < 0 || section >= kColumnCount) return {};
  if (role == Qt::DisplayRole) return tr(kHeaders[static_cast<std::size_t>(section)]);
  if (role == Qt::TextAlignmentRole && (section == kValue || section == kNumber)) {
    return int(Qt::AlignRight | Qt::AlignVCenter);
  }
  return {};
}

}  // namespace pelkor::desktop
