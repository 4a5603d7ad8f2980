#pragma once

#include <QLabel>
#include <QMainWindow>
#include <QPointer>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "app/editor_environment.h"
#include "binding/binder.h"
#include "control/editor_events.h"
#include "control/pelk_ibo_edit.h"

class QAction;
class QActionGroup;
class QMenu;

namespace pelkor::desktop {

// The application's name in window titles and message boxes.
inline constexpr const char* kAppTitle = "Pelkor";

// The main window of pelkor-edit: one editor component at a time, drawn by the binder on a
// form of the component's size, with the host's own menu, title and status bar.
class HostWindow : public QMainWindow, public pelkedit::IEditorEvents {
  Q_OBJECT
 public:
  explicit HostWindow(EditorEnvironment& environment, QWidget* parent = nullptr);
  // A window with a platform of its own, so that several editor windows can be open at once,
  // each receiving its own component's close request.
  HostWindow(EditorEnvironment& environment, std::unique_ptr<QtPlatform> platform,
             QWidget* parent = nullptr);
  ~HostWindow() override;

  // Shows the IBO in a fresh component. When it cannot be loaded the user is told and the IBO
  // shown so far stays; returns whether the new one is shown.
  bool OpenIbo(std::int32_t iboId, std::int32_t view);

  pelkedit::PelkIboEdit* Component() { return component_.get(); }
  Binder* Binding() { return binder_; }
  QWidget* Form() { return form_; }
  QtPlatform& Platform();
  QString StatusText() const;
  QString ModeText() const;
  // Moves the keyboard focus to the first Tab stop of the page shown, when the focus is on a
  // page no longer shown.
  void FocusFirstOfShownPage();

  // Closes the IBO shown (asking about unsaved edits as closing would) and shows another;
  // false when the user keeps the one shown, or the other cannot be loaded.
  bool SwitchTo(std::int32_t iboId, std::int32_t view);
  std::int32_t IboId() const { return component_ ? iboId_ : 0; }
  std::int32_t View() const { return view_; }
  // What File > Open IBO does: shows the pipeline to pick a deal from.
  void SetPipelineOpener(std::function<void()> opener) { pipelineOpener_ = std::move(opener); }

  // The host's menu commands.
  void ChooseIbo();
  void ChangeStartDate();
  void ChangeStatus(std::int32_t status);
  void UpgradeToExpert();
  void Undo();
  void Redo();
  // What differs between the editor and the stored record; the user may reopen the stored one.
  void CompareWithStored();
  void ShowHistory();
  // After a refused save: the stored version with the user's changes merged in, as unsaved
  // changes.
  void MergeWithStored();

  void SetFormCaption(const std::string& caption) override;
  void SetIBOStatus(std::int32_t status) override;
  void SetExpertMode(bool expert) override;

 protected:
  void closeEvent(QCloseEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void BuildMenus();
  void ShowNothingOpen();
  void UpdateActions();
  // Lets the component close its IBO; true when nothing the user wants kept is left unsaved.
  bool ReleaseCurrent();
  // Asks whether to save when the component will not ask again; false keeps the window.
  bool AskBeforeClosing();
  // Runs a call into the component; a failure is shown to the user. Returns whether it ran.
  bool HostCall(const std::function<void()>& call);
  // A host call that may change the record: the title follows.
  bool ChangeCall(const std::function<void()>& call);
  void OnCloseRequested();
  // The title: the editor's caption, the company, and the unsaved-changes marker.
  void UpdateTitle();
  // After each user action: the title, and a pointer to the comparison after a refused save.
  void AfterUserAction();

  EditorEnvironment& environment_;
  std::unique_ptr<QtPlatform> ownPlatform_;
  QtPlatform& platform_;
  std::unique_ptr<pelkedit::PelkIboEdit> component_;
  QPointer<QWidget> form_;
  QPointer<Binder> binder_;
  QLabel* statusLabel_;
  QLabel* modeLabel_;
  QLabel* tableLabel_;
  QMenu* iboMenu_ = nullptr;
  QMenu* editMenu_ = nullptr;
  QAction* undoAction_ = nullptr;
  QAction* redoAction_ = nullptr;
  QActionGroup* statusActions_ = nullptr;
  std::string caption_;
  QAction* upgradeAction_ = nullptr;
  bool expert_ = false;
  // The IBO shown and where it was read from.
  std::int32_t iboId_ = 0;
  // The database may only be read: the title and the status bar say so.
  bool readOnly_ = false;
  std::int32_t view_ = 0;
  // Refused saves already pointed out.
  int savesRefusedSeen_ = 0;
  // Set while the component's own close request (after Save or Cancel) is being handled.
  bool closeRequested_ = false;
  std::function<void()> pipelineOpener_;
};

// The text of an error for a message box: number, source and description.
QString ErrorText(const std::exception& error);
// A status code's name (Open, Won, Lost, Cancelled).
QString StatusName(std::int32_t status);

}  // namespace pelkor::desktop
