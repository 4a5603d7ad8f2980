// The pipeline's operations on the store: pages of summaries, new deals, archive and restore.
#include <algorithm>
#include <optional>

#include "contracts/names.h"
#include "data/data_error.h"
#include "data/sql_ibo_store.h"
#include "record/ibo_properties.h"
#include "values/date.h"

namespace pelkor::data_detail {
namespace {

using pelkedit::Blob;

// EditIBOStatusEnum's open.
constexpr std::int32_t kStatusOpen = 1;

IboTable OtherTable(IboTable table) {
  return table == IboTable::kMain ? IboTable::kArchive : IboTable::kMain;
}

std::string Trimmed(const std::string& text) {
  const auto first = text.find_first_not_of(" \t\r\n");
  if (first == std::string::npos) return "";
  return text.substr(first, text.find_last_not_of(" \t\r\n") - first + 1);
}

Blob NewRecord(const NewIbo& ibo, std::int32_t id, std::int32_t number) {
  const auto record = CreateIboProperties();
  const pelkedit::Date today = TodayUtc();
  record->Set(pelkedit::prop::IboId, id);
  record->Set(pelkedit::prop::IboNumber, number);
  record->Set(pelkedit::prop::Status, kStatusOpen);
  record->Set(pelkedit::prop::ExpertMode, ibo.expert);
  record->Set(pelkedit::prop::StartDate, today);
  record->Set(pelkedit::prop::ModifiedDate, today);
  if (ibo.wwihDate) record->Set(pelkedit::prop::WwihDate, *ibo.wwihDate);
  record->Set(pelkedit::prop::ContactCompany, Trimmed(ibo.company));
  record->Set(pelkedit::prop::ContactFirstName, Trimmed(ibo.firstName));
  record->Set(pelkedit::prop::ContactLastName, Trimmed(ibo.lastName));
  return record->GetIboData();
}

// "YYYY-MM-01" of the month after the forecast's last.
std::string FirstDayAfterForecast(const pelkedit::Date& today) {
  const int months = today.Year() * 12 + (today.Month() - 1) + kForecastMonths;
  return pelkedit::Date::FromCivil(months / 12, months % 12 + 1, 1).ToIso();
}

}  // namespace

IboPage SqlIboStore::QueryIbos(const IboQuery& query) {
  const BuiltQuery built = BuildQuery(query, sql_->Dialect());
  const std::string table = TableSqlName(query.table);
  std::vector<SqlValue> page = built.params;
  page.insert(page.end(),
              {std::max<std::int64_t>(query.limit, 0), std::max<std::int64_t>(query.offset, 0)});
  std::lock_guard lock(mutex_);
  IboPage result;
  sql_->Transaction("Cannot list the IBOs of " + Location(), false, [&] {
    // Uncounted, the matches are counted only as far as the choice of plan needs.
    const std::string matches =
        query.countAll ? "SELECT count(*) FROM " + table + built.where
                       : "SELECT count(*) FROM (SELECT 1 FROM " + table + built.where + " LIMIT " +
                             std::to_string(kSortApartUpTo + 1) + ") AS enough";
    sql_->Query(matches, built.params, [&](const SqlRow& row) { result.total = row.Int64(0); });
    sql_->Query(PageSql(SummarySelectList(), table, built, result.total), page,
                [&](const SqlRow& row) {
                  result.rows.push_back(ReadSummary(row, query.table == IboTable::kArchive));
                });
  });
  return result;
}

CreatedIbo SqlIboStore::CreateIbo(const NewIbo& ibo) {
  const std::string action = "Cannot create a new IBO in " + Location();
  if (Trimmed(ibo.company).empty()) {
    RaiseDataError(action +
                   ": the customer's company is missing. Name the company the deal is "
                   "with.");
  }
  std::lock_guard lock(mutex_);
  CreatedIbo created;
  sql_->Transaction(action, true, [&] {
    sql_->LockNumbers();
    // Ids and numbers are never reused between the tables: a deal can move between them.
    sql_->Query(
        "SELECT COALESCE(max(m), 0) FROM (SELECT max(id) AS m FROM ibo_main UNION ALL"
        " SELECT max(id) FROM ibo_archive) AS ids",
        {}, [&](const SqlRow& row) { created.id = row.Int(0) + 1; });
    sql_->Query(
        "SELECT COALESCE(max(m), 0) FROM (SELECT max(ibo_number) AS m FROM ibo_main UNION ALL"
        " SELECT max(ibo_number) FROM ibo_archive) AS numbers",
        {}, [&](const SqlRow& row) { created.number = row.Int(0) + 1; });
    const Blob data = NewRecord(ibo, created.id, created.number);
    const IboRow row = DecodeRow(data, IboTable::kMain, Location());
    Insert({{&row, user_, SaveStamp(), user_}}, false);
  });
  return created;
}

void SqlIboStore::MoveIbo(IboTable from, std::int32_t id, std::optional<std::int64_t> expected) {
  const IboTable to = OtherTable(from);
  const std::string verb = from == IboTable::kMain ? "archive" : "restore";
  const std::string refusal =
      "Cannot " + verb + " IBO " + std::to_string(id) + " in " + Location() + ": ";
  const std::string source = TableSqlName(from);
  const std::string target = TableSqlName(to);
  std::lock_guard lock(mutex_);
  sql_->Transaction(refusal.substr(0, refusal.size() - 2), true, [&] {
    std::optional<std::int64_t> version;
    sql_->Query("SELECT version FROM " + source + " WHERE id = ?", {std::int64_t{id}},
                [&](const SqlRow& row) { version = row.Int64(0); });
    if (!version) {
      RaiseDataError(refusal + "it is not in the " + IboTableName(from) +
                     " table (someone may have moved or deleted it). Refresh the list.");
    }
    if (expected && *expected != *version) {
      RaiseDataError(refusal +
                     "someone saved it since you opened it, so nothing was moved. "
                     "Look at the newer record first, then " +
                     verb + " it.");
    }
    bool taken = false;
    sql_->Query("SELECT 1 FROM " + target + " WHERE id = ?", {std::int64_t{id}},
                [&](const SqlRow&) { taken = true; });
    if (taken) {
      RaiseDataError(refusal + "the " + IboTableName(to) +
                     " table holds another IBO with that "
                     "id, so nothing was moved. Delete or renumber that one first.");
    }
    sql_->Exec("INSERT INTO " + target + " (" + AllRowColumns() + ") SELECT " + AllRowColumns() +
                   " FROM " + source + " WHERE id = ?",
               {std::int64_t{id}});
    // An editor still open on the row it was read from is refused when it saves.
    sql_->Exec("UPDATE " + target + " SET version = version + 1 WHERE id = ?", {std::int64_t{id}});
    sql_->Exec("DELETE FROM " + source + " WHERE id = ?", {std::int64_t{id}});
  });
}

void SqlIboStore::DeleteArchived(std::int32_t id) {
  const std::string action = "Cannot delete IBO " + std::to_string(id) + " from " + Location();
  std::lock_guard lock(mutex_);
  sql_->Transaction(action, true, [&] {
    if (sql_->Exec("DELETE FROM ibo_archive WHERE id = ?", {std::int64_t{id}}) > 0) return;
    bool live = false;
    sql_->Query("SELECT 1 FROM ibo_main WHERE id = ?", {std::int64_t{id}},
                [&](const SqlRow&) { live = true; });
    RaiseDataError(action + (live ? ": it is in the main table. Only archived IBOs can be "
                                    "deleted: archive it first."
                                  : ": the archive holds no IBO with that id."));
  });
}

std::vector<ForecastBucket> SqlIboStore::Forecast(const std::string& today,
                                                  const std::string& owner) {
  const std::string action = "Cannot sum up the deals of " + Location();
  const std::optional<pelkedit::Date> day = pelkedit::Date::Parse(today);
  if (!day) RaiseDataError(action + ": \"" + today + "\" is not a date (YYYY-MM-DD).");
  std::vector<SqlValue> params = {day->ToIso(), std::int64_t{kStatusOpen},
                                  FirstDayAfterForecast(*day)};
  if (!owner.empty()) params.emplace_back(owner);
  std::lock_guard lock(mutex_);
  std::vector<ForecastBucket> buckets;
  // From the forecast's index, only the dated deals up to the end of its last month: the deals
  // with no date, often most of a large database, are not read.
  sql_->QueryAlone(
      action,
      std::string("SELECT CASE WHEN wwih_date < ? THEN 'overdue' ELSE substr(wwih_date, 1, 7)"
                  " END AS month, wih, wwgi, sum(value), count(*) FROM ibo_main"
                  " WHERE status = ? AND wwih_date > '' AND wwih_date < ?") +
          (owner.empty() ? "" : " AND owner = ?") + " GROUP BY 1, 2, 3",
      params, [&](const SqlRow& row) {
        buckets.push_back({row.Text(0), row.Int(1), row.Int(2), row.Int64(3), row.Int64(4)});
      });
  return buckets;
}

std::vector<StoredIbo> SqlIboStore::StoredRows(IboTable table, const std::string& sql,
                                               const std::vector<SqlValue>& params) {
  std::lock_guard lock(mutex_);
  std::vector<StoredIbo> rows;
  sql_->QueryAlone("Cannot read the IBOs of " + Location(), sql, params, [&](const SqlRow& row) {
    rows.push_back({table, row.Int(0), row.Bytes(1), row.Text(2), row.Text(3), row.Text(4)});
  });
  return rows;
}

std::vector<StoredIbo> SqlIboStore::ReadBatch(IboTable table, std::int32_t afterId, int limit) {
  return StoredRows(table,
                    std::string("SELECT id, data, owner, saved_at, saved_by FROM ") +
                        TableSqlName(table) + " WHERE id > ? ORDER BY id LIMIT ?",
                    {std::int64_t{afterId}, std::int64_t{limit}});
}

std::vector<StoredIbo> SqlIboStore::FindMany(IboTable table, const std::vector<std::int32_t>& ids) {
  if (ids.empty()) return {};
  std::vector<SqlValue> params;
  for (const std::int32_t id : ids) params.emplace_back(std::int64_t{id});
  return StoredRows(table,
                    std::string("SELECT id, data, owner, saved_at, saved_by FROM ") +
                        TableSqlName(table) + " WHERE id IN (" + Marks(ids.size()) +
                        ") ORDER BY id",
                    params);
}

}  // namespace pelkor::data_detail
