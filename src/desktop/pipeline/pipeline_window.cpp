#include "pipeline/pipeline_window.h"

#include <QApplication>
#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QMessageBox>
#include <QStatusBar>
#include <QTabBar>
#include <QTableView>
#include <algorithm>

#include "pipeline/pipeline_pictures.h"
#include "pipeline/pipeline_size.h"
#include "pipeline/status_filters.h"

namespace pelkor::desktop {
namespace {

// Keystrokes closer together than this are one search.
constexpr int kTypingPauseMs = 150;
// The matrix draws the largest open deals, as many as stay readable.
constexpr std::int64_t kMatrixDeals = 300;

}  // namespace

PipelineWindow::PipelineWindow(EditorEnvironment& environment, QWidget* parent)
    : QMainWindow(parent),
      environment_(environment),
      model_(new PipelineModel([&environment] { return environment.Db(); },
                               [this](const QString& why) { statusBar()->showMessage(why); },
                               this)) {
  setObjectName("frmPipeline");
  setWindowTitle(tr("Pipeline - %1").arg(kAppTitle));
  typing_.setSingleShot(true);
  typing_.setInterval(kTypingPauseMs);
  connect(&typing_, &QTimer::timeout, this, &PipelineWindow::ApplyFilters);
  resize(NewUserPipelineSize(screen()));
}

void PipelineWindow::setVisible(bool visible) {
  // Built when first shown: a deal opened at start-up does not wait for the pipeline.
  if (visible) Build();
  QMainWindow::setVisible(visible);
}

void PipelineWindow::showEvent(QShowEvent* event) {
  if (!loaded_) {
    ApplyFilters();
    // The first thing a salesperson does here is look for a deal.
    search_->setFocus();
  }
  QMainWindow::showEvent(event);
}

PipelineWindow::~PipelineWindow() {
  for (const QPointer<HostWindow>& editor : editors_) {
    if (editor.isNull()) continue;
    disconnect(editor, nullptr, this, nullptr);
    delete editor;
  }
}

HostWindow* PipelineWindow::EditorOf(std::int32_t id) const {
  for (const QPointer<HostWindow>& editor : editors_) {
    if (!editor.isNull() && editor->IboId() == id) return editor;
  }
  return nullptr;
}

void PipelineWindow::ShowArchive(bool archive) {
  Build();
  tables_->setCurrentIndex(archive ? 1 : 0);
}

void PipelineWindow::ApplyFilters() {
  Build();
  IboQuery query = model_->Query();
  query.table = tables_->currentIndex() == 1 ? IboTable::kArchive : IboTable::kMain;
  query.search = search_->text().toStdString();
  query.statuses = StatusFilters().at(static_cast<std::size_t>(status_->currentIndex())).statuses;
  query.owner = mine_->isChecked() ? CurrentUserName() : std::string();
  const auto header = table_->horizontalHeader();
  query.sort = PipelineModel::SortColumnOf(header->sortIndicatorSection());
  query.descending = header->sortIndicatorOrder() == Qt::DescendingOrder;
  model_->SetQuery(query);
  loaded_ = true;
  writesSeen_ = environment_.WritesDone();
  UpdateCounts();
  UpdatePictures(false);
  if (table_->currentIndex().row() < 0 && model_->rowCount() > 0) table_->selectRow(0);
}

void PipelineWindow::Refresh() {
  // A pipeline not shown yet reads its rows when it is.
  if (!loaded_) return;
  const IboSummary* selected = Selected();
  const std::int32_t keep = selected != nullptr ? selected->id : 0;
  model_->Refresh();
  writesSeen_ = environment_.WritesDone();
  UpdateCounts();
  UpdatePictures(true);
  if (keep != 0) SelectDeal(keep);
}

void PipelineWindow::UpdateCounts() {
  const IboQuery& query = model_->Query();
  const QString where = query.table == IboTable::kArchive ? tr("archived") : tr("in the pipeline");
  const auto total = static_cast<int>(model_->Total());
  const bool filtered =
      !query.search.empty() || !query.owner.empty() ||
      status_->currentIndex() != (query.table == IboTable::kArchive ? kAllStatuses : kOpenDeals);
  empty_->setText(query.table == IboTable::kArchive
                      ? (filtered ? tr("No archived deal matches.") : tr("The archive is empty."))
                  : filtered ? tr("No deal matches. Clear the search, or choose another status.")
                             : tr("No open deals yet.\nRecord your first one with File > New IBO "
                                  "(Ctrl+N)."));
  empty_->setGeometry(table_->viewport()->rect());
  empty_->setVisible(total == 0);
  count_->setText(
      tr(total == 1 ? "%1 deal %2" : "%1 deals %2").arg(QLocale().toString(total), where));
}

void PipelineWindow::UpdatePictures(bool reread) {
  // The pictures show everybody's open deals, or the user's: a search or another status leaves
  // them as they are, so typing costs no more than the list.
  const IboQuery& query = model_->Query();
  if (!reread && picturesOwner_ == query.owner) return;
  picturesOwner_ = query.owner;
  IboQuery open;
  open.table = IboTable::kMain;
  open.statuses = {1};
  open.owner = query.owner;
  open.sort = SummaryColumn::kValue;
  open.descending = true;
  open.limit = kMatrixDeals;
  open.countAll = false;
  const QDate today = QDate::currentDate();
  StoreCall([&] {
    matrix_->SetDeals(environment_.Db()->QueryIbos(open).rows);
    forecast_->SetBuckets(
        environment_.Db()->Forecast(today.toString(Qt::ISODate).toStdString(), open.owner),
        today.toString("yyyy-MM"));
  });
}

const IboSummary* PipelineWindow::Selected() const {
  // Nothing is selected in a pipeline not built yet.
  if (table_ == nullptr) return nullptr;
  return model_->Summary(table_->currentIndex().row());
}

void PipelineWindow::SelectDeal(std::int32_t id) {
  Build();
  const int row = model_->RowOf(id);
  if (row < 0) {
    statusBar()->showMessage(tr("That deal is not among the rows listed; search for it."), 4000);
    return;
  }
  table_->selectRow(row);
  table_->scrollTo(model_->index(row, 0));
}

bool PipelineWindow::StoreCall(const std::function<void()>& call) {
  try {
    call();
    return true;
  } catch (const std::exception& error) {
    QMessageBox::warning(this, kAppTitle, ErrorText(error));
    return false;
  }
}

void PipelineWindow::OpenSelected() {
  if (const IboSummary* deal = Selected()) OpenDeal(deal->id, deal->archived);
}

void PipelineWindow::OpenDeal(std::int32_t id, bool archived) {
  const std::int32_t view = archived ? pelkedit::view::kArchive : pelkedit::view::kMain;
  HostWindow* editor = EditorOf(id);
  if (editor == nullptr) {
    // Each deal in a window of its own, so that two can be looked at side by side.
    editor = new HostWindow(environment_, environment_.NewPlatform());
    editor->setAttribute(Qt::WA_DeleteOnClose);
    editor->SetPipelineOpener([this] {
      show();
      raise();
      activateWindow();
    });
    connect(editor, &QObject::destroyed, this, [this] { Refresh(); });
    if (!editor->OpenIbo(id, view)) {
      delete editor;
      return;
    }
    std::erase_if(editors_, [](const QPointer<HostWindow>& open) { return open.isNull(); });
    editors_.emplace_back(editor);
  }
  last_ = editor;
  editor->show();
  editor->raise();
  editor->activateWindow();
}

bool PipelineWindow::eventFilter(QObject* watched, QEvent* event) {
  if (table_ != nullptr && watched == table_->viewport() && event->type() == QEvent::Resize) {
    empty_->setGeometry(table_->viewport()->rect());
  }
  return QMainWindow::eventFilter(watched, event);
}

bool PipelineWindow::event(QEvent* event) {
  // Back from the editor: the rows show what it saved.
  if (event->type() == QEvent::WindowActivate && environment_.WritesDone() != writesSeen_) {
    Refresh();
  }
  return QMainWindow::event(event);
}

void PipelineWindow::closeEvent(QCloseEvent* event) {
  // Every open deal is saved or given up first, as its window asks.
  for (const QPointer<HostWindow>& editor : editors_) {
    if (!editor.isNull() && !editor->close()) {
      event->ignore();
      return;
    }
  }
  QMainWindow::closeEvent(event);
}

}  // namespace pelkor::desktop
