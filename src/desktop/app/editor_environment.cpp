#include "app/editor_environment.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

#include "advisor/scripted_engine.h"
#include "app/rules_loader.h"
#include "config/ini_config.h"
#include "config/local_file_system.h"
#include "contacts/qt_contact_lookup.h"
#include "files/private_files.h"
#include "journal/file_journal.h"
#include "products/product_list_view.h"
#include "record/ibo_properties.h"
#include "trace/err_object.h"
#include "trace/mod_init.h"
#include "trace/trace_log.h"

namespace pelkor::desktop {
namespace {

constexpr const char* kDatabaseFileName = "demo.pelkdb";
constexpr const char* kTraceLogFileName = "pelkedit.log";

// Counts the records written, so the host can tell whether closing saved the edits, and the
// saves refused because someone else saved first, so it can offer to compare.
class CountingDataAccess : public pelkedit::IDataAccess, public pelkedit::ForwardedRowVersions {
 public:
  CountingDataAccess(std::shared_ptr<pelkedit::IDataAccess> inner,
                     std::shared_ptr<EditorEnvironment::Counts> counts)
      : ForwardedRowVersions(inner), inner_(std::move(inner)), counts_(std::move(counts)) {}
  pelkedit::Blob ReadIbo(std::int32_t iboId, const std::string& procName) override {
    return inner_->ReadIbo(iboId, procName);
  }
  void WriteIbo(const pelkedit::Blob& data, const std::string& procName) override {
    try {
      inner_->WriteIbo(data, procName);
    } catch (const pelkedit::PelkError& error) {
      if (IsSaveConflict(error)) ++counts_->savesRefused;
      throw;
    }
    ++counts_->writes;
  }

 private:
  std::shared_ptr<pelkedit::IDataAccess> inner_;
  std::shared_ptr<EditorEnvironment::Counts> counts_;
};

// The user's deals and logs live in folders only the user can open.
void MakePrivateFolder(const QString& folder) {
  std::error_code ignored;  // a folder that cannot be made fails where its file is opened
  CreatePrivateFolders(folder.toStdString(), ignored);
}

std::string InFolder(QStandardPaths::StandardLocation location, const char* fileName) {
  const QString folder = QStandardPaths::writableLocation(location);
  MakePrivateFolder(folder);
  return QDir(folder).filePath(fileName).toStdString();
}

}  // namespace

EditorEnvironment::EditorEnvironment(const EnvironmentOptions& options)
    : dbSource_(OpenOnFirstUse(options.dbPath, options.opening)),
      journal_(OpenFileJournal(options.journalDir.empty()
                                   ? DefaultJournalFolder()
                                   : std::filesystem::path(options.journalDir),
                               options.dbPath)) {
  MakePrivateFolder(QFileInfo(QString::fromStdString(options.traceLogPath)).absolutePath());
  // The library belongs to this environment on this thread.
  pelkedit::UnloadLibrary();
  pelkedit::Err().Clear();
  RegisterComponents(options.traceLogPath);
  pelkedit::Main(platform_);
}

bool EditorEnvironment::DatabaseReadOnly() const {
  try {
    return dbSource_()->ReadOnly();
  } catch (const pelkedit::PelkError&) {
    return false;
  }
}

EditorEnvironment::~EditorEnvironment() {
  pelkedit::UnloadLibrary();
  pelkedit::Err().Clear();
}

void EditorEnvironment::RegisterComponents(const std::string& traceLogPath) {
  RegisterTraceComponent(factory_, platform_, traceLogPath);
  factory_.Register(pelkedit::kDataProgId, [this] {
    return std::make_shared<CountingDataAccess>(CreateDataAccess(dbSource_), counts_);
  });
  RegisterRecordComponents(factory_);
  const auto advisor = [this, rules = DefaultRuleFile()]() -> pelkedit::ObjectPtr {
    try {
      return LoadedRuleEngine(rules, [this] { return platform_.Today(); });
    } catch (const RuleFileError& error) {
      // The rules are read when the first deal is opened; their problem is told then, once, and
      // the editor goes on without advice.
      if (!advisorProblemTold_) {
        advisorProblemTold_ = true;
        platform_.MsgBox(std::string("The advisor's rules cannot be used, so the Sales Advisor "
                                     "gives no advice until this is put right.\n\n") +
                             error.what(),
                         pelkedit::MsgIcon::kExclamation, pelkedit::MsgButtons::kOk, "Pelkor");
      }
      return CreateScriptedEngine(nullptr);
    }
  };
  factory_.Register(pelkedit::kAdvisorProgId, advisor);
  factory_.Register(pelkedit::kAdvisorProgIdAtCreate, advisor);
  factory_.Register(pelkedit::kProductViewProgId, [] { return CreateProductListView(); });
  factory_.Register(pelkedit::kConfigProgId, [] { return CreateConfig(); });
  factory_.Register(pelkedit::kFileSystemProgId, [] { return CreateFileSystem(); });
  factory_.Register(pelkedit::kContactLookupProgId,
                    [this] { return std::make_shared<QtContactLookup>(dbSource_()); });
}

std::unique_ptr<QtPlatform> EditorEnvironment::NewPlatform() {
  auto platform = std::make_unique<QtPlatform>(factory_);
  platform->CopyHooksFrom(platform_);
  return platform;
}

std::string DefaultDatabasePath() {
  return InFolder(QStandardPaths::AppDataLocation, kDatabaseFileName);
}

std::string DefaultTraceLogPath() {
  // The XDG state folder: logs are kept, but are not data the user would back up.
  QString stateHome = qEnvironmentVariable("XDG_STATE_HOME");
  if (stateHome.isEmpty()) {
    const QString home = QStandardPaths::writableLocation(QStandardPaths::HomeLocation);
    if (home.isEmpty()) return InFolder(QStandardPaths::AppLocalDataLocation, kTraceLogFileName);
    stateHome = QDir(home).filePath(".local/state");
  }
  const QString folder = QDir(stateHome).filePath(QCoreApplication::applicationName());
  MakePrivateFolder(folder);
  return QDir(folder).filePath(kTraceLogFileName).toStdString();
}

}  // namespace pelkor::desktop
