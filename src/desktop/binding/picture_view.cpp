#include "binding/picture_view.h"

#include <QPainter>

namespace pelkor::desktop {

void PictureView::SetPixmap(const QPixmap& pixmap) {
  draw_ = nullptr;
  pixmap_ = pixmap;
  update();
}

void PictureView::SetPixmapSource(std::function<QPixmap()> draw) {
  draw_ = std::move(draw);
  pixmap_ = QPixmap();
  update();
}

const QPixmap& PictureView::Pixmap() const {
  if (draw_) {
    pixmap_ = draw_();
    draw_ = nullptr;
  }
  return pixmap_;
}

void PictureView::paintEvent(QPaintEvent*) {
  const QPixmap& pixmap = Pixmap();
  if (pixmap.isNull()) return;
  QPainter painter(this);
  painter.drawPixmap(0, 0, pixmap);
}

}  // namespace pelkor::desktop
