#include "data/summary_export.h"

#include <algorithm>
#include <climits>
#include <cstdio>

#include <nlohmann/json.hpp>

#include "data/ibo_store.h"
#include "products/product_text.h"
#include "record/ibo_properties.h"
#include "values/currency.h"

namespace pelkor {
namespace {

// EditIBOStatusEnum's codes with a word of their own: open, won, lost, cancelled.
constexpr std::int32_t kFirstStatus = 1;
constexpr std::int32_t kLastStatus = 4;
constexpr int kMoneyDecimals = 2;
// Rows asked of the store at a time while exporting.
constexpr std::int64_t kExportPage = 1000;
constexpr const char* kByteOrderMark = "\xEF\xBB\xBF";

std::string Lower(std::string text) {
  for (char& c : text) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  return text;
}

ExportCell Number(const std::string& text) {
  return {text, true};
}
ExportCell Text(const std::string& text) {
  return {text, false};
}

std::string PositionText(double position) {
  char text[32];
  std::snprintf(text, sizeof text, "%.2f", position);
  return text;
}

bool StartsFormula(const std::string& text) {
  return !text.empty() && std::string("=+-@\t\r").find(text.front()) != std::string::npos;
}

std::string CsvField(const ExportCell& cell) {
  std::string text = cell.text;
  if (!cell.number && StartsFormula(text)) text.insert(0, "'");
  if (text.find_first_of(",\"\r\n") == std::string::npos) return text;
  std::string quoted = "\"";
  for (const char c : text) {
    if (c == '"') quoted.push_back('"');
    quoted.push_back(c);
  }
  return quoted + "\"";
}

}  // namespace

std::optional<std::int32_t> StatusNamed(const std::string& word) {
  for (std::int32_t code = kFirstStatus; code <= kLastStatus; ++code) {
    if (Lower(word) == Lower(StatusTextOf(code))) return code;
  }
  return std::nullopt;
}

std::string MoneyText(std::int64_t tenThousandths) {
  // As stored texts write amounts: a point and no group marks.
  return FormatAmount(pelkedit::Currency::FromScaled(tenThousandths), kMoneyDecimals, {".", ""});
}

std::vector<ExportCell> ExportCells(const IboSummary& s) {
  std::string contact = s.firstName;
  if (!s.firstName.empty() && !s.lastName.empty()) contact += " ";
  contact += s.lastName;
  return {Number(std::to_string(s.id)),
          Number(std::to_string(s.iboNumber)),
          Text(s.company),
          Text(contact),
          Text(StatusTextOf(s.status)),
          Text(s.expert ? "expert" : "basic"),
          Number(std::to_string(s.priority)),
          Number(std::to_string(s.advisorPriority)),
          Number(std::to_string(s.wih)),
          Number(std::to_string(s.wwgi)),
          Text(s.wwihDate),
          Text(s.closeDate),
          Number(std::to_string(s.result)),
          Number(PositionText(s.position)),
          Number(MoneyText(s.value)),
          Text(s.owner),
          Text(s.savedAt),
          Text(s.savedBy)};
}

std::int64_t ForEachSummary(IIboStore& store, IboQuery query, std::int64_t limit,
                            const std::function<void(const IboSummary&)>& each) {
  std::int64_t total = 0;
  for (std::int64_t left = limit < 0 ? INT64_MAX : limit; left > 0;) {
    query.limit = std::min(left, kExportPage);
    const IboPage page = store.QueryIbos(query);
    total = page.total;
    for (const IboSummary& row : page.rows) each(row);
    if (static_cast<std::int64_t>(page.rows.size()) < query.limit) break;
    left -= query.limit;
    query.offset += query.limit;
  }
  return total;
}

CsvWriter::CsvWriter(std::ostream& out) : out_(out) {}

void CsvWriter::Header() {
  out_ << kByteOrderMark;
  std::vector<ExportCell> names;
  for (const SummaryColumn column : SummaryColumns())
    names.push_back(Text(SummaryColumnName(column)));
  Line(names);
}

void CsvWriter::Row(const IboSummary& summary) {
  Line(ExportCells(summary));
}

void CsvWriter::Line(const std::vector<ExportCell>& cells) {
  for (std::size_t i = 0; i < cells.size(); ++i) {
    out_ << (i == 0 ? "" : ",") << CsvField(cells[i]);
  }
  out_ << "\r\n";
}

JsonWriter::JsonWriter(std::ostream& out) : out_(out) {
  out_ << "[";
}

JsonWriter::~JsonWriter() {
  out_ << (first_ ? "]\n" : "\n]\n");
}

void JsonWriter::Row(const IboSummary& summary) {
  const std::vector<ExportCell> cells = ExportCells(summary);
  nlohmann::ordered_json object = nlohmann::ordered_json::object();
  for (const SummaryColumn column : SummaryColumns()) {
    const ExportCell& cell = cells[static_cast<std::size_t>(column)];
    if (cell.number) {
      object[SummaryColumnName(column)] = nlohmann::ordered_json::parse(cell.text);
    } else {
      object[SummaryColumnName(column)] = cell.text;
    }
  }
  out_ << (first_ ? "\n  " : ",\n  ") << object.dump();
  first_ = false;
}

}  // namespace pelkor
