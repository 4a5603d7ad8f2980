#include "data/summary_export.h"

#include <array>
#include <cstdio>

#include <nlohmann/json.hpp>

#include "values/currency.h"

namespace pelkor {
namespace {

constexpr std::array<const char*, 5> kStatusWords = {"Unknown", "Open", "Won", "Lost", "Cancelled"};
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

std::string StatusWord(std::int32_t status) {
  if (status < 0 || status >= static_cast<std::int32_t>(kStatusWords.size())) return "Unknown";
  return kStatusWords[static_cast<std::size_t>(status)];
}

std::optional<std::int32_t> StatusNamed(const std::string& word) {
  for (std::size_t code = 1; code < kStatusWords.size(); ++code) {
    if (Lower(word) == Lower(kStatusWords[code])) return static_cast<std::int32_t>(code);
  }
  return std::nullopt;
}

std::string MoneyText(std::int64_t tenThousandths) {
  std::string text = pelkedit::Currency::FromScaled(tenThousandths).ToString();
  const auto point = text.find('.');
  if (point == std::string::npos) return text + ".00";
  if (text.size() - point == 2) return text + "0";
  return text;
}

std::vector<ExportCell> ExportCells(const IboSummary& s) {
  std::string contact = s.firstName;
  if (!s.firstName.empty() && !s.lastName.empty()) contact += " ";
  contact += s.lastName;
  return {Number(std::to_string(s.id)),
          Number(std::to_string(s.iboNumber)),
          Text(s.company),
          Text(contact),
          Text(StatusWord(s.status)),
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
