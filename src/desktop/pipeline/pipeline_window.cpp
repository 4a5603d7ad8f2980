#include "pipeline/pipeline_window.h"

#include <QApplication>
#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QMenuBar>
#include <QMessageBox>
#include <QScreen>
#include <QShortcut>
#include <QSignalBlocker>
#include <QSplitter>
#include <QStatusBar>
#include <QTabBar>
#include <QTableView>
#include <algorithm>

#include "pipeline/pipeline_pictures.h"

namespace pelkor::desktop {
namespace {

// Keystrokes closer together than this are one search.
constexpr int kTypingPauseMs = 150;
// The matrix draws the largest open deals, as many as stay readable.
constexpr std::int64_t kMatrixDeals = 300;
// Places in the status filter.
constexpr int kOpenDeals = 0;
constexpr int kAllStatuses = 5;
// A new user's window: room for the columns and the pictures, but no more of the screen's free
// area than this share, so that it fits a small screen whole.
constexpr QSize kNewUserSize(1280, 720);
constexpr double kScreenShare = 0.9;

struct StatusFilter {
  const char* caption;
  std::vector<std::int32_t> statuses;
};
const std::vector<StatusFilter>& StatusFilters() {
  static const std::vector<StatusFilter> filters = {{"Open", {1}},         {"Won", {2}},
                                                    {"Lost", {3}},         {"Cancelled", {4}},
                                                    {"Closed", {2, 3, 4}}, {"All statuses", {}}};
  return filters;
}

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
  const QScreen* shown = screen();
  resize(shown == nullptr
             ? kNewUserSize
             : kNewUserSize.boundedTo(shown->availableGeometry().size() * kScreenShare));
}

void PipelineWindow::Build() {
  if (table_ != nullptr) return;
  table_ = new QTableView(this);
  tables_ = new QTabBar(this);
  search_ = new QLineEdit(this);
  status_ = new QComboBox(this);
  mine_ = new QCheckBox(tr("&My deals"), this);
  count_ = new QLabel(this);
  empty_ = new QLabel(table_->viewport());
  matrix_ = new MatrixPicture(this);
  forecast_ = new ForecastPicture(this);
  table_->setObjectName("tblPipeline");
  table_->setAccessibleName(tr("Deals"));
  table_->setModel(model_);
  table_->setSelectionBehavior(QAbstractItemView::SelectRows);
  table_->setSelectionMode(QAbstractItemView::SingleSelection);
  table_->setAlternatingRowColors(true);
  table_->verticalHeader()->hide();
  table_->setWordWrap(false);
  table_->setTextElideMode(Qt::ElideRight);
  QHeaderView* header = table_->horizontalHeader();
  const QFontMetrics metrics(table_->font());
  // Room for what each column usually holds; the company takes what is left.
  const std::vector<std::pair<int, QString>> widths = {
      {PipelineModel::kNumber, "IBO#0000"},
      {PipelineModel::kCompany, "Meridian Aerospace Components"},
      {PipelineModel::kContact, "Gregory Adeyemi"},
      {PipelineModel::kStatus, "Cancelled"},
      {PipelineModel::kPriority, "Leave it"},
      {PipelineModel::kAdvisorPriority, "Leave it"},
      {PipelineModel::kWwihDate, "30 Sep 2026 W"},
      {PipelineModel::kValue, "1,234,567.00"},
      {PipelineModel::kOwner, "Owner"},
      {PipelineModel::kSavedAt, "2026-11-24 10:27"}};
  for (const auto& [column, sample] : widths) {
    table_->setColumnWidth(column,
                           metrics.horizontalAdvance(sample) + 2 * metrics.averageCharWidth());
  }
  header->setStretchLastSection(true);
  header->setMinimumSectionSize(metrics.horizontalAdvance("IBO#00"));
  header->setSortIndicator(PipelineModel::kCompany, Qt::AscendingOrder);
  table_->setSortingEnabled(true);
  table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  // Tab leaves the list for the next control; the arrows move within it.
  table_->setTabKeyNavigation(false);
  connect(table_, &QTableView::doubleClicked, this, &PipelineWindow::OpenSelected);
  for (const auto key : {Qt::Key_Return, Qt::Key_Enter}) {
    auto* open = new QShortcut(QKeySequence(key), table_, nullptr, nullptr, Qt::WidgetShortcut);
    connect(open, &QShortcut::activated, this, &PipelineWindow::OpenSelected);
  }
  auto* remove = new QShortcut(QKeySequence::Delete, table_, nullptr, nullptr, Qt::WidgetShortcut);
  connect(remove, &QShortcut::activated, this, [this] {
    if (model_->Query().table == IboTable::kArchive) {
      DeleteSelected();
    } else {
      ArchiveSelected();
    }
  });
  connect(matrix_, &MatrixPicture::dealClicked, this, &PipelineWindow::SelectDeal);
  connect(matrix_, &MatrixPicture::dealOpened, this,
          [this](std::int32_t id) { OpenDeal(id, false); });

  auto* pictures = new QSplitter(Qt::Vertical, this);
  pictures->addWidget(matrix_);
  pictures->addWidget(forecast_);
  auto* split = new QSplitter(Qt::Horizontal, this);
  auto* left = new QWidget(this);
  auto* leftLayout = new QVBoxLayout(left);
  leftLayout->setContentsMargins(0, 0, 0, 0);
  leftLayout->addWidget(BuildFilters());
  leftLayout->addWidget(table_, 1);
  split->addWidget(left);
  split->addWidget(pictures);
  split->setStretchFactor(0, 3);
  split->setStretchFactor(1, 1);
  split->setSizes({880, 300});
  setCentralWidget(split);
  // Left to right, then down into the list.
  setTabOrder(tables_, search_);
  setTabOrder(search_, status_);
  setTabOrder(status_, mine_);
  setTabOrder(mine_, table_);
  statusBar()->addPermanentWidget(count_);
  // The status line is as tall as a line of the desktop's font, large fonts included.
  count_->setMinimumHeight(count_->fontMetrics().size(Qt::TextSingleLine, "Ag").height());
  empty_->setObjectName("lblPipelineEmpty");
  empty_->setAlignment(Qt::AlignCenter);
  empty_->setWordWrap(true);
  empty_->setForegroundRole(QPalette::PlaceholderText);
  empty_->hide();
  table_->viewport()->installEventFilter(this);
  BuildMenus();
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

QWidget* PipelineWindow::BuildFilters() {
  auto* bar = new QWidget(this);
  tables_->setObjectName("tabPipelineTables");
  tables_->addTab(tr("&Pipeline"));
  tables_->addTab(tr("&Archive"));
  tables_->setDrawBase(false);
  connect(tables_, &QTabBar::currentChanged, this, [this](int index) {
    // The archive holds closed deals; the pipeline is worked by its open ones.
    const QSignalBlocker quiet(status_);
    status_->setCurrentIndex(index == 1 ? kAllStatuses : kOpenDeals);
    ApplyFilters();
  });
  search_->setObjectName("txtPipelineSearch");
  search_->setPlaceholderText(tr("Search number, company or contact"));
  search_->setClearButtonEnabled(true);
  search_->setAccessibleName(tr("Search the deals"));
  connect(search_, &QLineEdit::textChanged, this, [this] { typing_.start(); });
  // From the search: Enter opens the deal found, Down goes on to the list.
  connect(search_, &QLineEdit::returnPressed, this, [this] {
    if (typing_.isActive()) {
      typing_.stop();
      ApplyFilters();
    }
    OpenSelected();
  });
  auto* down =
      new QShortcut(QKeySequence(Qt::Key_Down), search_, nullptr, nullptr, Qt::WidgetShortcut);
  connect(down, &QShortcut::activated, this, [this] {
    table_->setFocus();
    const int next = std::min(table_->currentIndex().row() + 1, model_->rowCount() - 1);
    if (next >= 0) table_->selectRow(next);
  });
  status_->setObjectName("cboPipelineStatus");
  status_->setAccessibleName(tr("Status"));
  for (const StatusFilter& filter : StatusFilters()) status_->addItem(tr(filter.caption));
  connect(status_, &QComboBox::currentIndexChanged, this, [this] { ApplyFilters(); });
  mine_->setObjectName("chkPipelineMine");
  mine_->setToolTip(tr("Only the deals you created"));
  connect(mine_, &QCheckBox::toggled, this, [this] { ApplyFilters(); });
  auto* layout = new QHBoxLayout(bar);
  layout->setContentsMargins(4, 4, 4, 0);
  layout->addWidget(tables_);
  layout->addWidget(search_, 1);
  layout->addWidget(status_);
  layout->addWidget(mine_);
  return bar;
}

void PipelineWindow::BuildMenus() {
  QMenu* file = menuBar()->addMenu(tr("&File"));
  QAction* create = file->addAction(tr("&New IBO..."), this, &PipelineWindow::NewDeal);
  create->setShortcut(QKeySequence::New);
  file->addSeparator();
  file->addAction(tr("&Open Database..."), this, &PipelineWindow::OpenDatabase);
  file->addAction(tr("New &Database..."), this, &PipelineWindow::NewDatabase);
  file->addSeparator();
  file->addAction(tr("&Export..."), this, &PipelineWindow::ExportShown);
  file->addSeparator();
  QAction* exit = file->addAction(tr("E&xit"), this, &QWidget::close);
  exit->setShortcut(QKeySequence::Quit);

  QMenu* deal = menuBar()->addMenu(tr("&Deal"));
  deal->addAction(tr("&Open"), this, &PipelineWindow::OpenSelected);
  deal->addAction(tr("&Archive..."), this, &PipelineWindow::ArchiveSelected);
  deal->addAction(tr("&Restore"), this, &PipelineWindow::RestoreSelected);
  deal->addAction(tr("&Delete from Archive..."), this, &PipelineWindow::DeleteSelected);
  deal->addSeparator();
  QAction* refresh = deal->addAction(tr("Re&fresh"), this, &PipelineWindow::Refresh);
  refresh->setShortcut(QKeySequence::Refresh);
  QAction* find = deal->addAction(tr("&Find"), this, [this] {
    search_->setFocus();
    search_->selectAll();
  });
  find->setShortcut(QKeySequence::Find);
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
    forecast_->SetBuckets(environment_.Db()->Forecast(today.toString(Qt::ISODate).toStdString()),
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
