#include "platform/modal_window.h"

#include <QPushButton>

namespace pelkor::desktop {

ModalWindow::ModalWindow(pelkedit::ModalDialog& model, const BinderOptions& options,
                         QWidget* parent)
    : QDialog(parent), model_(model), binder_(new Binder(model.Widgets(), this, options)) {
  setObjectName(QString::fromStdString(model.Name()));
  setWindowTitle(QString::fromStdString(model.Caption()));
  setWindowFlag(Qt::WindowContextHelpButtonHint, false);
  setFixedSize(model.WidthPixels(), model.HeightPixels());
  const QString defaultButton = QString::fromStdString(model.DefaultButton());
  if (!defaultButton.isEmpty()) {
    if (auto* button = findChild<QPushButton*>(defaultButton)) button->setDefault(true);
  }
  connect(binder_, &Binder::userActionHandled, this, &ModalWindow::CloseWhenModelClosed);
}

void ModalWindow::Run() {
  model_.Open();
  if (!model_.IsOpen()) return;
  exec();
}

void ModalWindow::reject() {
  // The close box and Escape: the model decides what a close by the window means.
  if (model_.IsOpen()) model_.CloseBox();
  QDialog::reject();
}

void ModalWindow::CloseWhenModelClosed() {
  if (!model_.IsOpen() && isVisible()) done(QDialog::Accepted);
}

}  // namespace pelkor::desktop
