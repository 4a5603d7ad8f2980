// The pipeline's commands on deals and databases: new, archive, restore, delete, export, and
// opening or making another database.
#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QMessageBox>
#include <QProcess>
#include <QPushButton>
#include <QStatusBar>
#include <QVBoxLayout>
#include <fstream>

#include "data/summary_export.h"
#include "pipeline/new_deal_dialog.h"
#include "pipeline/pipeline_window.h"

namespace pelkor::desktop {
namespace {

QString DealName(const IboSummary& deal) {
  return QObject::tr("IBO#%1 (%2)").arg(deal.iboNumber).arg(QString::fromStdString(deal.company));
}

// Asks for a database file (with a file dialog to browse) or a server's address; "" when the
// user cancels.
QString AskForDatabase(QWidget* parent, bool create) {
  QDialog ask(parent);
  ask.setWindowTitle(create ? QObject::tr("New Database") : QObject::tr("Open Database"));
  auto* label = new QLabel(create ? QObject::tr("A new database &file, or the address of an "
                                                "empty server database:")
                                  : QObject::tr("A database &file, or a server's address:"),
                           &ask);
  auto* name = new QLineEdit(&ask);
  name->setPlaceholderText(QObject::tr("deals.db or postgresql://user@host/name"));
  name->setMinimumWidth(420);
  label->setBuddy(name);
  auto* browse = new QPushButton(QObject::tr("&Browse..."), &ask);
  QObject::connect(browse, &QPushButton::clicked, &ask, [&ask, name, create] {
    const QString filter = QObject::tr("IBO databases (*.db *.sqlite *.pelkdb);;All files (*)");
    const QString file =
        create ? QFileDialog::getSaveFileName(&ask, ask.windowTitle(), "deals.db", filter)
               : QFileDialog::getOpenFileName(&ask, ask.windowTitle(), QString(), filter);
    if (!file.isEmpty()) name->setText(file);
  });
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, &ask);
  buttons->button(QDialogButtonBox::Ok)
      ->setText(create ? QObject::tr("C&reate") : QObject::tr("&Open"));
  QObject::connect(buttons, &QDialogButtonBox::accepted, &ask, &QDialog::accept);
  QObject::connect(buttons, &QDialogButtonBox::rejected, &ask, &QDialog::reject);
  auto* row = new QHBoxLayout;
  row->addWidget(name, 1);
  row->addWidget(browse);
  auto* layout = new QVBoxLayout(&ask);
  layout->addWidget(label);
  layout->addLayout(row);
  layout->addWidget(buttons);
  if (ask.exec() != QDialog::Accepted) return {};
  return name->text().trimmed();
}

}  // namespace

void PipelineWindow::NewDeal() {
  std::shared_ptr<IIboStore> store;
  if (!StoreCall([&] { store = environment_.Db(); })) return;
  NewDealDialog dialog(store, this);
  const QString searched = Search()->text().trimmed();
  if (!searched.isEmpty()) dialog.Company()->setText(searched);
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
  if (EditorOf(deal->id) != nullptr) {
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
  IboQuery shown = model_->Query();
  shown.offset = 0;
  std::int64_t written = 0;
  const bool read = StoreCall([&] {
    written = ForEachSummary(*environment_.Db(), shown, -1,
                             [&](const IboSummary& deal) { csv.Row(deal); });
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
  const QString name = AskForDatabase(this, false);
  if (!name.isEmpty()) SwitchDatabase(name, StoreOpening::kExistingOnly);
}

void PipelineWindow::NewDatabase() {
  // Made empty, for real work: the demo deals are for the demo database only.
  const QString name = AskForDatabase(this, true);
  if (!name.isEmpty()) SwitchDatabase(name, StoreOpening::kCreateIfMissing);
}

}  // namespace pelkor::desktop
