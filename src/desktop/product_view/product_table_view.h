#pragma once

#include <QStyledItemDelegate>
#include <QTableView>

namespace pelkor::desktop {

// The product table's view: Tab and Shift+Tab move between the cells a user can type into
// (never the worked-out value), on to the next line, and out of the table after the last.
class ProductTableView : public QTableView {
  Q_OBJECT

 public:
  using QTableView::QTableView;

 protected:
  QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
};

// Edits delivery dates with a date field in the user's short-date format and a calendar; an
// emptied field (the date before the first one offered) means no date.
class DeliveryDateDelegate : public QStyledItemDelegate {
  Q_OBJECT

 public:
  using QStyledItemDelegate::QStyledItemDelegate;
  QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                        const QModelIndex& index) const override;
  void setEditorData(QWidget* editor, const QModelIndex& index) const override;
  void setModelData(QWidget* editor, QAbstractItemModel* model,
                    const QModelIndex& index) const override;
};

}  // namespace pelkor::desktop
