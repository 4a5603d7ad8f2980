#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "contracts/record.h"
#include "platform/object_factory.h"
#include "values/error.h"

namespace pelkor {

// Source of every error the data component raises.
inline constexpr const char* kDataErrorSource = "PelkData.Ibo";

// The two tables of an IBO database: live opportunities and the archive.
enum class IboTable { kMain, kArchive };

// Display name of a table in messages and listings ("main", "archive").
const char* IboTableName(IboTable table);

// The retrieval procedure name that selects a table; any other name is error 5.
IboTable TableForProcedure(const std::string& procName);

// One row of the "open IBO" list a host shows, taken from the indexed summary columns.
struct IboSummary {
  std::int32_t id = 0;
  bool archived = false;
  std::int32_t iboNumber = 0;
  std::string company;
  std::int32_t status = 0;
  bool expert = false;
};

// A record in storage form bound for one table.
struct IboEntry {
  IboTable table = IboTable::kMain;
  pelkedit::Blob data;
};

// A stored record and the version of the row it was read from.
struct VersionedIbo {
  pelkedit::Blob data;
  std::int64_t version = 0;
};

// A person in the contact book kept beside the IBOs.
struct Contact {
  std::int64_t id = 0;  // 0 until stored
  std::string first;
  std::string last;
  std::string company;
  std::string address;
  std::string phone;
  std::string email;
  friend bool operator==(const Contact&, const Contact&) = default;
};

// Where the hosts, the tools and the data-access object keep IBOs: the main and the archive
// table. Every write is atomic; a record is decoded before anything is written, so a corrupt
// record is refused without touching storage. Failures are PelkErrors from "PelkData.Ibo"
// naming the IBO, the store and what the user can do.
class IIboStore {
 public:
  virtual ~IIboStore() = default;

  // What the store is called in messages: its file, or its server.
  virtual std::string Location() const = 0;
  // Whether this program may only read the database (a write-protected file, a role without
  // the right to change the IBOs): every write is then refused.
  virtual bool ReadOnly() const = 0;
  // Inserts or replaces the row whose id the record carries (tools and set-up).
  virtual void Write(IboTable table, const pelkedit::Blob& data) = 0;
  // The stored record and the version of its row, read together; every write of a row gives it
  // a new version.
  virtual std::optional<VersionedIbo> FindVersioned(IboTable table, std::int32_t id) = 0;
  // Replaces the row `id` with a record that must carry that id; a row that is not there is
  // refused and nothing is written (an editor never creates a record by saving). With
  // `expected`, a row whose version is no longer that one was changed by someone else since it
  // was read: the save is refused and nothing is written. Returns the row's new version.
  virtual std::int64_t Update(IboTable table, std::int32_t id, const pelkedit::Blob& data,
                              std::optional<std::int64_t> expected = std::nullopt) = 0;
  // Adds each record whose id its table does not hold yet, all in one transaction; rows that
  // exist are left as they are. Returns how many rows were added.
  virtual int AddMissing(const std::vector<IboEntry>& entries) = 0;
  // Summaries of both tables (or of one), main before archive, each by id.
  virtual std::vector<IboSummary> ListIbos(std::optional<IboTable> only = std::nullopt) = 0;

  // The contact book, by last and first name.
  virtual std::vector<Contact> ListContacts() = 0;
  // Adds the contacts the book does not hold yet (the same name, company, e-mail and phone is
  // the same person), all in one transaction; returns how many were added.
  virtual int AddContacts(const std::vector<Contact>& contacts) = 0;

  // The stored record, or nullopt when the table has no row with that id.
  std::optional<pelkedit::Blob> Find(IboTable table, std::int32_t id);
  // The stored record; a missing row is error 5 naming the id, the table and the store.
  pelkedit::Blob Read(IboTable table, std::int32_t id);
  // The same with the row's version; a record that cannot be decoded is error 5 too.
  VersionedIbo ReadVersioned(IboTable table, std::int32_t id);
};

// True for the error of a save refused because someone else saved the IBO since it was read
// (the host can then offer to compare with the stored version).
bool IsSaveConflict(const pelkedit::PelkError& error);

// The id a record in storage form carries; error 5 when the bytes are not a valid record.
std::int32_t RecordIdOf(const pelkedit::Blob& data);

// Whether opening may create the database: editors and seeding make a missing one (a new file,
// or the tables in an empty server database); listing, importing and copying from need one that
// is there, so a mistyped name does not leave an empty database behind.
enum class StoreOpening { kCreateIfMissing, kExistingOnly };

// The environment variable that names the database when a program is given none.
inline constexpr const char* kDatabaseVariable = "PELKOR_DB";

// True when `name` is a PostgreSQL connection URI ("postgresql://..." or "postgres://...")
// rather than a SQLite file path.
bool IsServerName(const std::string& name);

// Opens the store a name gives: a PostgreSQL connection URI ("postgresql://user@host/db"), or
// a SQLite file path (":memory:" for a private in-memory one).
std::shared_ptr<IIboStore> OpenIboStore(const std::string& name,
                                        StoreOpening opening = StoreOpening::kCreateIfMissing);

// The data-access object ("PelkData.Ibo") over a store. It writes back only a record it has
// read, into the row it was read from.
// Where a data-access object finds its store; it may open it at first use, so that a
// database that cannot be opened fails the editor's read or write, not its creation.
using DatabaseSource = std::function<std::shared_ptr<IIboStore>()>;
// Opens the database `name` at the first call and keeps it; a failed open is tried again.
DatabaseSource OpenOnFirstUse(std::string name,
                              StoreOpening opening = StoreOpening::kCreateIfMissing);
std::shared_ptr<pelkedit::IDataAccess> CreateDataAccess(DatabaseSource source);
std::shared_ptr<pelkedit::IDataAccess> CreateDataAccess(std::shared_ptr<IIboStore> db);

// Registers the data-access object under its programmatic identifier; every object created
// shares `db`.
void RegisterDataComponent(pelkedit::ObjectFactory& factory, std::shared_ptr<IIboStore> db);

}  // namespace pelkor
