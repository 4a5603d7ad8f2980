#include "product_view/product_table_view.h"

#include <QDateEdit>

#include "product_view/product_table.h"

namespace pelkor::desktop {
namespace {

// The first delivery date offered; the day before it stands for "no date".
const QDate kFirstDate(2000, 1, 1);

}  // namespace

QModelIndex ProductTableView::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) {
  if (action != MoveNext && action != MovePrevious) {
    return QTableView::moveCursor(action, modifiers);
  }
  const QAbstractItemModel* table = model();
  const int columns = table->columnCount();
  const int step = action == MoveNext ? 1 : -1;
  const QModelIndex current = currentIndex();
  int cell = current.isValid() ? current.row() * columns + current.column() : -step;
  const int cells = table->rowCount() * columns;
  for (cell += step; cell >= 0 && cell < cells; cell += step) {
    const QModelIndex next = table->index(cell / columns, cell % columns);
    if (next.flags().testFlag(Qt::ItemIsEditable)) return next;
  }
  // Past the last cell (or before the first) the focus leaves the table.
  return {};
}

QWidget* DeliveryDateDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                                            const QModelIndex& index) const {
  const auto* model = qobject_cast<const ProductTableModel*>(index.model());
  if (model == nullptr || model->ColumnAt(index.column()) != ProductTableModel::Column::kDelivery) {
    return QStyledItemDelegate::createEditor(parent, option, index);
  }
  auto* edit = new QDateEdit(parent);
  edit->setObjectName("deliveryDateEditor");
  edit->setCalendarPopup(true);
  edit->setDisplayFormat(ProductTableModel::DateFormat());
  edit->setMinimumDate(kFirstDate.addDays(-1));
  edit->setSpecialValueText(tr("none"));
  return edit;
}

void DeliveryDateDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const {
  auto* edit = qobject_cast<QDateEdit*>(editor);
  if (edit == nullptr) return QStyledItemDelegate::setEditorData(editor, index);
  const QDate stored = QDate::fromString(index.data(Qt::EditRole).toString(), Qt::ISODate);
  // A line without a date starts at today, the date most often meant.
  edit->setDate(stored.isValid() ? stored : QDate::currentDate());
}

void DeliveryDateDelegate::setModelData(QWidget* editor, QAbstractItemModel* model,
                                        const QModelIndex& index) const {
  auto* edit = qobject_cast<QDateEdit*>(editor);
  if (edit == nullptr) return QStyledItemDelegate::setModelData(editor, model, index);
  const QDate date = edit->date();
  model->setData(index, date < kFirstDate ? QString() : date.toString(Qt::ISODate), Qt::EditRole);
}

}  // namespace pelkor::desktop
