#pragma once

#include <QAbstractTableModel>
#include <QDate>
#include <functional>
#include <memory>
#include <vector>

#include "data/ibo_store.h"

namespace pelkor::desktop {

// The pipeline's rows: a model over the store's query, fetched a page at a time as the view
// scrolls, sorted and filtered by the database. Nothing but the pages seen is held.
class PipelineModel : public QAbstractTableModel {
  Q_OBJECT
 public:
  enum Column {
    kNumber,
    kCompany,
    kContact,
    kStatus,
    kPriority,
    kAdvisorPriority,
    kWwihDate,
    kValue,
    kOwner,
    kSavedAt,
    kColumnCount
  };
  // The summary of a row, for the views and commands that act on it.
  static constexpr int kSummaryIdRole = Qt::UserRole + 1;

  using StoreSource = std::function<std::shared_ptr<IIboStore>()>;
  // `failed` is told what went wrong when the database cannot be read.
  PipelineModel(StoreSource store, std::function<void(const QString&)> failed,
                QObject* parent = nullptr);

  // The filter and table; the rows are read afresh from the first page.
  void SetQuery(const IboQuery& query);
  const IboQuery& Query() const { return query_; }
  // Reads the rows again (after a save, an archive, a new deal) keeping as many as were shown.
  void Refresh();
  // Rows matching in all, fetched or not.
  std::int64_t Total() const { return total_; }
  const IboSummary* Summary(int row) const;
  // The row showing this IBO among those fetched, or -1.
  int RowOf(std::int32_t id) const;
  // Today, as the overdue marks see it (tests fix it).
  void SetToday(const QDate& today) { today_ = today; }

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  bool canFetchMore(const QModelIndex& parent) const override;
  void fetchMore(const QModelIndex& parent) override;
  void sort(int column, Qt::SortOrder order) override;

  // The summary column a view column sorts by.
  static SummaryColumn SortColumnOf(int column);
  // Whether an open deal's expected date has passed.
  static bool Overdue(const IboSummary& deal, const QDate& today);

 private:
  // The next `rows` rows after those fetched; none when the database fails (the user is told).
  std::vector<IboSummary> ReadRows(std::int64_t rows);
  void Load(std::int64_t rows);
  QVariant Display(const IboSummary& deal, int column) const;

  StoreSource store_;
  std::function<void(const QString&)> failed_;
  IboQuery query_;
  std::vector<IboSummary> rows_;
  std::int64_t total_ = 0;
  bool loaded_ = false;
  QDate today_ = QDate::currentDate();
};

// Money in ten-thousandths as the user's locale writes it, with two decimals at least.
QString MoneyDisplay(std::int64_t tenThousandths);

}  // namespace pelkor::desktop
