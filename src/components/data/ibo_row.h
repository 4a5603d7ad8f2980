#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "data/ibo_store.h"

namespace pelkor::data_detail {

// Both tables, main first.
inline constexpr std::array kTables = {IboTable::kMain, IboTable::kArchive};

// SQL name of a table.
const char* TableSqlName(IboTable table);

// The columns of one stored IBO row, taken from the decoded record; `data` points at the
// record it was decoded from.
struct IboRow {
  IboTable table = IboTable::kMain;
  std::int32_t id = 0;
  std::int32_t iboNumber = 0;
  std::string company;
  std::int32_t status = 0;
  bool expert = false;
  const pelkedit::Blob* data = nullptr;
};

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
