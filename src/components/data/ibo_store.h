#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "contracts/record.h"
#include "data/ibo_query.h"
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

// A record in storage form bound for one table.
struct IboEntry {
  IboEntry(IboTable table, pelkedit::Blob data) : table(table), data(std::move(data)) {}
  IboEntry(IboTable table, pelkedit::Blob data, std::string owner, std::string savedAt,
           std::string savedBy)
      : table(table),
        data(std::move(data)),
        owner(std::move(owner)),
        savedAt(std::move(savedAt)),
        savedBy(std::move(savedBy)) {}

  IboTable table = IboTable::kMain;
  pelkedit::Blob data;
  // Who created and last saved it, when copied from another database; empty for the person
  // working now, at this moment.
  std::string owner;
  std::string savedAt;
  std::string savedBy;
};

// A stored row as a copy reads it: the record with who created and saved it.
struct StoredIbo {
  IboTable table = IboTable::kMain;
  std::int32_t id = 0;
  pelkedit::Blob data;
  std::string owner;
  std::string savedAt;
  std::string savedBy;
};

// A stored record and the version of the row it was read from.
struct VersionedIbo {
  pelkedit::Blob data;
  std::int64_t version = 0;
};

// A version of an IBO as it was saved, kept when a later save replaced it.
struct SavedVersion {
  std::int64_t version = 0;
  std::string savedAt;  // UTC, "YYYY-MM-DD HH:MM:SS"
  std::string savedBy;
  pelkedit::Blob data;
};

// How many replaced versions of each IBO are kept; older ones are pruned by the save.
inline constexpr int kSavedVersionsKept = 50;

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
  // The versions of IBO `id` that the editor's saves replaced, newest first: each save keeps
  // the version it replaces in the same transaction.
  virtual std::vector<SavedVersion> History(IboTable table, std::int32_t id) = 0;
  // Adds each record whose id its table does not hold yet, all in one transaction; rows that
  // exist are left as they are. Returns how many rows were added.
  virtual int AddMissing(const std::vector<IboEntry>& entries) = 0;
  // Summaries of both tables (or of one), main before archive, each by id.
  virtual std::vector<IboSummary> ListIbos(std::optional<IboTable> only = std::nullopt) = 0;

  // One page of a table's summaries and how many rows match in all; the database does the
  // searching, sorting and counting.
  virtual IboPage QueryIbos(const IboQuery& query) = 0;
  // A new open deal with a new id and a new IBO number, both unique however many people create
  // deals at once; its owner is the person working now.
  virtual CreatedIbo CreateIbo(const NewIbo& ibo) = 0;
  // Moves IBO `id` from `from` into the other table in one transaction (archive, restore). With
  // `expected`, a row saved by someone since it was read at that version is not moved.
  virtual void MoveIbo(IboTable from, std::int32_t id,
                       std::optional<std::int64_t> expected = std::nullopt) = 0;
  // Removes an IBO from the archive for good; the main table's deals are archived first.
  virtual void DeleteArchived(std::int32_t id) = 0;
  // The main table's open deals summed by expected month and matrix cell, by the database: those
  // expected before `today` ("YYYY-MM-DD") as overdue, then the kForecastMonths months from
  // today's. Deals with no date or a later one are left out, unread. With an `owner`, only the
  // deals that person created.
  virtual std::vector<ForecastBucket> Forecast(const std::string& today,
                                               const std::string& owner) = 0;
  // Up to `limit` rows of a table in id order after `afterId`, for copying.
  virtual std::vector<StoredIbo> ReadBatch(IboTable table, std::int32_t afterId, int limit) = 0;
  // The stored records of these ids that the table holds, in one query.
  virtual std::vector<StoredIbo> FindMany(IboTable table, const std::vector<std::int32_t>& ids) = 0;

  // The contact book, by last and first name.
  virtual std::vector<Contact> ListContacts() = 0;
  // A page of the contacts matching a search (name, company, e-mail, phone; case and accents
  // ignored), by last and first name, and how many match in all.
  virtual std::pair<std::vector<Contact>, std::int64_t> SearchContacts(
      const ContactQuery& query) = 0;
  // Adds the contacts the book does not hold yet (the same name, company, e-mail and phone is
  // the same person), all in one transaction; returns how many were added.
  virtual int AddContacts(const std::vector<Contact>& contacts) = 0;
  // Up to `limit` contacts in id order after `afterId`, for copying.
  virtual std::vector<Contact> ContactBatch(std::int64_t afterId, int limit) = 0;
  // After many rows were added (a copy, an import), brings the database's own view of its tables
  // up to date at once, so that the next counts and pages are as quick as on a settled database
  // rather than after the server's housekeeping comes round.
  virtual void SettleAfterBulkLoad() = 0;

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

// What opens a PostgreSQL database: linked in (pelk_data_with_postgres) or loaded as a module
// (the desktop editor); without one, a server's URI is refused with a clear error.
using ServerStoreOpener = std::shared_ptr<IIboStore> (*)(const std::string& uri,
                                                         StoreOpening opening);
void UseServerBackend(ServerStoreOpener opener);

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
