#include "data/ibo_row.h"

#include "data/data_error.h"
#include "record/ibo_properties.h"
#include "values/error.h"

namespace pelkor::data_detail {
namespace {

// What tells a refused save from other write failures.
constexpr const char* kChangedBySomeoneElse = " was changed by someone else since you opened it.";

}  // namespace

const char* TableSqlName(IboTable table) {
  return table == IboTable::kArchive ? "ibo_archive" : "ibo_main";
}

std::shared_ptr<pelkedit::IRecord> DecodeOrRefuse(
    const pelkedit::Blob& data, const std::function<std::string(const std::string&)>& refusal) {
  auto record = CreateIboProperties();
  try {
    record->SetIboData(data);
  } catch (const pelkedit::PelkError& error) {
    RaiseDataError(refusal(error.Description()));
  }
  return record;
}

IboRow DecodeRow(const pelkedit::Blob& data, IboTable table, const std::string& location) {
  const auto record = DecodeOrRefuse(data, [&](const std::string& why) {
    return "The record to be written to the " + std::string(IboTableName(table)) + " table of " +
           location + " is not a valid IBO, so nothing was written: " + why + ".";
  });
  IboRow row;
  row.table = table;
  row.summary = SummaryOf(*record);
  row.search = FoldForSearch(std::to_string(row.summary.iboNumber) + " " + row.summary.company +
                             " " + row.summary.firstName + " " + row.summary.lastName);
  row.data = &data;
  return row;
}

std::string Where(std::int32_t id, const char* preposition, IboTable table) {
  return "IBO " + std::to_string(id) + " " + preposition + " the " + IboTableName(table) + " table";
}

void RaiseForeignId(const std::string& refusal, std::int32_t carried) {
  RaiseDataError(refusal + ": the record carries the id " + std::to_string(carried) +
                 ", so nothing was written. Reopen the IBO and make the changes again.");
}

void RaiseVanished(const std::string& refusal) {
  RaiseDataError(refusal +
                 ": the IBO is no longer there (it was deleted or moved), so nothing was "
                 "written. Copy what you need from the editor before closing it.");
}

void RaiseChangedBySomeoneElse(std::int32_t id) {
  RaiseDataError("IBO " + std::to_string(id) + kChangedBySomeoneElse +
                 " Your changes are still here; nothing was written. Note what you changed, "
                 "close the IBO without saving, open it again and make your changes on the "
                 "newer record.");
}

}  // namespace pelkor::data_detail

namespace pelkor {

bool IsSaveConflict(const pelkedit::PelkError& error) {
  return error.Source() == kDataErrorSource &&
         error.Description().find(data_detail::kChangedBySomeoneElse) != std::string::npos;
}

}  // namespace pelkor
