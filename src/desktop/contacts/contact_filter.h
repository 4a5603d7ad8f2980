#pragma once

#include <QSortFilterProxyModel>
#include <QString>

namespace pelkor::desktop {

// Text as the search compares it: letter case and accents ignored ("Zoë" finds "zoe").
QString SearchForm(const QString& text);

// Rows whose name, company, e-mail or phone hold every word typed, in any order.
class ContactFilter : public QSortFilterProxyModel {
 public:
  using QSortFilterProxyModel::QSortFilterProxyModel;
  void SetQuery(const QString& query);

 protected:
  bool filterAcceptsRow(int row, const QModelIndex& parent) const override;
  bool lessThan(const QModelIndex& left, const QModelIndex& right) const override;

 private:
  QStringList words_;
};

}  // namespace pelkor::desktop
