#include "app/host_window.h"

#include <QAction>
#include <QActionGroup>
#include <QCloseEvent>
#include <QMenu>
#include <QMenuBar>
#include <QStatusBar>
#include <vector>

#include "app/open_ibo_dialog.h"
#include "contracts/names.h"
#include "pictures/pictures.h"
#include "platform/platform.h"
#include "values/error.h"

namespace pelkor::desktop {
namespace {

// The component's area in pixels.
constexpr int kFormWidth = 600;
constexpr int kFormHeight = 400;
constexpr const char* kAppTitle = "Pelkor";
constexpr int kStatusMessageMs = 8000;

struct StatusChoice {
  std::int32_t status;
  const char* caption;
};
constexpr StatusChoice kStatusChoices[] = {{pelkedit::eEditStatusOpen, "&Open"},
                                           {pelkedit::eEditStatusWon, "&Won"},
                                           {pelkedit::eEditStatusLost, "&Lost"},
                                           {pelkedit::eEditStatusCancelled, "&Cancelled"}};

void ShowError(QtPlatform& platform, const std::exception& error) {
  platform.MsgBox(ErrorText(error).toStdString(), pelkedit::MsgIcon::kCritical,
                  pelkedit::MsgButtons::kOk, kAppTitle);
}

BinderOptions FormOptions(QtPlatform& platform) {
  BinderOptions options;
  // Through the platform, like every other message the user sees.
  options.onError = [&platform](const std::exception& error) { ShowError(platform, error); };
  options.shortDateFormat = QString::fromStdString(platform.ShortDateFormat());
  options.fixedPictures = {{pelkedit::widget::picProbabilitMatrix, picture::kMatrix},
                           {pelkedit::widget::picPmUserSqr, picture::kUserSquare},
                           {pelkedit::widget::picPmAdvSqr, picture::kAdvisorSquare},
                           {pelkedit::widget::picPmCmnSqr, picture::kCommonSquare},
                           {pelkedit::widget::picSalesCycle, picture::kSalesCycle},
                           {pelkedit::widget::picLine, picture::kCycleMarker}};
  return options;
}

// Tab moves through the form in the order the component lays its widgets out.
void SetTabOrder(pelkedit::WidgetRegistry& widgets, const Binder& binder) {
  QWidget* previous = nullptr;
  for (const pelkedit::Widget* model : widgets.All()) {
    if (!model->Focusable()) continue;
    QWidget* widget = binder.WidgetFor(model->Name());
    if (widget == nullptr || !(widget->focusPolicy() & Qt::TabFocus)) continue;
    if (previous != nullptr) QWidget::setTabOrder(previous, widget);
    previous = widget;
  }
}

}  // namespace

QString ErrorText(const std::exception& error) {
  const auto* pelk = dynamic_cast<const pelkedit::PelkError*>(&error);
  if (pelk == nullptr) return QString::fromUtf8(error.what());
  return QString("Error %1 in %2:\n%3")
      .arg(pelk->Number())
      .arg(QString::fromStdString(pelk->Source()), QString::fromStdString(pelk->Description()));
}

QString StatusName(std::int32_t status) {
  for (const StatusChoice& choice : kStatusChoices) {
    if (choice.status == status) return QString(choice.caption).remove('&');
  }
  return "Unknown";
}

HostWindow::HostWindow(EditorEnvironment& environment, QWidget* parent)
    : QMainWindow(parent),
      environment_(environment),
      statusLabel_(new QLabel(this)),
      modeLabel_(new QLabel(this)) {
  setObjectName("frmHost");
  setWindowTitle(kAppTitle);
  statusLabel_->setObjectName("lblHostStatus");
  modeLabel_->setObjectName("lblHostMode");
  statusBar()->addPermanentWidget(statusLabel_);
  statusBar()->addPermanentWidget(modeLabel_);
  BuildMenus();
  UpdateActions();
  QtPlatform& platform = environment_.Platform();
  platform.SetHostWindow(this);
  platform.SetCloseRequestHandler([this] { OnCloseRequested(); });
  platform.DialogOptions() = FormOptions(platform);
}

HostWindow::~HostWindow() {
  QtPlatform& platform = environment_.Platform();
  platform.SetCloseRequestHandler(nullptr);
  // The form goes before the component whose models it shows.
  delete form_;
  component_.reset();
}

void HostWindow::BuildMenus() {
  QMenu* file = menuBar()->addMenu(tr("&File"));
  QAction* open = file->addAction(tr("&Open IBO..."), this, &HostWindow::ChooseIbo);
  open->setShortcut(QKeySequence::Open);
  file->addSeparator();
  QAction* exit = file->addAction(tr("E&xit"), this, &QWidget::close);
  exit->setShortcut(QKeySequence::Quit);

  iboMenu_ = menuBar()->addMenu(tr("&IBO"));
  iboMenu_->addAction(tr("Change Start &Date..."), this, &HostWindow::ChangeStartDate);
  QMenu* status = iboMenu_->addMenu(tr("Change &Status"));
  for (const StatusChoice& choice : kStatusChoices) {
    const std::int32_t code = choice.status;
    status->addAction(tr(choice.caption), this, [this, code] { ChangeStatus(code); });
  }
  upgradeAction_ =
      iboMenu_->addAction(tr("&Upgrade to Expert Mode"), this, &HostWindow::UpgradeToExpert);
}

void HostWindow::UpdateActions() {
  iboMenu_->setEnabled(component_ != nullptr);
  upgradeAction_->setEnabled(component_ != nullptr && !expert_);
}

bool HostWindow::OpenIbo(std::int32_t iboId, std::int32_t view) {
  std::unique_ptr<pelkedit::PelkIboEdit> component;
  const bool loaded = HostCall([&] {
    component = std::make_unique<pelkedit::PelkIboEdit>(environment_.Platform(), *this);
    component->ShowIbo(iboId, view);
  });
  // When the load fails, the IBO shown so far stays in the window.
  if (!loaded) return false;
  auto* form = new QWidget;
  form->setObjectName("frmIboEdit");
  form->setFixedSize(kFormWidth, kFormHeight);
  auto* binder = new Binder(component->Widgets(), form, FormOptions(environment_.Platform()));
  binder->setObjectName("binder");
  SetTabOrder(component->Widgets(), *binder);
  // The old form and its binder go now, not later: they point at the old component's models.
  delete takeCentralWidget();
  setCentralWidget(form);
  form_ = form;
  binder_ = binder;
  component_ = std::move(component);
  UpdateActions();
  return true;
}

bool HostWindow::HostCall(const std::function<void()>& call) {
  try {
    call();
    return true;
  } catch (const std::exception& error) {
    ShowError(environment_.Platform(), error);
    return false;
  }
}

bool HostWindow::ReleaseCurrent() {
  if (!component_) return true;
  QtPlatform& platform = environment_.Platform();
  const int writesBefore = environment_.WritesDone();
  const int messagesBefore = platform.MessagesShown();
  if (!HostCall([this] { component_->FormClose(); })) return false;
  // Saved on request (Yes) or discarded on request (No): the IBO may go.
  if (!component_->IboChanged() || environment_.WritesDone() > writesBefore) return true;
  if (platform.MessagesShown() == messagesBefore) {
    // The component did not ask again: an earlier Cancel on its prompt still stands.
    statusBar()->showMessage(tr("The IBO has unsaved changes: use Save or Cancel first."),
                             kStatusMessageMs);
  }
  return false;
}

void HostWindow::OnCloseRequested() {
  closeRequested_ = true;
  close();
  closeRequested_ = false;
}

void HostWindow::closeEvent(QCloseEvent* event) {
  // After Save the record is written and the component would only ask about it again.
  const bool savedByComponent = closeRequested_ && component_ && component_->IboSaved();
  if (!savedByComponent && !ReleaseCurrent()) {
    event->ignore();
    return;
  }
  event->accept();
}

void HostWindow::ChooseIbo() {
  std::vector<IboSummary> ibos;
  if (!HostCall([&] { ibos = environment_.Db()->ListIbos(); })) return;
  OpenIboDialog dialog(ibos, this);
  if (dialog.exec() != QDialog::Accepted) return;
  const auto chosen = dialog.Chosen();
  if (!chosen) return;
  if (!ReleaseCurrent()) return;
  OpenIbo(chosen->id, chosen->archived ? pelkedit::view::kArchive : pelkedit::view::kMain);
}

void HostWindow::ChangeStartDate() {
  if (component_) HostCall([this] { component_->IboChangeStartDate(); });
}

void HostWindow::ChangeStatus(std::int32_t status) {
  if (component_) HostCall([this, status] { component_->IboChangeStatus(status); });
}

void HostWindow::UpgradeToExpert() {
  if (component_) HostCall([this] { component_->IboUpgradeToExpert(); });
}

void HostWindow::SetFormCaption(const std::string& caption) {
  const QString text = QString::fromStdString(caption);
  setWindowTitle(text.isEmpty() ? QString(kAppTitle) : text + " - " + kAppTitle);
}

void HostWindow::SetIBOStatus(std::int32_t status) {
  statusLabel_->setText(tr("Status: %1").arg(StatusName(status)));
}

void HostWindow::SetExpertMode(bool expert) {
  expert_ = expert;
  modeLabel_->setText(expert ? tr("Expert mode") : tr("Basic mode"));
  UpdateActions();
}

QString HostWindow::StatusText() const {
  return statusLabel_->text();
}

QString HostWindow::ModeText() const {
  return modeLabel_->text();
}

}  // namespace pelkor::desktop
