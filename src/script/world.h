#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "advisor/scripted_engine.h"
#include "contracts/journal.h"
#include "control/editor_events.h"
#include "control/pelk_ibo_edit.h"
#include "data/ibo_store.h"
#include "platform/object_factory.h"
#include "scripted_config.h"
#include "scripted_contact_lookup.h"
#include "scripted_platform.h"
#include "scripted_product_view.h"
#include "world_log.h"

namespace pelkscript {

struct WorldOptions {
  // Database file; empty for a private in-memory database.
  std::string dbPath;
  // Trace log file; empty for one in the world's temporary folder.
  std::string traceLogPath;
  // Folder the component keeps unsaved changes in; empty for none.
  std::string journalDir;
};

// The host's side of the component's events: each one becomes an `event` line.
class EventRecorder : public pelkedit::IEditorEvents {
 public:
  explicit EventRecorder(WorldLog& log) : log_(log) {}
  void SetFormCaption(const std::string& caption) override;
  void SetIBOStatus(std::int32_t status) override;
  void SetExpertMode(bool expert) override;

 private:
  WorldLog& log_;
};

// Everything one scenario file runs in: the scripted platform, the real components behind
// recording decorators, the database, the engine results, the component and a temporary
// folder of its own. Destroying the world destroys the component and unloads the library.
class World {
 public:
  explicit World(const WorldOptions& options);
  ~World();
  World(const World&) = delete;
  World& operator=(const World&) = delete;

  const std::filesystem::path& TempDir() const { return tempDir_; }

  WorldLog log;
  FaultInjector faults;
  pelkedit::ObjectFactory factory;
  ScriptedPlatform platform{log, faults, factory};
  EventRecorder events{log};
  // The database, opened at first use: a file that cannot be opened fails the command or the
  // editor's call that needs it.
  std::shared_ptr<pelkor::IIboStore> Db() { return dbSource_(); }
  // Where the component keeps unsaved changes (none unless the run was given a folder), for
  // the database this world works on.
  std::shared_ptr<pelkedit::IChangeJournal> Journal() const { return journal_; }
  std::shared_ptr<pelkor::ScriptedResults> results = std::make_shared<pelkor::ScriptedResults>();
  std::unique_ptr<pelkedit::PelkIboEdit> component;
  // The product view the component created last (none before a component is created).
  std::shared_ptr<ScriptedProductView> productView;
  // The values every configuration object of this world reads (`config KEY VALUE`).
  std::shared_ptr<ScriptedConfig::Values> config = std::make_shared<ScriptedConfig::Values>();
  // The contacts the user picks in the next look-up dialogs (`lookup`).
  std::shared_ptr<std::deque<LookupAnswer>> lookups = std::make_shared<std::deque<LookupAnswer>>();
  // Which engine new advisor engines are: the scripted one, or the rule engine on the installed
  // rule file with the scenario's clock.
  void UseRuleEngine(bool rules);

 private:
  void RegisterComponents(const std::string& traceLogPath);
  void RegisterAdvisor(bool rules);
  std::filesystem::path tempDir_;
  pelkor::DatabaseSource dbSource_;
  std::shared_ptr<pelkedit::IChangeJournal> journal_;
};

// A fresh, empty folder under the system's temporary directory.
std::filesystem::path MakeTempDir();

}  // namespace pelkscript
