#include "app/stored_version_dialog.h"

#include <QApplication>
#include <QClipboard>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>
#include <algorithm>
#include <array>

#include "app/record_words.h"
#include "contracts/names.h"
#include "record/ibo_properties.h"
#include "record/record_merge.h"

namespace pelkor::desktop {
namespace {

constexpr int kDialogWidth = 620;
constexpr int kDialogHeight = 420;

}  // namespace

void ListDifferences(QTableWidget& table, const std::vector<PropertyDifference>& differences) {
  table.setRowCount(static_cast<int>(differences.size()));
  for (int row = 0; row < table.rowCount(); ++row) {
    const PropertyDifference& difference = differences[static_cast<std::size_t>(row)];
    table.setItem(row, 0, new QTableWidgetItem(difference.property));
    table.setItem(row, 1, new QTableWidgetItem(difference.yours));
    table.setItem(row, 2, new QTableWidgetItem(difference.stored));
  }
  table.resizeColumnsToContents();
}

std::vector<PropertyDifference> DifferencesBetween(pelkedit::IRecord& yours,
                                                   pelkedit::IRecord& stored) {
  namespace prop = pelkedit::prop;
  std::vector<PropertyDifference> differences;
  ForEachAnswer([&](const RecordValue& at) {
    const std::string& name = at.property;
    if (name == prop::Products) {
      const std::string mine = yours.Get(name).AsString();
      const std::string theirs = stored.Get(name).AsString();
      if (mine == theirs) return;
      for (const QString& change : ProductChanges(theirs, mine)) {
        differences.push_back({CaptionOf(name), change, QString()});
      }
      return;
    }
    // The total is one value kept in two properties: shown once, with the whole units.
    if (name == prop::TotalValueHundredths) return;
    const pelkedit::Variant mine = ValueOf(yours, at);
    const pelkedit::Variant theirs = ValueOf(stored, at);
    const bool differs = mine != theirs || (name == prop::TotalValueUnits &&
                                            yours.Get(prop::TotalValueHundredths) !=
                                                stored.Get(prop::TotalValueHundredths));
    if (!differs) return;
    differences.push_back(
        {CaptionOf(name, at.slot), TextOf(name, mine, yours), TextOf(name, theirs, stored)});
  });
  return differences;
}

StoredVersionDialog::StoredVersionDialog(std::int32_t iboId,
                                         std::vector<PropertyDifference> differences,
                                         QWidget* parent)
    : QDialog(parent), iboId_(iboId), differences_(std::move(differences)) {
  setObjectName("StoredVersionDialog");
  setWindowTitle(tr("Compare with Stored Version - IBO %1").arg(iboId));
  auto* layout = new QVBoxLayout(this);
  auto* intro = new QLabel(
      differences_.empty()
          ? tr("Your IBO and the stored version hold the same values.")
          : tr("Someone else saved IBO %1 after you opened it. These values differ between "
               "your unsaved changes and the stored version. Merge takes the stored version "
               "with your changes applied where the other person did not change the same "
               "answer; where you both did, you pick.")
                .arg(iboId),
      this);
  intro->setWordWrap(true);
  layout->addWidget(intro);

  auto* table = new QTableWidget(static_cast<int>(differences_.size()), 3, this);
  table->setObjectName("differences");
  table->setHorizontalHeaderLabels({tr("Question"), tr("Yours"), tr("Stored")});
  table->setEditTriggers(QAbstractItemView::NoEditTriggers);
  table->setSelectionBehavior(QAbstractItemView::SelectRows);
  table->verticalHeader()->hide();
  table->horizontalHeader()->setStretchLastSection(true);
  ListDifferences(*table, differences_);
  layout->addWidget(table);

  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
  QPushButton* copy = buttons->addButton(tr("&Copy List"), QDialogButtonBox::ActionRole);
  copy->setEnabled(!differences_.empty());
  QPushButton* reopen =
      buttons->addButton(tr("&Reopen Stored Version..."), QDialogButtonBox::DestructiveRole);
  reopen->setObjectName("reopen");
  QPushButton* merge = buttons->addButton(tr("&Merge..."), QDialogButtonBox::ActionRole);
  merge->setObjectName("merge");
  merge->setEnabled(!differences_.empty());
  connect(merge, &QPushButton::clicked, this, [this] { done(kMerge); });
  connect(copy, &QPushButton::clicked, this,
          [this] { QApplication::clipboard()->setText(AsText()); });
  connect(reopen, &QPushButton::clicked, this, &StoredVersionDialog::ConfirmReopen);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  layout->addWidget(buttons);
  // Enter only closes: reopening discards the user's changes, so it is never the default.
  QPushButton* close = buttons->button(QDialogButtonBox::Close);
  close->setDefault(true);
  reopen->setAutoDefault(false);
  copy->setAutoDefault(false);
  // Tab runs from the list through the buttons as they stand, left to right.
  setTabOrder(table, reopen);
  setTabOrder(reopen, copy);
  setTabOrder(copy, close);
  table->setFocus();
  resize(kDialogWidth, kDialogHeight);
}

QString StoredVersionDialog::AsText() const {
  QString text = tr("IBO %1\tYours\tStored\n").arg(iboId_);
  for (const PropertyDifference& difference : differences_) {
    text += difference.property + "\t" + difference.yours + "\t" + difference.stored + "\n";
  }
  return text;
}

void StoredVersionDialog::ConfirmReopen() {
  const auto answer = QMessageBox::question(
      this, tr("Reopen Stored Version"),
      tr("Discard your unsaved changes to IBO %1 and open the stored version?").arg(iboId_),
      QMessageBox::Yes | QMessageBox::No, QMessageBox::No);
  if (answer == QMessageBox::Yes) done(kReopen);
}

}  // namespace pelkor::desktop
