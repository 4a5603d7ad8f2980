#include "app/host_window.h"

#include <QAction>
#include <QActionGroup>
#include <QApplication>
#include <QCloseEvent>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QStatusBar>
#include <QVBoxLayout>
#include <memory>
#include <vector>

#include "app/help_sentences.h"
#include "app/window_keys.h"
#include "binding/date_widgets.h"
#include "contracts/names.h"
#include "control/layout.h"
#include "control/tab_strips.h"
#include "pictures/pictures.h"
#include "platform/platform.h"
#include "values/error.h"

namespace pelkor::desktop {
namespace {

// The component's area in pixels.
constexpr int kFormWidth = 600;
constexpr int kFormHeight = 400;
// Long enough to read after closing the refusal's message box.
constexpr int kConflictMessageMs = 30000;

// The component's area at the desktop's font.
QSize DesignedFormSize() {
  return QSize(kFormWidth, kFormHeight) * FormZoom();
}

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
  auto sentences = std::make_shared<const HelpSentences>(ConfiguredHelpFile());
  options.helpSentence = [sentences](int mapId) { return sentences->ForTopic(mapId); };
  return options;
}

// The editor's form: its strips say what its pages declare.
BinderOptions EditorOptions(QtPlatform& platform, const pelkedit::PelkIboEdit& component) {
  BinderOptions options = FormOptions(platform);
  options.tabCaptions = [&component](const pelkedit::TabStrip& strip, std::int32_t tab) {
    return QString::fromStdString(component.TabCaption(strip, tab));
  };
  return options;
}

// Tab moves through the form in the order the component lays its widgets out; a look-up
// button comes right after the name it looks up.
void SetTabOrder(pelkedit::WidgetRegistry& widgets, const Binder& binder) {
  QWidget* previous = nullptr;
  for (const pelkedit::Widget* model : widgets.All()) {
    if (!model->Focusable()) continue;
    QWidget* widget = binder.WidgetFor(model->Name());
    if (widget == nullptr || !(widget->focusPolicy() & Qt::TabFocus)) continue;
    if (previous != nullptr) QWidget::setTabOrder(previous, widget);
    previous = widget;
    // A date edit's drop button comes right after its date.
    if (auto* box = qobject_cast<DateEditBox*>(binder.PlacedWidgetFor(model->Name()))) {
      QWidget::setTabOrder(previous, box->DropButton());
      previous = box->DropButton();
    }
    if (QWidget* button =
            model->LookUpPicture().empty() ? nullptr : binder.WidgetFor(model->LookUpPicture())) {
      QWidget::setTabOrder(previous, button);
      previous = button;
    }
  }
}

}  // namespace

QString ErrorText(const std::exception& error) {
  const auto* pelk = dynamic_cast<const pelkedit::PelkError*>(&error);
  if (pelk == nullptr) return QString::fromUtf8(error.what());
  // The sentence for people first; the number and source go into the box's details.
  return QString("%1\nError %2 in %3")
      .arg(QString::fromStdString(pelk->Description()))
      .arg(pelk->Number())
      .arg(QString::fromStdString(pelk->Source()));
}

QString StatusName(std::int32_t status) {
  for (const StatusChoice& choice : kStatusChoices) {
    if (choice.status == status) return QString(choice.caption).remove('&');
  }
  return "Unknown";
}

HostWindow::HostWindow(EditorEnvironment& environment, QWidget* parent)
    : HostWindow(environment, nullptr, parent) {}

HostWindow::HostWindow(EditorEnvironment& environment, std::unique_ptr<QtPlatform> own,
                       QWidget* parent)
    : QMainWindow(parent),
      environment_(environment),
      ownPlatform_(std::move(own)),
      platform_(ownPlatform_ ? *ownPlatform_ : environment.Platform()),
      statusLabel_(new QLabel(this)),
      modeLabel_(new QLabel(this)),
      tableLabel_(new QLabel(this)) {
  setObjectName("frmHost");
  setWindowTitle(kAppTitle);
  statusLabel_->setObjectName("lblHostStatus");
  modeLabel_->setObjectName("lblHostMode");
  tableLabel_->setObjectName("lblHostTable");
  statusBar()->addPermanentWidget(tableLabel_);
  statusBar()->addPermanentWidget(statusLabel_);
  statusBar()->addPermanentWidget(modeLabel_);
  BuildMenus();
  InstallWindowKeys(*this);
  ShowNothingOpen();
  UpdateActions();
  QtPlatform& platform = platform_;
  platform.SetHostWindow(this);
  platform.SetCloseRequestHandler([this] { OnCloseRequested(); });
  platform.DialogOptions() = FormOptions(platform);
}

HostWindow::~HostWindow() {
  QtPlatform& platform = platform_;
  platform.SetCloseRequestHandler(nullptr);
  // The form goes before the component whose models it shows.
  delete form_;
  component_.reset();
}

void HostWindow::BuildMenus() {
  QMenu* file = menuBar()->addMenu(tr("&File"));
  QAction* open =
      file->addAction(tr("&Open IBO from the Pipeline..."), this, &HostWindow::ChooseIbo);
  open->setShortcut(QKeySequence::Open);
  file->addSeparator();
  QAction* exit = file->addAction(tr("E&xit"), this, &QWidget::close);
  exit->setShortcut(QKeySequence::Quit);

  editMenu_ = menuBar()->addMenu(tr("&Edit"));
  editMenu_->setObjectName("mnuEdit");
  undoAction_ = editMenu_->addAction(tr("&Undo"), this, &HostWindow::Undo);
  undoAction_->setObjectName("actUndo");
  undoAction_->setShortcut(QKeySequence::Undo);
  redoAction_ = editMenu_->addAction(tr("&Redo"), this, &HostWindow::Redo);
  redoAction_->setObjectName("actRedo");
  // Ctrl+Shift+Z and Ctrl+Y both, whatever the desktop's own convention.
  redoAction_->setShortcuts(
      {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z), QKeySequence(Qt::CTRL | Qt::Key_Y)});
  InstallTextUndoFirst(*this);

  iboMenu_ = menuBar()->addMenu(tr("&IBO"));
  iboMenu_->addAction(tr("Change Start &Date..."), this, &HostWindow::ChangeStartDate);
  QMenu* status = iboMenu_->addMenu(tr("Change &Status"));
  statusActions_ = new QActionGroup(this);
  for (const StatusChoice& choice : kStatusChoices) {
    const std::int32_t code = choice.status;
    QAction* action =
        status->addAction(tr(choice.caption), this, [this, code] { ChangeStatus(code); });
    action->setCheckable(true);
    action->setData(code);
    statusActions_->addAction(action);
  }
  upgradeAction_ =
      iboMenu_->addAction(tr("&Upgrade to Expert Mode"), this, &HostWindow::UpgradeToExpert);
  iboMenu_->addSeparator();
  iboMenu_->addAction(tr("&Compare with Stored Version..."), this, &HostWindow::CompareWithStored);
  iboMenu_->addAction(tr("&History..."), this, &HostWindow::ShowHistory)
      ->setObjectName("actHistory");
}

void HostWindow::UpdateActions() {
  const QString undoName = component_ ? QString::fromStdString(component_->UndoName()) : QString();
  const QString redoName = component_ ? QString::fromStdString(component_->RedoName()) : QString();
  undoAction_->setText(undoName.isEmpty() ? tr("&Undo") : tr("&Undo %1").arg(undoName));
  undoAction_->setEnabled(!undoName.isEmpty());
  redoAction_->setText(redoName.isEmpty() ? tr("&Redo") : tr("&Redo %1").arg(redoName));
  redoAction_->setEnabled(!redoName.isEmpty());
  iboMenu_->setEnabled(component_ != nullptr);
  upgradeAction_->setEnabled(component_ != nullptr && !expert_);
}

bool HostWindow::OpenIbo(std::int32_t iboId, std::int32_t view) {
  std::unique_ptr<pelkedit::PelkIboEdit> component;
  const bool loaded = HostCall([&] {
    component = std::make_unique<pelkedit::PelkIboEdit>(platform_, *this);
    component->SetJournal(environment_.Journal());
    component->ShowIbo(iboId, view);
  });
  // When the load fails, the IBO shown so far stays in the window.
  if (!loaded) return false;
  auto* form = new QWidget;
  form->setObjectName("frmIboEdit");
  form->setMinimumSize(DesignedFormSize());
  form->installEventFilter(this);
  auto* binder = new Binder(component->Widgets(), form, EditorOptions(platform_, *component));
  binder->setObjectName("binder");
  SetTabOrder(component->Widgets(), *binder);
  connect(binder, &Binder::userActionHandled, this, &HostWindow::AfterUserAction);
  if (QWidget* advisorSays = binder->WidgetFor(pelkedit::widget::cmdAdvisorSays)) {
    advisorSays->setToolTip(tr("Hold the button (or Space) to see the advisor's view"));
  }
  // The old form and its binder go now, not later: they point at the old component's models.
  delete takeCentralWidget();
  setCentralWidget(form);
  form_ = form;
  binder_ = binder;
  component_ = std::move(component);
  iboId_ = iboId;
  view_ = view;
  readOnly_ = environment_.DatabaseReadOnly();
  QStringList where;
  if (view == pelkedit::view::kArchive) where << tr("Archived IBO");
  // Said when it is opened, not at the first refused save: edits can be looked at, not kept.
  if (readOnly_) where << tr("Read-only database: changes cannot be saved");
  tableLabel_->setText(where.join("  "));
  UpdateActions();
  UpdateTitle();
  return true;
}

// Until an IBO is open the window keeps the form's size and says how to open one.
void HostWindow::ShowNothingOpen() {
  auto* empty = new QWidget;
  empty->setObjectName("frmNoIbo");
  empty->setMinimumSize(DesignedFormSize());
  auto* text = new QLabel(tr("No IBO is open."), empty);
  auto* open = new QPushButton(tr("&Open IBO from the Pipeline..."), empty);
  connect(open, &QPushButton::clicked, this, &HostWindow::ChooseIbo);
  auto* layout = new QVBoxLayout(empty);
  layout->addStretch();
  layout->addWidget(text, 0, Qt::AlignHCenter);
  layout->addWidget(open, 0, Qt::AlignHCenter);
  layout->addStretch();
  setCentralWidget(empty);
}

bool HostWindow::eventFilter(QObject* watched, QEvent* event) {
  if (watched == form_ && event->type() == QEvent::Resize && binder_) {
    binder_->SetExtraRoom(form_->size() - DesignedFormSize());
  }
  return QMainWindow::eventFilter(watched, event);
}

void HostWindow::FocusFirstOfShownPage() {
  if (!component_ || !binder_) return;
  pelkedit::WidgetRegistry& widgets = component_->Widgets();
  const pelkedit::Widget* focused = widgets.Focused();
  const QWidget* shown = focused == nullptr ? nullptr : binder_->WidgetFor(focused->Name());
  if (shown != nullptr && shown->isVisible()) return;
  for (pelkedit::Widget* model : widgets.All()) {
    QWidget* widget = model->Focusable() ? binder_->WidgetFor(model->Name()) : nullptr;
    if (widget == nullptr || !widget->isVisible() || !(widget->focusPolicy() & Qt::TabFocus)) {
      continue;
    }
    // Through the models, so the widget left behind raises its lost focus.
    binder_->Run([&widgets, model] { widgets.MoveFocus(model); });
    return;
  }
}

void HostWindow::UpdateTitle() {
  QString title = QString::fromStdString(caption_);
  if (component_ && component_->Record()) {
    QString company;
    HostCall([&] {
      company = QString::fromStdString(
          component_->Record()->Get(pelkedit::prop::ContactCompany).AsString());
    });
    if (!company.isEmpty()) title += QString::fromUtf8(" \u2014 ") + company;
  }
  if (readOnly_) title += tr(" (read-only)");
  setWindowTitle((title.isEmpty() ? QString(kAppTitle) : title) + "[*]");
  setWindowModified(component_ && component_->IboChanged());
}

void HostWindow::AfterUserAction() {
  // A press on a tab strip took the focus from the field being edited: it goes to the page.
  FocusFirstOfShownPage();
  UpdateTitle();
  UpdateActions();
  if (environment_.SavesRefused() == savesRefusedSeen_) return;
  savesRefusedSeen_ = environment_.SavesRefused();
  statusBar()->showMessage(tr("Someone else saved this IBO after you opened it. IBO > Compare "
                              "with Stored Version shows what differs."),
                           kConflictMessageMs);
}

bool HostWindow::HostCall(const std::function<void()>& call) {
  try {
    call();
    return true;
  } catch (const std::exception& error) {
    // A failed call may leave the component's hourglass up; the user gets their pointer back.
    platform_.SetScreenPointer(pelkedit::MousePointer::kDefault);
    ShowError(platform_, error);
    return false;
  }
}

bool HostWindow::ChangeCall(const std::function<void()>& call) {
  const bool ran = HostCall(call);
  UpdateTitle();
  return ran;
}

bool HostWindow::ReleaseCurrent() {
  if (!component_) return true;
  QtPlatform& platform = platform_;
  const int writesBefore = environment_.WritesDone();
  const int messagesBefore = platform.MessagesShown();
  if (!HostCall([this] { component_->FormClose(); })) return false;
  // Saved on request (Yes) or discarded on request (No): the IBO may go.
  if (!component_->IboChanged() || environment_.WritesDone() > writesBefore) return true;
  // The component asked and the user kept the window (Cancel), or the save was refused.
  if (platform.MessagesShown() != messagesBefore) return false;
  // The component asks only once: after a Cancel on its question the closing asks here, so
  // that Save is never the only way out.
  return AskBeforeClosing();
}

bool HostWindow::AskBeforeClosing() {
  const auto answer = platform_.MsgBox(
      tr("This IBO has changes that are not saved. Save them before closing?").toStdString(),
      pelkedit::MsgIcon::kQuestion, pelkedit::MsgButtons::kYesNoCancel, kAppTitle);
  if (answer == pelkedit::MsgAnswer::kNo) return true;
  if (answer == pelkedit::MsgAnswer::kYes && binder_ != nullptr) {
    // The editor's own Save: checked, written, and its close request closes the window; a
    // refused save keeps the window and the edits.
    if (auto* save = qobject_cast<QPushButton*>(binder_->WidgetFor(pelkedit::widget::cmdSave))) {
      save->click();
    }
  }
  return false;
}

void HostWindow::OnCloseRequested() {
  closeRequested_ = true;
  close();
  closeRequested_ = false;
}

void HostWindow::closeEvent(QCloseEvent* event) {
  if (closeRequested_ && component_) {
    // The component asks for the close only when the record is settled: saved, discarded by
    // the user's No, or unchanged. After Save it would only ask about the record again; else
    // it is told the window closes, and whatever it collects then is what the user gave up.
    if (!component_->IboSaved()) HostCall([this] { component_->FormClose(); });
    event->accept();
    return;
  }
  if (!ReleaseCurrent()) {
    event->ignore();
    return;
  }
  event->accept();
}

void HostWindow::SetFormCaption(const std::string& caption) {
  caption_ = caption;
  UpdateTitle();
}

void HostWindow::SetIBOStatus(std::int32_t status) {
  statusLabel_->setText(tr("Status: %1").arg(StatusName(status)));
  for (QAction* action : statusActions_->actions()) {
    action->setChecked(action->data().toInt() == status);
  }
}

void HostWindow::SetExpertMode(bool expert) {
  expert_ = expert;
  modeLabel_->setText(expert ? tr("Expert mode") : tr("Basic mode"));
  UpdateActions();
}

QtPlatform& HostWindow::Platform() {
  return platform_;
}

QString HostWindow::StatusText() const {
  return statusLabel_->text();
}

QString HostWindow::ModeText() const {
  return modeLabel_->text();
}

}  // namespace pelkor::desktop
