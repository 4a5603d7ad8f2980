#pragma once

#include <QAbstractTableModel>
#include <QWidget>
#include <array>
#include <memory>

#include "products/product_list_view.h"

class QLabel;
class QPushButton;
class QTableView;

namespace pelkor::desktop {

// The marks the user's locale writes numbers with: amounts are shown and typed in them.
NumberMarks LocaleNumberMarks();

class ProductTableView;
}  // namespace pelkor::desktop

namespace pelkor::desktop {

// The product list as a table: each line a row the user edits in place. The first five columns
// are fixed (product, quantity, unit price, discount, value); the last two show what the user
// picks by right-clicking them (delivery date or note, in either order). Delivery dates are
// shown and typed in the user's short-date format, with a calendar.
class ProductTableModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  using Column = ProductListView::Column;
  static constexpr int kFixedColumns = 5;
  static constexpr int kChosenColumns = 2;

  explicit ProductTableModel(std::shared_ptr<ProductListView> view, QObject* parent = nullptr);
  // How a delivery date is shown: the user's short-date format.
  static QString DateFormat();
  ~ProductTableModel() override;

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;
  bool setData(const QModelIndex& index, const QVariant& value, int role) override;

  // The list column a table column shows.
  Column ColumnAt(int section) const;
  // Whether a table column is one whose content the user chooses.
  static bool Chosen(int section) { return section >= kFixedColumns; }
  void Choose(int section, Column column);
  static QString ColumnTitle(Column column);

  int AddLine();
  void RemoveLine(int row);
  ProductListView& View() const { return *view_; }

 signals:
  // A cell refused what the user entered; `why` says what it takes.
  void entryRefused(const QString& why);
  void totalChanged();

 private:
  void Reset();
  std::shared_ptr<ProductListView> view_;
  std::array<Column, kChosenColumns> chosen_{Column::kDelivery, Column::kNote};
  // Set while the table itself changes the list, so that the view's change notice does not
  // reset the rows under the user's edit.
  bool editing_ = false;
};

// The widget: the table, buttons to add and remove lines, the total, and a line that says why
// an entry was refused or why the stored list cannot be shown.
class ProductTable : public QWidget {
  Q_OBJECT

 public:
  explicit ProductTable(std::shared_ptr<ProductListView> view, QWidget* parent = nullptr);
  QTableView* Table() const;
  ProductTableModel* Model() const { return model_; }
  // The column menu the user gets by right-clicking a chosen column, at a global position.
  void ShowColumnMenu(int section, const QPoint& globalPos);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Refresh();
  // Shows why an entry was refused or the list cannot be read; "" hides the line.
  void ShowProblem(const QString& why);
  void AddLine();
  void RemoveCurrentLine();
  ProductTableModel* model_;
  ProductTableView* table_;
  QPushButton* add_;
  QPushButton* remove_;
  QLabel* total_;
  QLabel* status_;
};

}  // namespace pelkor::desktop
