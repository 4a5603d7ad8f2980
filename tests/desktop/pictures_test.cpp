#include <QDir>
#include <QImage>
#include <QPainter>
#include <QtTest>

#include "control/tab_strips.h"
#include "pictures/pictures.h"

using pelkor::desktop::DrawPicture;
namespace picture = pelkor::desktop::picture;

namespace {

// The strips the editor hit-tests; each drawn picture must raise exactly its band.
const std::vector<const pelkedit::TabStrip*>& Strips() {
  static const std::vector<const pelkedit::TabStrip*> strips{
      &pelkedit::ExpertMainStrip(), &pelkedit::BasicMainStrip(), &pelkedit::PhaseStrip()};
  return strips;
}

// Rows of a strip above the idle tabs: only the raised tab reaches them.
constexpr int kRaisedRow = 1;
// A row where every tab shows its side edges.
constexpr int kEdgeRow = 12;
constexpr int kCornerAllowance = 5;

int Lightness(const QImage& image, int x, int y) {
  return image.pixelColor(x, y).lightness();
}

}  // namespace

class PicturesTest : public QObject {
  Q_OBJECT

 private slots:
  void sizesFollowTheFormLayout() {
    const std::vector<std::pair<int, QSize>> expected{{101, {405, 21}},
                                                      {105, {405, 21}},
                                                      {106, {305, 21}},
                                                      {109, {305, 21}},
                                                      {110, {128, 21}},
                                                      {112, {128, 21}},
                                                      {113, {140, 140}},
                                                      {122, {140, 140}},
                                                      {picture::kMatrix, {139, 139}},
                                                      {picture::kUserSquare, {36, 36}},
                                                      {picture::kAdvisorSquare, {36, 36}},
                                                      {picture::kCommonSquare, {36, 36}},
                                                      {picture::kSalesCycle, {250, 117}},
                                                      {picture::kCycleMarker, {8, 101}}};
    for (const auto& [id, size] : expected) QCOMPARE(DrawPicture(id).size(), size);
    QVERIFY(DrawPicture(0).isNull());
    QVERIFY(DrawPicture(123).isNull());
  }

  // The strip is clicked by fixed bands, so each drawn tab must occupy exactly its band.
  void drawnTabsFallOnTheHitBands() {
    for (const pelkedit::TabStrip* strip : Strips()) {
      for (std::size_t selected = 0; selected < strip->bands.size(); ++selected) {
        const QImage image =
            DrawPicture(strip->firstPicture + static_cast<int>(selected)).toImage();
        QCOMPARE(image.width(), strip->widthPixels);
        const pelkedit::TabBand band = strip->bands[selected];
        const QColor background = image.pixelColor(0, 0);
        for (int x = 0; x < strip->widthPixels; ++x) {
          const bool inside = x >= band.first && x <= band.last;
          const bool clearOfCorners =
              x >= band.first + kCornerAllowance && x <= band.last - kCornerAllowance;
          const bool raised = image.pixelColor(x, kRaisedRow) != background;
          if (!inside)
            QVERIFY2(
                !raised,
                qPrintable(QString("x=%1 id=%2").arg(x).arg(strip->firstPicture + int(selected))));
          if (clearOfCorners) QVERIFY2(raised, qPrintable(QString("x=%1").arg(x)));
        }
        // Every tab, raised or not, shows its side edges on its band's first and last column.
        for (const pelkedit::TabBand& b : strip->bands) {
          QVERIFY(Lightness(image, b.first, kEdgeRow) < Lightness(image, b.first + 2, kEdgeRow));
          QVERIFY(Lightness(image, b.last, kEdgeRow) < Lightness(image, b.last - 2, kEdgeRow));
        }
      }
    }
  }

  void markerSquaresHaveTheirColours() {
    const QImage user = DrawPicture(picture::kUserSquare).toImage();
    const QImage advisor = DrawPicture(picture::kAdvisorSquare).toImage();
    const QImage common = DrawPicture(picture::kCommonSquare).toImage();
    QCOMPARE(user.pixelColor(5, 5), QColor(128, 128, 128));
    QCOMPARE(user.pixelColor(18, 18), QColor(128, 128, 128));  // plain: no letter
    QCOMPARE(advisor.pixelColor(5, 5), QColor(241, 241, 241));
    QCOMPARE(common.pixelColor(5, 5), QColor(128, 128, 128));
    // The letter darkens the middle of the lettered squares.
    auto darkPixels = [](const QImage& image) {
      int count = 0;
      for (int y = 8; y < 28; ++y)
        for (int x = 8; x < 28; ++x) count += image.pixelColor(x, y).lightness() < 40 ? 1 : 0;
      return count;
    };
    QVERIFY(darkPixels(advisor) > 20);
    QVERIFY(darkPixels(common) > 20);
    QCOMPARE(darkPixels(user), 0);
  }

  void cycleMarkerIsTheBlueBar() {
    const QImage bar = DrawPicture(picture::kCycleMarker).toImage();
    QCOMPARE(bar.pixelColor(0, 50), QColor(100, 135, 220));
    QCOMPARE(bar.pixelColor(7, 0), QColor(100, 135, 220));
  }

  // The advisor's pictures are the dark variant of the user's.
  void advisorPrioritiesAreDarkerThanTheUsers() {
    for (int priority = 0; priority < 5; ++priority) {
      const QImage user = DrawPicture(pelkedit::picture::kUserPriorityFirst + priority).toImage();
      const QImage advisor =
          DrawPicture(pelkedit::picture::kAdvisorPriorityFirst + priority).toImage();
      QVERIFY(user.pixelColor(10, 70).lightness() > 200);
      QVERIFY(advisor.pixelColor(10, 70).lightness() < 100);
    }
  }
};

QTEST_MAIN(PicturesTest)
#include "pictures_test.moc"
