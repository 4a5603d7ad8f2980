#include <memory>
#include <optional>

#include <pqxx/binarystring>
#include <pqxx/connection>
#include <pqxx/nontransaction>
#include <pqxx/result>
#include <pqxx/transaction>

#include "data/postgres_error.h"
#include "data/postgres_params.h"
#include "data/postgres_schema.h"
#include "data/sql_ibo_store.h"
#include "data/store_backends.h"

namespace pelkor::data_detail {
namespace {

// A server that does not answer fails the open after this long instead of the system's
// minutes-long TCP timeout; an address that names its own connect_timeout keeps it.
constexpr int kConnectTimeoutSeconds = 10;
// Key of the advisory lock a creator holds while it takes the next IBO number ("PELN").
constexpr long long kNumbersLockKey = 0x50454C4E;

std::string WithConnectTimeout(const std::string& uri) {
  if (uri.find("connect_timeout=") != std::string::npos) return uri;
  const char separator = uri.find('?') == std::string::npos ? '?' : '&';
  return uri + separator + "connect_timeout=" + std::to_string(kConnectTimeoutSeconds);
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

// One database on a PostgreSQL server over one connection. A restarted server has dropped the
// connection: one new connection is tried before giving up, which is safe because a
// transaction that lost its connection before committing wrote nothing.
class PostgresConnection final : public SqlConnection {
 public:
  PostgresConnection(std::string uri, std::string location,
                     std::unique_ptr<pqxx::connection> connection, bool readOnly)
      : uri_(std::move(uri)),
        location_(std::move(location)),
        connection_(std::move(connection)),
        readOnly_(readOnly) {}

  std::string Location() const override { return location_; }
  bool ReadOnly() const override { return readOnly_; }
  const SqlDialect& Dialect() const override { return kPostgresDialect; }

  void Transaction(const std::string& action, bool write,
                   const std::function<void()>& body) override {
    Reconnecting(action, [&] {
      if (!write) {
        pqxx::read_transaction work(*connection_);
        Within(work, body);
        return;
      }
      pqxx::work work(*connection_);
      Within(work, body);
      work.commit();
    });
  }

  void QueryAlone(const std::string& action, const std::string& sql,
                  const std::vector<SqlValue>& params, const EachRow& each) override {
    Reconnecting(action, [&] {
      pqxx::nontransaction work(*connection_);
      Within(work, [&] { Query(sql, params, each); });
    });
  }

  std::int64_t Exec(const std::string& sql, const std::vector<SqlValue>& params) override {
    return static_cast<std::int64_t>(RunWith(*work_, sql, params).affected_rows());
  }

  void Query(const std::string& sql, const std::vector<SqlValue>& params,
             const EachRow& each) override {
    for (const pqxx::row& row : RunWith(*work_, sql, params)) each(PostgresRow(row));
  }

  void LockNumbers() override {
    work_->exec("SELECT pg_advisory_xact_lock(" + std::to_string(kNumbersLockKey) + ")");
  }

 private:
  template <typename Body>
  void Reconnecting(const std::string& action, Body&& body) {
    WithServerErrors(action, [&] {
      try {
        body();
      } catch (const pqxx::broken_connection&) {
        connection_->disconnect();
        connection_ = Connect(uri_);
        body();
      }
    });
  }

  void Within(pqxx::transaction_base& work, const std::function<void()>& body) {
    work_ = &work;
    try {
      body();
    } catch (...) {
      work_ = nullptr;
      throw;
    }
    work_ = nullptr;
  }

  std::string uri_;
  std::string location_;
  std::unique_ptr<pqxx::connection> connection_;
  bool readOnly_;
  pqxx::transaction_base* work_ = nullptr;
};

}  // namespace

std::shared_ptr<IIboStore> OpenPostgresStore(const std::string& uri, StoreOpening opening) {
  const std::string location = DescribeLocation(uri);
  auto connection =
      WithServerErrors("Cannot open the IBO database " + location, [&] { return Connect(uri); });
  PrepareServerDatabase(*connection, location, opening);
  // A role that may read but not change the IBOs, or a server (a standby) that takes no
  // writes: the editor says so when the database is opened, not at the first save.
  const bool readOnly = WithServerErrors("Cannot open the IBO database " + location, [&] {
    pqxx::nontransaction work(*connection);
    return work
        .exec1(std::string("SELECT NOT pg_catalog.has_table_privilege('") +
               TableSqlName(IboTable::kMain) +
               "', 'UPDATE') OR current_setting('transaction_read_only') = 'on'")[0]
        .as<bool>();
  });
  return std::make_shared<SqlIboStore>(
      std::make_unique<PostgresConnection>(uri, location, std::move(connection), readOnly));
}

}  // namespace pelkor::data_detail
