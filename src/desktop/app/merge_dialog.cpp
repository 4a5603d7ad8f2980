#include "app/merge_dialog.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QTableWidget>
#include <QVBoxLayout>

#include "app/record_words.h"

namespace pelkor::desktop {
namespace {

constexpr int kDialogWidth = 620;
constexpr int kDialogHeight = 360;
enum Column { kQuestion, kYours, kStored, kKeep, kColumns };

QString ValueText(pelkedit::IRecord& record, const MergeConflict& conflict) {
  const pelkedit::Variant value = conflict.slot ? record.GetAt(conflict.property, *conflict.slot)
                                                : record.Get(conflict.property);
  return TextOf(conflict.property, value, record);
}

}  // namespace

MergeDialog::MergeDialog(const std::vector<MergeConflict>& conflicts, pelkedit::IRecord& mine,
                         pelkedit::IRecord& theirs, QWidget* parent)
    : QDialog(parent) {
  setObjectName("dlgMerge");
  setWindowTitle(tr("Merge with Stored Version"));
  resize(kDialogWidth, kDialogHeight);
  auto* layout = new QVBoxLayout(this);
  auto* intro = new QLabel(tr("You and the other person both changed these answers. Pick which "
                              "to keep; everything else is merged already. The result is "
                              "unsaved changes for you to look at and save."),
                           this);
  intro->setWordWrap(true);
  layout->addWidget(intro);
  auto* table = new QTableWidget(static_cast<int>(conflicts.size()), kColumns, this);
  table->setObjectName("tblConflicts");
  table->setHorizontalHeaderLabels({tr("Question"), tr("Yours"), tr("Stored"), tr("Keep")});
  table->setEditTriggers(QAbstractItemView::NoEditTriggers);
  table->verticalHeader()->hide();
  for (int row = 0; row < table->rowCount(); ++row) {
    const MergeConflict& conflict = conflicts[static_cast<std::size_t>(row)];
    table->setItem(row, kQuestion,
                   new QTableWidgetItem(CaptionOf(conflict.property, conflict.slot)));
    table->setItem(row, kYours, new QTableWidgetItem(ValueText(mine, conflict)));
    table->setItem(row, kStored, new QTableWidgetItem(ValueText(theirs, conflict)));
    auto* keep = new QComboBox(table);
    keep->addItems({tr("Yours"), tr("Stored")});
    table->setCellWidget(row, kKeep, keep);
    choices_.push_back(keep);
  }
  table->resizeColumnsToContents();
  table->horizontalHeader()->setStretchLastSection(true);
  layout->addWidget(table, 1);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  layout->addWidget(buttons);
}

std::vector<bool> MergeDialog::KeepMine() const {
  std::vector<bool> keep;
  for (const QComboBox* choice : choices_) keep.push_back(choice->currentIndex() == 0);
  return keep;
}

}  // namespace pelkor::desktop
