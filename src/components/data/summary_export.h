#pragma once

#include <cstdint>
#include <functional>
#include <ostream>
#include <string>
#include <vector>

#include "data/ibo_query.h"

namespace pelkor {

// One cell of an exported summary: its text, and whether it is a number (spreadsheets then
// read it as one).
struct ExportCell {
  std::string text;
  bool number = false;
};

// The cells of a summary, one per column of SummaryColumns(): status and mode in words, the
// contact as "First Last", money with at least two decimals.
std::vector<ExportCell> ExportCells(const IboSummary& summary);

// The status codes of the words "open", "won", "lost", "cancelled" (any case); nullopt for
// any other word.
std::optional<std::int32_t> StatusNamed(const std::string& word);

// The money in ten-thousandths as decimal text with at least two decimals: "72980.00".
std::string MoneyText(std::int64_t tenThousandths);

class IIboStore;

// Calls `each` for the rows `query` matches from its offset on, up to `limit` of them (all when
// negative), asking the store a page at a time so that memory stays small; returns how many
// rows match in all.
std::int64_t ForEachSummary(IIboStore& store, IboQuery query, std::int64_t limit,
                            const std::function<void(const IboSummary&)>& each);

// CSV as spreadsheets read it: RFC 4180 quoting, CRLF line ends, UTF-8 with a byte-order mark,
// and text cells that would start a formula (=, +, -, @, tab, CR) prefixed with an apostrophe
// so that opening the file runs nothing.
class CsvWriter {
 public:
  explicit CsvWriter(std::ostream& out);
  void Header();
  void Row(const IboSummary& summary);

 private:
  void Line(const std::vector<ExportCell>& cells);
  std::ostream& out_;
};

// A JSON array of objects keyed by column name, written a row at a time.
class JsonWriter {
 public:
  explicit JsonWriter(std::ostream& out);
  ~JsonWriter();
  JsonWriter(const JsonWriter&) = delete;
  JsonWriter& operator=(const JsonWriter&) = delete;
  void Row(const IboSummary& summary);

 private:
  std::ostream& out_;
  bool first_ = true;
};

}  // namespace pelkor
