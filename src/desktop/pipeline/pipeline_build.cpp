// How the pipeline window is made: its list, filters, pictures and menus, built when the window
// is first shown.
#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QShortcut>
#include <QSignalBlocker>
#include <QSplitter>
#include <QStatusBar>
#include <QTabBar>
#include <QTableView>

#include "pipeline/pipeline_pictures.h"
#include "pipeline/pipeline_window.h"
#include "pipeline/status_filters.h"

namespace pelkor::desktop {

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

}  // namespace pelkor::desktop
