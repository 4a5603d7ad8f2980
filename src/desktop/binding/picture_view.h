#pragma once

#include <QPixmap>
#include <QWidget>

namespace pelkor::desktop {

// A picture area: shows its picture at natural size from the top-left corner, nothing when empty.
class PictureView : public QWidget {
  Q_OBJECT
 public:
  explicit PictureView(QWidget* parent = nullptr) : QWidget(parent) {}
  void SetPixmap(const QPixmap& pixmap);
  const QPixmap& Pixmap() const { return pixmap_; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QPixmap pixmap_;
};

}  // namespace pelkor::desktop
