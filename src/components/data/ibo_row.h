#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "data/ibo_query.h"
#include "data/ibo_store.h"

namespace pelkor::data_detail {

// Both tables, main first.
inline constexpr std::array kTables = {IboTable::kMain, IboTable::kArchive};

// SQL name of a table.
const char* TableSqlName(IboTable table);

// The table of the versions saves replaced.
inline constexpr const char* kSavedVersionsTable = "ibo_versions";

// The contact book's table.
inline constexpr const char* kContactsTable = "contacts";
// Every table a search reads, by SQL name: the two tables of deals and the contact book.
inline constexpr std::array kSearchedTables = {"ibo_main", "ibo_archive", kContactsTable};

// The columns of one stored IBO row, taken from the decoded record; `data` points at the
// record it was decoded from. The owner and the save stamp are the store's to fill.
struct IboRow {
  IboTable table = IboTable::kMain;
  IboSummary summary;
  // Number, company and contact folded for searching.
  std::string search;
  const pelkedit::Blob* data = nullptr;
};

// Today in UTC, and the moment of a save as the summaries keep it ("YYYY-MM-DD HH:MM:SS").
pelkedit::Date TodayUtc();
std::string SaveStamp();

// The summary of a decoded record (owner, save stamp and version left empty).
IboSummary SummaryOf(pelkedit::IRecord& record);

// The record `data` holds; bytes that are not a valid IBO are error 5 with the description
// `refusal` makes of the decoder's reason.
std::shared_ptr<pelkedit::IRecord> DecodeOrRefuse(
    const pelkedit::Blob& data, const std::function<std::string(const std::string&)>& refusal);

// Decodes a record bound for `table` of the store at `location`; a record that is not a valid
// IBO is refused (error 5) before anything is written.
IboRow DecodeRow(const pelkedit::Blob& data, IboTable table, const std::string& location);

// "IBO 42 from the main table" and the like, for messages.
std::string Where(std::int32_t id, const char* preposition, IboTable table);

// What Update refuses, with the same words on every backend. `refusal` says what failed
// ("Cannot save IBO 8 to the main table of ...").
[[noreturn]] void RaiseForeignId(const std::string& refusal, std::int32_t carried);
[[noreturn]] void RaiseVanished(const std::string& refusal);
[[noreturn]] void RaiseChangedBySomeoneElse(std::int32_t id);

}  // namespace pelkor::data_detail
