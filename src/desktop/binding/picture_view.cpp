#include "binding/picture_view.h"

#include <QPainter>

namespace pelkor::desktop {

void PictureView::SetPixmap(const QPixmap& pixmap) {
  pixmap_ = pixmap;
  update();
}

void PictureView::paintEvent(QPaintEvent*) {
  if (pixmap_.isNull()) return;
  QPainter painter(this);
  painter.drawPixmap(0, 0, pixmap_);
}

}  // namespace pelkor::desktop
