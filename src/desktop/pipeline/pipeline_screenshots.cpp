#include "pipeline/pipeline_screenshots.h"

#include <QApplication>
#include <QDir>
#include <QLineEdit>
#include <QTabBar>
#include <QTableView>

#include "pipeline/new_deal_dialog.h"
#include "pipeline/pipeline_model.h"
#include "pipeline/pipeline_pictures.h"
#include "pipeline/pipeline_window.h"

namespace pelkor::desktop {
namespace {

// The pictures of the pipeline show it as a new user sees it on a desktop screen, whatever the
// screen they are drawn on.
constexpr QSize kShownSize(1280, 720);

QString Save(QWidget& widget, const QDir& folder, const QString& name) {
  QApplication::processEvents();
  const QString path = folder.filePath(name);
  if (!widget.grab().save(path)) throw std::runtime_error("cannot write " + path.toStdString());
  return path;
}

}  // namespace

QStringList WritePipelineScreenshots(PipelineWindow& pipeline, const QString& folder) {
  const QDir dir(folder);
  QStringList written;
  pipeline.resize(kShownSize);
  pipeline.show();
  pipeline.ShowArchive(false);
  written << Save(pipeline, dir, "pipeline-main.png");
  written << Save(*pipeline.Matrix(), dir, "pipeline-matrix.png");
  written << Save(*pipeline.Forecast(), dir, "pipeline-forecast.png");
  // A search for a word of the last deal listed, as a user looking for it would type.
  const int last = pipeline.Model()->rowCount() - 1;
  const IboSummary* deal = pipeline.Model()->Summary(last);
  pipeline.Search()->setText(
      deal == nullptr ? QString("harbor")
                      : QString::fromStdString(deal->company).section(' ', 0, 0).toLower());
  pipeline.ApplyFilters();
  written << Save(pipeline, dir, "pipeline-search.png");
  pipeline.Search()->clear();
  pipeline.ApplyFilters();
  pipeline.ShowArchive(true);
  written << Save(pipeline, dir, "pipeline-archive.png");
  pipeline.ShowArchive(false);

  NewDealDialog dialog(pipeline.Environment().Db(), &pipeline);
  dialog.Company()->setText("Acme Robotics");
  dialog.show();
  written << Save(dialog, dir, "new-ibo.png");
  return written;
}

}  // namespace pelkor::desktop
