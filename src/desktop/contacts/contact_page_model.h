#pragma once

#include <QAbstractTableModel>
#include <QString>
#include <memory>
#include <vector>

#include "data/ibo_store.h"

namespace pelkor::desktop {

// The contacts matching a search, by last and first name, asked of the database a page at a
// time as the list scrolls: the book is never read whole.
class ContactPageModel : public QAbstractTableModel {
  Q_OBJECT
 public:
  explicit ContactPageModel(std::shared_ptr<IIboStore> store, QObject* parent = nullptr);

  // The words every contact shown holds (case and accents ignored); reads the first page.
  void SetSearch(const QString& search);
  std::int64_t Total() const { return total_; }
  const Contact* ContactAt(int row) const;
  // The row of a contact among those fetched, or -1.
  int RowOf(std::int64_t id) const;

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  bool canFetchMore(const QModelIndex& parent) const override;
  void fetchMore(const QModelIndex& parent) override;

 private:
  std::shared_ptr<IIboStore> store_;
  QString search_;
  std::vector<Contact> rows_;
  std::int64_t total_ = 0;
};

}  // namespace pelkor::desktop
