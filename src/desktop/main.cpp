// pelkor-edit: the desktop editor for one IBO of a Pelkor database.
#include <CLI/CLI.hpp>
#include <QApplication>
#include <QFileInfo>
#include <QMessageBox>
#include <QTextStream>
#include <QTimer>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <string>

#include "app/app_style.h"
#include "app/editor_environment.h"
#include "app/first_paint.h"
#include "app/host_window.h"
#include "app/postgres_loader.h"
#include "app/screenshots.h"
#include "app/window_placement.h"
#include "config/install_layout.h"
#include "data/demo_seed.h"
#include "pipeline/pipeline_screenshots.h"
#include "pipeline/pipeline_window.h"

namespace {

using pelkor::desktop::EditorEnvironment;
using pelkor::desktop::HostWindow;
using pelkor::desktop::PipelineWindow;

constexpr const char* kScreenshotsOption = "--screenshots";

struct Options {
  std::string db;
  std::optional<std::int32_t> ibo;
  std::optional<std::int32_t> view;
  std::string screenshots;
  // Quit as soon as the window is shown (the start-up benchmark).
  bool measureStart = false;
};

// Start-up problems the user can act on: a box when someone is there to read it, and always a
// line on the error stream; the exit code says it failed.
int StartUpFailure(const Options& options, const QString& text) {
  QTextStream(stderr) << "pelkor-edit: " << text << "\n";
  if (options.screenshots.empty()) {
    QMessageBox box(QMessageBox::Critical, "Pelkor", text, QMessageBox::Ok);
    box.exec();
  }
  return EXIT_FAILURE;
}

// Where an IBO is: the view given, else the main table when it holds the id, else the archive.
std::int32_t ViewOf(EditorEnvironment& environment, std::int32_t ibo,
                    std::optional<std::int32_t> view) {
  if (view) return *view;
  if (environment.Db()->Find(pelkor::IboTable::kMain, ibo)) return pelkedit::view::kMain;
  if (environment.Db()->Find(pelkor::IboTable::kArchive, ibo)) return pelkedit::view::kArchive;
  return pelkedit::view::kMain;
}

QtMessageHandler standardMessageHandler = nullptr;

// The offscreen platform's notes about what it cannot do say nothing about the editor.
void QuietOffscreenNotes(QtMsgType type, const QMessageLogContext& context, const QString& text) {
  if (type == QtWarningMsg && (text.startsWith("This plugin does not support") ||
                               text.startsWith("QStandardPaths: XDG_RUNTIME_DIR not set"))) {
    return;
  }
  if (standardMessageHandler != nullptr) standardMessageHandler(type, context, text);
}

// Screenshots need no display: without a platform chosen they are drawn offscreen.
void PreferOffscreenForScreenshots(int argc, char** argv) {
  if (std::getenv("QT_QPA_PLATFORM") != nullptr) return;
  for (int i = 1; i < argc; ++i) {
    if (std::strncmp(argv[i], kScreenshotsOption, std::strlen(kScreenshotsOption)) == 0) {
      setenv("QT_QPA_PLATFORM", "offscreen", 1);
      return;
    }
  }
}

int Run(const Options& options) {
  const bool useDefault = options.db.empty();
  const std::string dbPath = useDefault ? pelkor::desktop::DefaultDatabasePath() : options.db;
  // Only the default database is created (with the demo opportunities); a mistyped name must
  // not leave an empty database behind.
  if (!useDefault && !pelkor::IsServerName(dbPath) &&
      !QFileInfo::exists(QString::fromStdString(dbPath))) {
    return StartUpFailure(
        options, QString("The database '%1' does not exist. Check the path, or create a demo "
                         "database with: pelkor-db seed %1")
                     .arg(QString::fromStdString(dbPath)));
  }
  EditorEnvironment environment(
      {dbPath, pelkor::desktop::DefaultTraceLogPath(),
       useDefault ? pelkor::StoreOpening::kCreateIfMissing : pelkor::StoreOpening::kExistingOnly,
       ""});
  try {
    // Opening checks the database; nothing is listed until the pipeline shows a page.
    if (useDefault) pelkor::SeedDemoData(*environment.Db());
    environment.Db();
  } catch (const pelkedit::PelkError& error) {
    return StartUpFailure(options, QString::fromStdString(error.Description()));
  }

  if (!options.screenshots.empty()) {
    // Nobody is there to answer: messages go to the error stream and take their safe answer.
    environment.Platform().SetMessageHook([](const pelkor::desktop::QtPlatform::Message& message) {
      QTextStream(stderr) << "pelkor-edit: " << QString::fromStdString(message.title) << ": "
                          << QString::fromStdString(message.text) << "\n";
      return message.buttons == pelkedit::MsgButtons::kOk ? pelkedit::MsgAnswer::kOk
                                                          : pelkedit::MsgAnswer::kCancel;
    });
    QStringList files;
    {
      HostWindow window(environment);
      window.show();
      const std::int32_t view =
          options.ibo ? ViewOf(environment, *options.ibo, options.view) : pelkedit::view::kMain;
      files = pelkor::desktop::WriteScreenshots(
          window, environment, QString::fromStdString(options.screenshots), options.ibo, view);
    }
    if (!options.ibo) {
      PipelineWindow pipeline(environment);
      files << pelkor::desktop::WritePipelineScreenshots(
          pipeline, QString::fromStdString(options.screenshots));
    }
    QTextStream out(stdout);
    out << "Screenshots (" << files.size() << ") written to "
        << QFileInfo(QString::fromStdString(options.screenshots)).absoluteFilePath() << ":\n";
    for (const QString& file : files) out << "  " << QFileInfo(file).fileName() << "\n";
    return EXIT_SUCCESS;
  }
  // The pipeline is the home; with --ibo the editor opens at once and the pipeline waits until
  // the user asks for it.
  PipelineWindow pipeline(environment);
  pelkor::desktop::RestorePlacement(pipeline);
  QWidget* first = &pipeline;
  if (options.ibo) {
    const std::int32_t view = ViewOf(environment, *options.ibo, options.view);
    pipeline.OpenDeal(*options.ibo, view == pelkedit::view::kArchive);
    // An IBO that cannot be shown has been reported; the user picks another.
    if (pipeline.Editor() != nullptr) first = pipeline.Editor();
  }
  if (first == &pipeline) pipeline.show();
  if (options.measureStart) new pelkor::desktop::QuitAfterFirstPaint(*first);
  const int result = QApplication::exec();
  // A measuring run leaves the user's settings as they were.
  if (options.measureStart) return result;
  if (pipeline.isVisible() || first == &pipeline) pelkor::desktop::SavePlacement(pipeline);
  return result;
}

}  // namespace

int main(int argc, char** argv) {
  CLI::App cli{"Shows the pipeline of a Pelkor database and edits its deals."};
  cli.set_version_flag("--version", std::string("pelkor-edit " PELK_VERSION " (") +
                                        pelkor::DescribeDataPlaces() + ")");
  // Qt's own options (-platform, -style, ...) pass through to the application.
  cli.allow_extras();
  Options options;
  cli.add_option("--db", options.db,
                 "database file or postgresql:// URI (default: $PELKOR_DB, else the demo "
                 "database)")
      ->envname(pelkor::kDatabaseVariable);
  cli.add_option("--ibo", options.ibo,
                 "open this IBO in the editor at once (default: the pipeline)");
  cli.add_option("--view", options.view,
                 "view code: 0 to 2 main table, 3 archive (default: where the IBO is)")
      ->check(CLI::Range(0, pelkedit::view::kArchive));
  cli.add_flag("--measure-start", options.measureStart, "quit once the window has painted")
      ->group("");
  cli.add_option(kScreenshotsOption, options.screenshots,
                 "write a PNG of every tab to this folder and exit");
  try {
    cli.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    return cli.exit(error);
  }
  pelkor::desktop::UsePostgresModule();
  // Parsed before the application starts, so --help and mistakes need no display.
  PreferOffscreenForScreenshots(argc, argv);
  standardMessageHandler = qInstallMessageHandler(QuietOffscreenNotes);
  QApplication application(argc, argv);
  QApplication::setApplicationName("pelkor");
  QApplication::setApplicationDisplayName("Pelkor");
  // The style takes its base (the platform's choice) when it is set.
  QApplication::setStyle(new pelkor::desktop::AppStyle);
  try {
    return Run(options);
  } catch (const std::exception& error) {
    QTextStream(stderr) << "pelkor-edit: " << pelkor::desktop::ErrorText(error) << "\n";
    return EXIT_FAILURE;
  }
}
