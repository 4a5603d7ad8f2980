#pragma once

#include <QDialog>

#include "binding/binder.h"
#include "platform/modal_dialog.h"

namespace pelkor::desktop {

// A dialog window that shows a dialog model until the model closes itself or the user closes
// the window (the close box counts as the model's close box).
class ModalWindow : public QDialog {
  Q_OBJECT
 public:
  ModalWindow(pelkedit::ModalDialog& model, const BinderOptions& options, QWidget* parent);
  // Opens the model (its load) and runs the window while the model is open.
  void Run();
  Binder& Binding() { return *binder_; }

 public slots:
  void reject() override;

 private:
  void CloseWhenModelClosed();

  pelkedit::ModalDialog& model_;
  Binder* binder_;
};

}  // namespace pelkor::desktop
