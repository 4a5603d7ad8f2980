#pragma once

#include <memory>
#include <string>

#include "contracts/journal.h"
#include "data/ibo_store.h"
#include "platform/object_factory.h"
#include "platform/qt_platform.h"

namespace pelkor::desktop {

// Where the host keeps its files.
struct EnvironmentOptions {
  std::string dbPath;  // a SQLite file or a postgresql:// URI
  std::string traceLogPath;
  StoreOpening opening = StoreOpening::kCreateIfMissing;
  // Where unsaved changes are kept for recovery; empty: $XDG_STATE_HOME/pelkor.
  std::string journalDir;
};

// Everything the editor component needs on the desktop: the collaborators registered in the
// factory the Qt platform creates through, the database they share, and the library started
// on this thread. One environment per thread at a time.
class EditorEnvironment {
 public:
  explicit EditorEnvironment(const EnvironmentOptions& options);
  ~EditorEnvironment();
  EditorEnvironment(const EditorEnvironment&) = delete;
  EditorEnvironment& operator=(const EditorEnvironment&) = delete;

  QtPlatform& Platform() { return platform_; }
  // A platform of its own for another editor window, on the same collaborators and database.
  std::unique_ptr<QtPlatform> NewPlatform();
  // The database, opened at the first call; a file that cannot be opened is a PelkError.
  std::shared_ptr<IIboStore> Db() { return dbSource_(); }
  // What the editor's data objects have done so far: records written, and saves refused
  // because someone else had saved the IBO since it was read.
  struct Counts {
    int writes = 0;
    int savesRefused = 0;
  };
  int WritesDone() const { return counts_->writes; }
  int SavesRefused() const { return counts_->savesRefused; }
  // Whether the database may only be read (false while it cannot be opened at all).
  bool DatabaseReadOnly() const;
  // Where every editor window keeps its unsaved changes.
  std::shared_ptr<pelkedit::IChangeJournal> Journal() const { return journal_; }

 private:
  void RegisterComponents(const std::string& traceLogPath);

  pelkedit::ObjectFactory factory_;
  QtPlatform platform_{factory_};
  DatabaseSource dbSource_;
  std::shared_ptr<Counts> counts_ = std::make_shared<Counts>();
  bool advisorProblemTold_ = false;
  std::shared_ptr<pelkedit::IChangeJournal> journal_;
};

// The demo database in the user's data folder, and the trace log in the user's state folder.
std::string DefaultDatabasePath();
std::string DefaultTraceLogPath();

}  // namespace pelkor::desktop
