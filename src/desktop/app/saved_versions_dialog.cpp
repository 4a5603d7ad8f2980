#include "app/saved_versions_dialog.h"

#include <QDateTime>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QTimeZone>
#include <QVBoxLayout>

#include "app/stored_version_dialog.h"
#include "record/ibo_properties.h"

namespace pelkor::desktop {
namespace {

constexpr int kDialogWidth = 640;
constexpr int kDialogHeight = 460;

// The stamp is kept in UTC; people read their own time.
QString LocalTime(const std::string& utc) {
  QDateTime when = QDateTime::fromString(QString::fromStdString(utc), "yyyy-MM-dd HH:mm:ss");
  if (!when.isValid()) return QString::fromStdString(utc);
  when.setTimeZone(QTimeZone::utc());
  return QLocale().toString(when.toLocalTime(), QLocale::ShortFormat);
}

QTableWidget* Table(const QStringList& headings, QWidget* parent) {
  auto* table = new QTableWidget(0, static_cast<int>(headings.size()), parent);
  table->setHorizontalHeaderLabels(headings);
  table->setEditTriggers(QAbstractItemView::NoEditTriggers);
  table->setSelectionBehavior(QAbstractItemView::SelectRows);
  table->setSelectionMode(QAbstractItemView::SingleSelection);
  table->verticalHeader()->hide();
  table->horizontalHeader()->setStretchLastSection(true);
  return table;
}

}  // namespace

SavedVersionsDialog::SavedVersionsDialog(std::int32_t iboId, std::vector<SavedVersion> versions,
                                         pelkedit::IRecord& open, QWidget* parent)
    : QDialog(parent), versions_(std::move(versions)), open_(open) {
  setObjectName("dlgSavedVersions");
  setWindowTitle(tr("History - IBO %1").arg(iboId));
  resize(kDialogWidth, kDialogHeight);
  auto* layout = new QVBoxLayout(this);
  auto* intro = new QLabel(
      versions_.empty()
          ? tr("IBO %1 has no earlier saved versions yet: each save keeps the version it "
               "replaces.")
                .arg(iboId)
          : tr("Each save kept the version it replaced. Pick one to see what differs from the "
               "IBO open; Restore brings it back as unsaved changes you can look at and save."),
      this);
  intro->setWordWrap(true);
  layout->addWidget(intro);

  list_ = Table({tr("Saved"), tr("By"), tr("Version")}, this);
  list_->setObjectName("tblVersions");
  list_->setRowCount(static_cast<int>(versions_.size()));
  for (int row = 0; row < list_->rowCount(); ++row) {
    const SavedVersion& version = versions_[static_cast<std::size_t>(row)];
    list_->setItem(row, 0, new QTableWidgetItem(LocalTime(version.savedAt)));
    list_->setItem(row, 1, new QTableWidgetItem(QString::fromStdString(version.savedBy)));
    list_->setItem(row, 2, new QTableWidgetItem(QString::number(version.version)));
  }
  list_->resizeColumnsToContents();
  layout->addWidget(list_, 1);

  differences_ = Table({tr("Question"), tr("Open now"), tr("That version")}, this);
  differences_->setObjectName("tblVersionDifferences");
  layout->addWidget(differences_, 2);

  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
  restore_ = buttons->addButton(tr("&Restore as Unsaved Changes"), QDialogButtonBox::AcceptRole);
  restore_->setObjectName("cmdRestoreVersion");
  restore_->setEnabled(false);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  layout->addWidget(buttons);
  connect(list_, &QTableWidget::itemSelectionChanged, this, &SavedVersionsDialog::ShowDifferences);
  if (!versions_.empty()) list_->selectRow(0);
}

const SavedVersion* SavedVersionsDialog::Chosen() const {
  if (result() != QDialog::Accepted) return nullptr;
  const int row = list_->currentRow();
  if (row < 0 || row >= static_cast<int>(versions_.size())) return nullptr;
  return &versions_[static_cast<std::size_t>(row)];
}

void SavedVersionsDialog::ShowDifferences() {
  const int row = list_->currentRow();
  restore_->setEnabled(row >= 0);
  differences_->setRowCount(0);
  if (row < 0) return;
  const auto version = CreateIboProperties();
  version->SetIboData(versions_[static_cast<std::size_t>(row)].data);
  ListDifferences(*differences_, DifferencesBetween(open_, *version));
}

}  // namespace pelkor::desktop
