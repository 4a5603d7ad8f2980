// The pipeline's commands on deals and databases: new, archive, restore, delete, export, and
// opening or making another database.
#include <QCoreApplication>
#include <QFileDialog>
#include <QInputDialog>
#include <QLayout>
#include <QLineEdit>
#include <QMessageBox>
#include <QProcess>
#include <QPushButton>
#include <QStatusBar>
#include <fstream>

#include "data/summary_export.h"
#include "pipeline/new_deal_dialog.h"
#include "pipeline/pipeline_window.h"

namespace pelkor::desktop {
namespace {

// Rows read at a time while exporting.
constexpr std::int64_t kExportPage = 1000;
constexpr const char* kAppTitle = "Pelkor";

QString DealName(const IboSummary& deal) {
  return QObject::tr("IBO#%1 (%2)").arg(deal.iboNumber).arg(QString::fromStdString(deal.company));
}

}  // namespace

void PipelineWindow::NewDeal() {
  std::shared_ptr<IIboStore> store;
  if (!StoreCall([&] { store = environment_.Db(); })) return;
  NewDealDialog dialog(store, this);
  if (!search_->text().trimmed().isEmpty()) dialog.Company()->setText(search_->text().trimmed());
  if (dialog.exec() != QDialog::Accepted) return;
  CreatedIbo created;
  if (!StoreCall([&] { created = store->CreateIbo(dialog.Deal()); })) return;
  ShowArchive(false);
  Refresh();
  SelectDeal(created.id);
  OpenDeal(created.id, false);
}

void PipelineWindow::ArchiveSelected() {
  const IboSummary* deal = Selected();
  if (deal == nullptr || deal->archived) return;
  if (editor_ != nullptr && editor_->IboId() == deal->id) {
    QMessageBox::information(this, kAppTitle,
                             tr("Close %1 in the editor first.").arg(DealName(*deal)));
    return;
  }
  if (QMessageBox::question(
          this, kAppTitle,
          tr("Move %1 to the archive? It can be restored from there.").arg(DealName(*deal))) !=
      QMessageBox::Yes) {
    return;
  }
  const IboSummary moved = *deal;
  StoreCall([&] { environment_.Db()->MoveIbo(IboTable::kMain, moved.id, moved.version); });
  Refresh();
}

void PipelineWindow::RestoreSelected() {
  const IboSummary* deal = Selected();
  if (deal == nullptr || !deal->archived) return;
  const IboSummary moved = *deal;
  if (StoreCall([&] { environment_.Db()->MoveIbo(IboTable::kArchive, moved.id, moved.version); })) {
    statusBar()->showMessage(tr("%1 is back in the pipeline.").arg(DealName(moved)), 4000);
  }
  Refresh();
}

void PipelineWindow::DeleteSelected() {
  const IboSummary* deal = Selected();
  if (deal == nullptr || !deal->archived) {
    statusBar()->showMessage(tr("Only archived deals can be deleted: archive it first."), 4000);
    return;
  }
  QMessageBox ask(QMessageBox::Warning, kAppTitle,
                  tr("Delete %1 for good? This cannot be undone.").arg(DealName(*deal)),
                  QMessageBox::Yes | QMessageBox::No, this);
  ask.setDefaultButton(QMessageBox::No);
  ask.button(QMessageBox::Yes)->setText(tr("&Delete"));
  if (ask.exec() != QMessageBox::Yes) return;
  const std::int32_t id = deal->id;
  StoreCall([&] { environment_.Db()->DeleteArchived(id); });
  Refresh();
}

void PipelineWindow::ExportShown() {
  const QString path = QFileDialog::getSaveFileName(this, tr("Export the Deals Shown"),
                                                    tr("pipeline.csv"), tr("CSV files (*.csv)"));
  if (path.isEmpty()) return;
  std::ofstream out(path.toStdString(), std::ios::binary | std::ios::trunc);
  if (!out) {
    QMessageBox::warning(this, kAppTitle, tr("Cannot write '%1'. Choose another place.").arg(path));
    return;
  }
  CsvWriter csv(out);
  csv.Header();
  IboQuery page = model_->Query();
  page.offset = 0;
  page.limit = kExportPage;
  std::int64_t written = 0;
  const bool read = StoreCall([&] {
    for (;; page.offset += kExportPage) {
      const IboPage rows = environment_.Db()->QueryIbos(page);
      for (const IboSummary& deal : rows.rows) csv.Row(deal);
      written += static_cast<std::int64_t>(rows.rows.size());
      if (static_cast<std::int64_t>(rows.rows.size()) < kExportPage) break;
    }
  });
  out.close();
  if (!read || !out) {
    QMessageBox::warning(this, kAppTitle, tr("The export to '%1' is incomplete.").arg(path));
    return;
  }
  statusBar()->showMessage(
      tr("%n deal(s) exported to %1", "", static_cast<int>(written)).arg(path));
}

void PipelineWindow::SwitchDatabase(const QString& name, StoreOpening opening) {
  // Each database gets a window of its own, in its own process: the editor's collaborators are
  // bound to one database.
  if (!StoreCall([&] { OpenIboStore(name.toStdString(), opening); })) return;
  if (!QProcess::startDetached(QCoreApplication::applicationFilePath(), {"--db", name})) {
    QMessageBox::warning(this, kAppTitle, tr("Cannot start another Pelkor window."));
  }
}

void PipelineWindow::OpenDatabase() {
  QInputDialog ask(this);
  ask.setWindowTitle(tr("Open Database"));
  ask.setLabelText(tr("A database file, or a server's address (postgresql://user@host/name):"));
  ask.setOkButtonText(tr("&Open"));
  ask.setCancelButtonText(tr("Cancel"));
  auto* browse = new QPushButton(tr("&Browse..."), &ask);
  connect(browse, &QPushButton::clicked, &ask, [&ask, this] {
    const QString file = QFileDialog::getOpenFileName(
        this, tr("Open Database"), QString(), tr("IBO databases (*.db *.sqlite);;All files (*)"));
    if (!file.isEmpty()) ask.setTextValue(file);
  });
  ask.layout()->addWidget(browse);
  if (ask.exec() != QDialog::Accepted || ask.textValue().trimmed().isEmpty()) return;
  SwitchDatabase(ask.textValue().trimmed(), StoreOpening::kExistingOnly);
}

void PipelineWindow::NewDatabase() {
  const QString file = QFileDialog::getSaveFileName(this, tr("New Database"), tr("deals.db"),
                                                    tr("IBO databases (*.db)"));
  if (file.isEmpty()) return;
  SwitchDatabase(file, StoreOpening::kCreateIfMissing);
}

}  // namespace pelkor::desktop
