#include "contacts/contact_page_model.h"

#include <algorithm>

namespace pelkor::desktop {
namespace {

// Contacts read at a time: more than a list shows.
constexpr std::int64_t kPageRows = 100;
constexpr int kColumns = 4;

QString Q(const std::string& text) {
  return QString::fromStdString(text);
}

}  // namespace

ContactPageModel::ContactPageModel(std::shared_ptr<IIboStore> store, QObject* parent)
    : QAbstractTableModel(parent), store_(std::move(store)) {}

void ContactPageModel::SetSearch(const QString& search) {
  beginResetModel();
  search_ = search;
  rows_.clear();
  total_ = 0;
  ContactQuery query;
  query.search = search.toStdString();
  query.limit = kPageRows;
  auto [rows, total] = store_->SearchContacts(query);
  rows_ = std::move(rows);
  total_ = total;
  endResetModel();
}

const Contact* ContactPageModel::ContactAt(int row) const {
  if (row < 0 || row >= static_cast<int>(rows_.size())) return nullptr;
  return &rows_[static_cast<std::size_t>(row)];
}

int ContactPageModel::RowOf(std::int64_t id) const {
  const auto found =
      std::find_if(rows_.begin(), rows_.end(), [id](const Contact& c) { return c.id == id; });
  return found == rows_.end() ? -1 : static_cast<int>(found - rows_.begin());
}

int ContactPageModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int ContactPageModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : kColumns;
}

bool ContactPageModel::canFetchMore(const QModelIndex& parent) const {
  return !parent.isValid() && static_cast<std::int64_t>(rows_.size()) < total_;
}

void ContactPageModel::fetchMore(const QModelIndex& parent) {
  if (!canFetchMore(parent)) return;
  ContactQuery query;
  query.search = search_.toStdString();
  query.offset = static_cast<std::int64_t>(rows_.size());
  query.limit = kPageRows;
  auto [rows, total] = store_->SearchContacts(query);
  total_ = total;
  if (rows.empty()) {
    total_ = static_cast<std::int64_t>(rows_.size());
    return;
  }
  const int first = static_cast<int>(rows_.size());
  beginInsertRows({}, first, first + static_cast<int>(rows.size()) - 1);
  for (Contact& contact : rows) rows_.push_back(std::move(contact));
  endInsertRows();
}

QVariant ContactPageModel::data(const QModelIndex& index, int role) const {
  const Contact* contact = ContactAt(index.row());
  if (contact == nullptr || (role != Qt::DisplayRole && role != Qt::ToolTipRole)) return {};
  switch (index.column()) {
    case 0:
      return (Q(contact->first) + ' ' + Q(contact->last)).trimmed();
    case 1:
      return Q(contact->company);
    case 2:
      return Q(contact->email);
    default:
      return Q(contact->phone);
  }
}

QVariant ContactPageModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
  static const char* const kHeaders[kColumns] = {"Name", "Company", "E-mail", "Phone"};
  return section >= 0 && section < kColumns ? tr(kHeaders[section]) : QVariant();
}

}  // namespace pelkor::desktop
