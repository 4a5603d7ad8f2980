#include "platform/modal_window.h"

#include <QApplication>
#include <QFontMetrics>
#include <QHBoxLayout>
#include <QPushButton>
#include <algorithm>

#include "pictures/pictures.h"

namespace pelkor::desktop {

namespace {

// Room the window's title bar takes besides the title: icon, buttons and margins.
constexpr int kTitleBarAllowance = 140;

// The dialog's own area, of the size its model was designed for.
QWidget* MakeContent(const pelkedit::ModalDialog& model, QWidget* parent) {
  auto* content = new QWidget(parent);
  content->setFixedSize(QSize(model.WidthPixels(), model.HeightPixels()) * FormZoom());
  return content;
}

}  // namespace

ModalWindow::ModalWindow(pelkedit::ModalDialog& model, const BinderOptions& options,
                         QWidget* parent)
    : QDialog(parent),
      model_(model),
      binder_(new Binder(model.Widgets(), MakeContent(model, this), options)) {
  setObjectName(QString::fromStdString(model.Name()));
  const QString title = QString::fromStdString(model.Caption());
  setWindowTitle(title);
  setWindowFlag(Qt::WindowContextHelpButtonHint, false);
  // Wide enough for the whole title; the design stays centred in the window.
  const QFont titleFont = QApplication::font("QMdiSubWindowTitleBar");
  const QSize design = QSize(model.WidthPixels(), model.HeightPixels()) * FormZoom();
  const int width = std::max(design.width(),
                             QFontMetrics(titleFont).horizontalAdvance(title) + kTitleBarAllowance);
  setFixedSize(width, design.height());
  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(qobject_cast<QWidget*>(binder_->parent()), 0, Qt::AlignCenter);
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
