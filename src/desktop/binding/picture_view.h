#pragma once

#include <QPixmap>
#include <QWidget>
#include <functional>

namespace pelkor::desktop {

// A picture area: shows its picture at natural size from the top-left corner, nothing when empty.
class PictureView : public QWidget {
  Q_OBJECT
 public:
  explicit PictureView(QWidget* parent = nullptr) : QWidget(parent) {}
  void SetPixmap(const QPixmap& pixmap);
  // The picture is drawn by `draw` when it is first needed: a picture on a page nobody opens
  // is never drawn.
  void SetPixmapSource(std::function<QPixmap()> draw);
  const QPixmap& Pixmap() const;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  mutable QPixmap pixmap_;
  mutable std::function<QPixmap()> draw_;
};

}  // namespace pelkor::desktop
