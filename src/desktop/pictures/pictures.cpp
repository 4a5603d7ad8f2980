#include "pictures/pictures.h"

#include <QFontMetrics>
#include <QGuiApplication>
#include <QPainter>

#include "pictures/drawing.h"

namespace pelkor::desktop {
namespace drawing {

namespace {
// Font stretch tried when a caption does not fit at its natural width.
constexpr int kCondensedStretch = QFont::SemiCondensed;
}  // namespace

QPixmap Blank(int width, int height, const QColor& fill) {
  QPixmap pixmap(width, height);
  pixmap.fill(fill);
  return pixmap;
}

QFont UiFont(int pixelSize, bool bold) {
  QFont font = QGuiApplication::font();
  font.setPixelSize(pixelSize);
  font.setBold(bold);
  font.setStyleStrategy(QFont::PreferAntialias);
  return font;
}

QFont FitFont(const QString& text, int width, int pixelSize, int minPixelSize, bool bold) {
  QFont font = UiFont(pixelSize, bold);
  for (int size = pixelSize; size >= minPixelSize; --size) {
    font.setPixelSize(size);
    font.setStretch(QFont::Unstretched);
    if (QFontMetrics(font).horizontalAdvance(text) <= width) return font;
    font.setStretch(kCondensedStretch);
    if (QFontMetrics(font).horizontalAdvance(text) <= width) return font;
  }
  return font;
}

}  // namespace drawing

namespace {

using drawing::TabBand;

const std::vector<TabBand>& ExpertTabs() {
  static const std::vector<TabBand> tabs{{"Essentials", 0, 81},
                                         {"Sales Advisor", 82, 162},
                                         {"Sales Environment", 163, 263},
                                         {"IBO Info", 264, 347},
                                         {"IBO Note", 348, 404}};
  return tabs;
}

const std::vector<TabBand>& NormalTabs() {
  static const std::vector<TabBand> tabs{{"Essentials", 0, 82},
                                         {"Sales Advisor", 83, 163},
                                         {"IBO Info", 164, 247},
                                         {"IBO Note", 248, 304}};
  return tabs;
}

const std::vector<TabBand>& SubTabs() {
  static const std::vector<TabBand> tabs{{"Probe", 0, 43}, {"Prove", 44, 88}, {"Close", 89, 127}};
  return tabs;
}

constexpr int kStripHeight = 21;
constexpr int kExpertStripWidth = 405;
constexpr int kNormalStripWidth = 305;
constexpr int kSubStripWidth = 128;

bool InRange(int id, int first, int last) {
  return id >= first && id <= last;
}

}  // namespace

bool IsKnownPicture(int id) {
  return InRange(id, picture::kExpertStripFirst, picture::kAdvisorPriorityLast) ||
         InRange(id, picture::kMatrix, picture::kCycleMarker);
}

QPixmap DrawPicture(int id) {
  using namespace picture;
  if (InRange(id, kExpertStripFirst, kExpertStripLast)) {
    return drawing::DrawTabStrip(ExpertTabs(), kExpertStripWidth, kStripHeight,
                                 id - kExpertStripFirst);
  }
  if (InRange(id, kNormalStripFirst, kNormalStripLast)) {
    return drawing::DrawTabStrip(NormalTabs(), kNormalStripWidth, kStripHeight,
                                 id - kNormalStripFirst);
  }
  if (InRange(id, kSubStripFirst, kSubStripLast)) {
    return drawing::DrawTabStrip(SubTabs(), kSubStripWidth, kStripHeight, id - kSubStripFirst);
  }
  if (InRange(id, kUserPriorityFirst, kUserPriorityLast)) {
    return drawing::DrawPriority(id - kUserPriorityFirst + 1, false);
  }
  if (InRange(id, kAdvisorPriorityFirst, kAdvisorPriorityLast)) {
    return drawing::DrawPriority(id - kAdvisorPriorityFirst + 1, true);
  }
  switch (id) {
    case kMatrix:
      return drawing::DrawMatrix();
    case kUserSquare:
    case kAdvisorSquare:
    case kCommonSquare:
      return drawing::DrawMarkerSquare(id);
    case kSalesCycle:
      return drawing::DrawSalesCycle();
    case kCycleMarker:
      return drawing::DrawCycleMarker();
    default:
      return {};
  }
}

}  // namespace pelkor::desktop
