#include "world.h"

#include <cstdlib>
#include <system_error>

#include "advisor/rule_engine.h"
#include "config/local_file_system.h"
#include "journal/file_journal.h"
#include "record/ibo_properties.h"
#include "recording.h"
#include "trace/err_object.h"
#include "trace/mod_init.h"
#include "trace/trace_log.h"
#include "values/error.h"

namespace pelkscript {
namespace {
constexpr const char* kTraceLogName = "trace.log";
constexpr const char* kTempPattern = "pelkedit-script-XXXXXX";
}  // namespace

std::filesystem::path MakeTempDir() {
  std::string pattern = (std::filesystem::temp_directory_path() / kTempPattern).string();
  if (mkdtemp(pattern.data()) == nullptr) {
    throw std::system_error(errno, std::generic_category(), "cannot create a temporary folder");
  }
  return pattern;
}

void EventRecorder::SetFormCaption(const std::string& caption) {
  log_.Add(WorldLog::Kind::kEvents, "event SetFormCaption " + pelkedit::QuoteString(caption));
}

void EventRecorder::SetIBOStatus(std::int32_t status) {
  log_.Add(WorldLog::Kind::kEvents, "event SetIBOStatus " + std::to_string(status));
}

void EventRecorder::SetExpertMode(bool expert) {
  log_.Add(WorldLog::Kind::kEvents,
           std::string("event SetExpertMode ") + (expert ? "True" : "False"));
}

World::World(const WorldOptions& options) : tempDir_(MakeTempDir()) {
  // Each world starts a library of its own on this thread.
  pelkedit::UnloadLibrary();
  pelkedit::Err().Clear();
  log.SetTempDir(tempDir_.string());
  const std::string database = options.dbPath.empty() ? ":memory:" : options.dbPath;
  dbSource_ = pelkor::OpenOnFirstUse(database);
  if (!options.journalDir.empty()) journal_ = pelkor::OpenFileJournal(options.journalDir, database);
  RegisterComponents(options.traceLogPath.empty() ? (tempDir_ / kTraceLogName).string()
                                                  : options.traceLogPath);
}

World::~World() {
  // The component's termination still traces and may ask the platform, so it goes first.
  component.reset();
  pelkedit::UnloadLibrary();
  pelkedit::Err().Clear();
  std::error_code ignored;
  std::filesystem::remove_all(tempDir_, ignored);
}

void World::RegisterComponents(const std::string& traceLogPath) {
  const Recording rec{log, faults};
  factory.Register(pelkedit::kTraceProgId, [this, rec, traceLogPath] {
    return std::make_shared<RecordingTrace>(rec, pelkor::CreateTraceLog(platform, traceLogPath));
  });
  factory.Register(pelkedit::kDataProgId, [this, rec] {
    return std::make_shared<RecordingData>(rec, pelkor::CreateDataAccess(dbSource_));
  });
  factory.Register(pelkedit::kRecordProgId, [rec] {
    return std::make_shared<RecordingRecord>(rec, pelkor::CreateIboProperties());
  });
  factory.Register(pelkedit::kSizeHelperProgId, [rec] {
    return std::make_shared<RecordingSize>(rec, pelkor::CreateIboSizeCalculator());
  });
  factory.Register(pelkedit::kProductViewProgId, [this, rec] {
    productView = std::make_shared<ScriptedProductView>(rec);
    return productView;
  });
  RegisterAdvisor(false);
  factory.Register(pelkedit::kConfigProgId, [rec, values = config] {
    return std::make_shared<ScriptedConfig>(rec, values);
  });
  factory.Register(pelkedit::kFileSystemProgId, [] { return pelkor::CreateFileSystem(); });
  factory.Register(pelkedit::kContactLookupProgId, [this, rec] {
    return std::make_shared<ScriptedContactLookup>(rec, lookups,
                                                   [this](const std::string& problem) {
                                                     if (platform.onUnansweredDialog)
                                                       platform.onUnansweredDialog(problem);
                                                   });
  });
}

void World::UseRuleEngine(bool rules) {
  RegisterAdvisor(rules);
}

void World::RegisterAdvisor(bool rules) {
  const Recording rec{log, faults};
  const auto advisor = [this, rec, rules]() -> pelkedit::ObjectPtr {
    if (!rules) {
      return std::make_shared<RecordingAdvisor>(rec, pelkor::CreateScriptedEngine(results));
    }
    // A rule file that cannot be used fails the creation with its own explanation.
    return std::make_shared<RecordingAdvisor>(
        rec,
        pelkor::CreateRuleEngine(pelkor::DefaultRuleFile(), [this] { return platform.Today(); }));
  };
  factory.Register(pelkedit::kAdvisorProgId, advisor);
  factory.Register(pelkedit::kAdvisorProgIdAtCreate, advisor);
}

}  // namespace pelkscript
