#include <mutex>

#include <pqxx/binarystring>
#include <pqxx/connection>
#include <pqxx/result>
#include <pqxx/transaction>

#include "data/ibo_row.h"
#include "data/postgres_error.h"
#include "data/postgres_schema.h"
#include "data/store_backends.h"

namespace pelkor::data_detail {
namespace {

using pelkedit::Blob;

// A server that does not answer fails the open after this long instead of the system's
// minutes-long TCP timeout; an address that names its own connect_timeout keeps it.
constexpr int kConnectTimeoutSeconds = 10;

std::string WithConnectTimeout(const std::string& uri) {
  if (uri.find("connect_timeout=") != std::string::npos) return uri;
  const char separator = uri.find('?') == std::string::npos ? '?' : '&';
  return uri + separator + "connect_timeout=" + std::to_string(kConnectTimeoutSeconds);
}

// Names of the prepared statements of a table: "find_main", "update_archive", ...
std::string Statement(const char* what, IboTable table) {
  return std::string(what) + "_" + IboTableName(table);
}

Blob BlobOf(const pqxx::field& field) {
  const pqxx::binarystring bytes(field);
  return Blob(bytes.begin(), bytes.end());
}

pqxx::binarystring BytesOf(const IboRow& row) {
  return pqxx::binarystring(row.data->data(), row.data->size());
}

// A connection to `uri`; libpq's complaints about the address come back without its secrets.
std::unique_ptr<pqxx::connection> Connect(const std::string& uri) {
  try {
    return std::make_unique<pqxx::connection>(WithConnectTimeout(uri));
  } catch (const pqxx::broken_connection& error) {
    throw pqxx::broken_connection(WithoutSecrets(error.what(), uri));
  } catch (const pqxx::failure& error) {
    throw pqxx::failure(WithoutSecrets(error.what(), uri));
  }
}

// One database on a PostgreSQL server, over one connection. Every write is one transaction;
// statements are prepared once per connection.
class PostgresIboStore final : public IIboStore {
 public:
  PostgresIboStore(std::string uri, std::string location,
                   std::unique_ptr<pqxx::connection> connection, bool readOnly)
      : uri_(std::move(uri)),
        location_(std::move(location)),
        connection_(std::move(connection)),
        readOnly_(readOnly) {
    Prepare();
  }

  std::string Location() const override { return location_; }
  bool ReadOnly() const override { return readOnly_; }
  void Write(IboTable table, const Blob& data) override;
  std::optional<VersionedIbo> FindVersioned(IboTable table, std::int32_t id) override;
  std::int64_t Update(IboTable table, std::int32_t id, const Blob& data,
                      std::optional<std::int64_t> expected) override;
  int AddMissing(const std::vector<IboEntry>& entries) override;
  std::vector<IboSummary> ListIbos(std::optional<IboTable> only) override;
  std::vector<Contact> ListContacts() override;
  int AddContacts(const std::vector<Contact>& contacts) override;

 private:
  void Prepare();
  // Runs a transaction's `body` with the server's errors reported for `action`. A restarted
  // server has dropped this connection: one new connection is tried before giving up, which is
  // safe because a transaction that lost its connection before committing wrote nothing.
  template <typename Body>
  auto Run(const std::string& action, Body&& body) -> decltype(body()) {
    return WithServerErrors(action, [&] {
      try {
        return body();
      } catch (const pqxx::broken_connection&) {
        connection_->disconnect();
        connection_ = Connect(uri_);
        Prepare();
        return body();
      }
    });
  }

  std::string uri_;
  std::string location_;
  std::unique_ptr<pqxx::connection> connection_;
  std::mutex mutex_;  // a connection serves one statement at a time
  bool readOnly_;
};

void PostgresIboStore::Prepare() {
  constexpr const char* kColumns = "(id, ibo_number, company, status, expert, data)";
  for (const IboTable table : kTables) {
    const std::string name = TableSqlName(table);
    connection_->prepare(Statement("find", table),
                         "SELECT data, version FROM " + name + " WHERE id = $1");
    connection_->prepare(Statement("version", table),
                         "SELECT version FROM " + name + " WHERE id = $1");
    connection_->prepare(Statement("upsert", table),
                         "INSERT INTO " + name + " " + kColumns +
                             " VALUES ($1, $2, $3, $4, $5, $6) ON CONFLICT (id) DO UPDATE SET"
                             " ibo_number = excluded.ibo_number, company = excluded.company,"
                             " status = excluded.status, expert = excluded.expert,"
                             " data = excluded.data, version = " +
                             name + ".version + 1");
    connection_->prepare(Statement("add", table),
                         "INSERT INTO " + name + " " + kColumns +
                             " VALUES ($1, $2, $3, $4, $5, $6) ON CONFLICT (id) DO NOTHING");
    // Without an expected version ($7 null) the row is replaced whatever its version.
    connection_->prepare(Statement("update", table),
                         "UPDATE " + name +
                             " SET ibo_number = $2, company = $3, status = $4, expert = $5,"
                             " data = $6, version = version + 1"
                             " WHERE id = $1 AND version = COALESCE($7, version)"
                             " RETURNING version");
    connection_->prepare(
        Statement("list", table),
        "SELECT id, ibo_number, company, status, expert FROM " + name + " ORDER BY id");
  }
  // Byte order, as on SQLite, so both list the same book the same way.
  connection_->prepare("list_contacts",
                       "SELECT id, first_name, last_name, company, address, phone, email"
                       " FROM contacts ORDER BY last_name COLLATE \"C\","
                       " first_name COLLATE \"C\", id");
  connection_->prepare("add_contact",
                       "INSERT INTO contacts (first_name, last_name, company, address, phone,"
                       " email) VALUES ($1, $2, $3, $4, $5, $6) ON CONFLICT DO NOTHING");
}

std::optional<VersionedIbo> PostgresIboStore::FindVersioned(IboTable table, std::int32_t id) {
  std::lock_guard lock(mutex_);
  const std::string action = "Cannot read " + Where(id, "from", table) + " of " + Location();
  return Run(action, [&]() -> std::optional<VersionedIbo> {
    pqxx::read_transaction work(*connection_);
    const pqxx::result rows = work.exec_prepared(Statement("find", table), id);
    if (rows.empty()) return std::nullopt;
    return VersionedIbo{BlobOf(rows[0][0]), rows[0][1].as<std::int64_t>()};
  });
}

void PostgresIboStore::Write(IboTable table, const Blob& data) {
  const IboRow row = DecodeRow(data, table, Location());
  std::lock_guard lock(mutex_);
  Run("Cannot write " + Where(row.id, "to", table) + " of " + Location(), [&] {
    pqxx::work work(*connection_);
    work.exec_prepared(Statement("upsert", table), row.id, row.iboNumber, row.company, row.status,
                       row.expert, BytesOf(row));
    work.commit();
  });
}

std::int64_t PostgresIboStore::Update(IboTable table, std::int32_t id, const Blob& data,
                                      std::optional<std::int64_t> expected) {
  const IboRow row = DecodeRow(data, table, Location());
  const std::string refusal = "Cannot save " + Where(id, "to", table) + " of " + Location();
  if (row.id != id) RaiseForeignId(refusal, row.id);
  std::lock_guard lock(mutex_);
  return Run(refusal, [&] {
    pqxx::work work(*connection_);
    const std::string update = Statement("update", table);
    // A concurrent save holds the row until it commits; this one then sees the new version.
    const pqxx::result updated =
        expected ? work.exec_prepared(update, id, row.iboNumber, row.company, row.status,
                                      row.expert, BytesOf(row), *expected)
                 : work.exec_prepared(update, id, row.iboNumber, row.company, row.status,
                                      row.expert, BytesOf(row), nullptr);
    if (updated.empty()) {
      if (work.exec_prepared(Statement("version", table), id).empty()) RaiseVanished(refusal);
      RaiseChangedBySomeoneElse(id);
    }
    work.commit();
    return updated[0][0].as<std::int64_t>();
  });
}

int PostgresIboStore::AddMissing(const std::vector<IboEntry>& entries) {
  std::vector<IboRow> rows;
  rows.reserve(entries.size());
  for (const IboEntry& entry : entries)
    rows.push_back(DecodeRow(entry.data, entry.table, Location()));
  std::lock_guard lock(mutex_);
  return Run("Cannot add IBOs to " + Location(), [&] {
    pqxx::work work(*connection_);
    int added = 0;
    for (const IboRow& row : rows) {
      added +=
          static_cast<int>(work.exec_prepared(Statement("add", row.table), row.id, row.iboNumber,
                                              row.company, row.status, row.expert, BytesOf(row))
                               .affected_rows());
    }
    work.commit();
    return added;
  });
}

std::vector<IboSummary> PostgresIboStore::ListIbos(std::optional<IboTable> only) {
  std::lock_guard lock(mutex_);
  return Run("Cannot list the IBOs of " + Location(), [&] {
    pqxx::read_transaction work(*connection_);
    std::vector<IboSummary> list;
    for (const IboTable table : kTables) {
      if (only && *only != table) continue;
      for (const pqxx::row& row : work.exec_prepared(Statement("list", table))) {
        list.push_back({row[0].as<std::int32_t>(), table == IboTable::kArchive,
                        row[1].as<std::int32_t>(), row[2].as<std::string>(),
                        row[3].as<std::int32_t>(), row[4].as<bool>()});
      }
    }
    return list;
  });
}

std::vector<Contact> PostgresIboStore::ListContacts() {
  std::lock_guard lock(mutex_);
  return Run("Cannot list the contacts of " + Location(), [&] {
    pqxx::read_transaction work(*connection_);
    std::vector<Contact> list;
    for (const pqxx::row& row : work.exec_prepared("list_contacts")) {
      list.push_back({row[0].as<std::int64_t>(), row[1].as<std::string>(), row[2].as<std::string>(),
                      row[3].as<std::string>(), row[4].as<std::string>(), row[5].as<std::string>(),
                      row[6].as<std::string>()});
    }
    return list;
  });
}

int PostgresIboStore::AddContacts(const std::vector<Contact>& contacts) {
  std::lock_guard lock(mutex_);
  return Run("Cannot add contacts to " + Location(), [&] {
    pqxx::work work(*connection_);
    int added = 0;
    for (const Contact& contact : contacts) {
      added += static_cast<int>(work.exec_prepared("add_contact", contact.first, contact.last,
                                                   contact.company, contact.address, contact.phone,
                                                   contact.email)
                                    .affected_rows());
    }
    work.commit();
    return added;
  });
}

}  // namespace

std::shared_ptr<IIboStore> OpenPostgresStore(const std::string& uri, StoreOpening opening) {
  const std::string location = DescribeLocation(uri);
  auto connection =
      WithServerErrors("Cannot open the IBO database " + location, [&] { return Connect(uri); });
  PrepareServerDatabase(*connection, location, opening);
  // A role that may read but not change the IBOs, or a server (a standby) that takes no
  // writes: the editor says so when the database is opened, not at the first save.
  const bool readOnly = WithServerErrors("Cannot open the IBO database " + location, [&] {
    pqxx::read_transaction work(*connection);
    return work
        .exec1(std::string("SELECT NOT pg_catalog.has_table_privilege('") +
               TableSqlName(IboTable::kMain) +
               "', 'UPDATE') OR current_setting('transaction_read_only') = 'on'")[0]
        .as<bool>();
  });
  return std::make_shared<PostgresIboStore>(uri, location, std::move(connection), readOnly);
}

}  // namespace pelkor::data_detail
