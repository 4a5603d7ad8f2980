#pragma once

#include <memory>
#include <mutex>
#include <string>

#include "data/ibo_store.h"
#include "data/sql_connection.h"

namespace pelkor::data_detail {

// The store on either backend: every statement is the same on both, and what differs (how a
// statement runs, how a transaction locks) is the connection's.
class SqlIboStore final : public IIboStore {
 public:
  explicit SqlIboStore(std::unique_ptr<SqlConnection> sql);

  std::string Location() const override { return sql_->Location(); }
  bool ReadOnly() const override { return sql_->ReadOnly(); }
  void Write(IboTable table, const pelkedit::Blob& data) override;
  std::optional<VersionedIbo> FindVersioned(IboTable table, std::int32_t id) override;
  std::int64_t Update(IboTable table, std::int32_t id, const pelkedit::Blob& data,
                      std::optional<std::int64_t> expected) override;
  std::vector<SavedVersion> History(IboTable table, std::int32_t id) override;
  int AddMissing(const std::vector<IboEntry>& entries) override;
  std::vector<IboSummary> ListIbos(std::optional<IboTable> only) override;
  IboPage QueryIbos(const IboQuery& query) override;
  CreatedIbo CreateIbo(const NewIbo& ibo) override;
  void MoveIbo(IboTable from, std::int32_t id, std::optional<std::int64_t> expected) override;
  void DeleteArchived(std::int32_t id) override;
  std::vector<ForecastBucket> Forecast(const std::string& today, const std::string& owner) override;
  std::vector<StoredIbo> ReadBatch(IboTable table, std::int32_t afterId, int limit) override;
  std::vector<StoredIbo> FindMany(IboTable table, const std::vector<std::int32_t>& ids) override;
  std::vector<Contact> ListContacts() override;
  std::pair<std::vector<Contact>, std::int64_t> SearchContacts(const ContactQuery& query) override;
  int AddContacts(const std::vector<Contact>& contacts) override;
  std::vector<Contact> ContactBatch(std::int64_t afterId, int limit) override;
  void SettleAfterBulkLoad() override;

 private:
  // A row to insert and who made and saved it.
  struct StampedRow {
    const IboRow* row;
    std::string owner;
    std::string savedAt;
    std::string savedBy;
  };
  // Inserts rows of one table in one statement; on an existing id replaces the row (`replace`)
  // or leaves it. Returns rows changed.
  std::int64_t Insert(const std::vector<StampedRow>& rows, bool replace);
  std::vector<StoredIbo> StoredRows(IboTable table, const std::string& sql,
                                    const std::vector<SqlValue>& params);

  std::unique_ptr<SqlConnection> sql_;
  std::string user_;
  std::mutex mutex_;  // a connection serves one statement at a time
};

// Every column of an IBO row, as a move between the tables copies them.
std::string AllRowColumns();

}  // namespace pelkor::data_detail
