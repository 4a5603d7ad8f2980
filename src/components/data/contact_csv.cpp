// Contacts from CSV exports (Outlook, Google, Thunderbird and hand-made sheets): the header row
// names the columns; libcsv reads the fields, quoted ones included.
#include <csv.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <functional>
#include <optional>

#include "data/contact_import.h"
#include "data/data_error.h"

namespace pelkor {
namespace {

// A row as libcsv hands it over: the fields a contact can use (a row may hold millions of
// separators; only as many fields as a header can name are kept) and how many there were.
struct Row {
  int line = 0;
  std::vector<std::string> fields;
  std::size_t count = 0;
};

// Columns beyond this many are counted but never kept, in the header or in a row.
constexpr std::size_t kMaxColumns = 1024;

struct Reader {
  std::function<void(Row&)> onRow;
  Row current;
  int line = 1;
};

void EndField(void* text, std::size_t size, void* data) {
  auto& reader = *static_cast<Reader*>(data);
  Row& row = reader.current;
  if (row.count++ == 0) row.line = reader.line;
  if (row.fields.size() == kMaxColumns) return;
  row.fields.emplace_back(text == nullptr ? "" : std::string(static_cast<char*>(text), size));
}

void EndRow(int /*terminator*/, void* data) {
  auto& reader = *static_cast<Reader*>(data);
  reader.onRow(reader.current);
  reader.current = {};
}

// A column name reduced to its letters and digits, lower case: "E-mail 1 - Value" -> "email1value".
std::string Key(const std::string& name) {
  std::string key;
  for (const unsigned char c : name) {
    if (std::isalnum(c) != 0) key += static_cast<char>(std::tolower(c));
  }
  return key;
}

enum Field { kFirst, kLast, kFull, kCompany, kAddress, kPhone, kEmail, kFieldCount };

// Which field a column holds, by the names common address books give it.
std::optional<Field> FieldOf(const std::string& column) {
  const std::string key = Key(column);
  const auto starts = [&key](const char* prefix) { return key.rfind(prefix, 0) == 0; };
  if (key == "firstname" || key == "givenname" || key == "first") return kFirst;
  if (key == "lastname" || key == "familyname" || key == "surname" || key == "last") return kLast;
  if (key == "name" || key == "fullname" || key == "displayname") return kFull;
  if (key == "company" || starts("organization") || starts("organisation")) return kCompany;
  if (key == "address" || key == "businessstreet" || key == "homestreet" ||
      starts("address1formatted") || key == "workaddress" || key == "homeaddress" ||
      key == "street") {
    return kAddress;
  }
  if (key == "phone" || key == "telephone" || key == "mobilephone" || key == "businessphone" ||
      key == "primaryphone" || key == "workphone" || key == "homephone" || starts("phone1value")) {
    return kPhone;
  }
  if (key == "email" || key == "emailaddress" || starts("email1") || key == "primaryemail") {
    return kEmail;
  }
  return std::nullopt;
}

// Hands each row to `onRow` as soon as it ends; `onRow` must not throw, as libcsv's C frames
// lie between it and the caller. The text goes to libcsv a line at a time, so
// that each row knows the line it starts on.
void ParseRows(std::string_view text, const std::function<void(Row&)>& onRow) {
  // Freed however the parse ends.
  struct Parser {
    csv_parser state{};
    ~Parser() { csv_free(&state); }
  } guard;
  csv_parser& parser = guard.state;
  if (csv_init(&parser, CSV_APPEND_NULL) != 0) data_detail::RaiseDataError("Cannot read CSV.");
  Reader reader{onRow, {}, 1};
  ForEachLine(text, [&](int number, std::string_view line) {
    reader.line = number;
    csv_parse(&parser, line.data(), line.size(), EndField, EndRow, &reader);
  });
  csv_fini(&parser, EndField, EndRow, &reader);
}

}  // namespace

ContactImport ReadCsvContacts(std::string_view text) {
  text = WithoutMark(text);
  RequireContactText(text);
  ContactImport result;
  std::optional<Row> header;
  std::array<std::optional<std::size_t>, kFieldCount> columns;
  bool nameless = false;
  const auto takeHeader = [&](Row& row) {
    header = std::move(row);
    for (std::size_t i = 0; i < header->fields.size(); ++i) {
      const auto field = FieldOf(header->fields[i]);
      if (field && !columns[*field]) columns[*field] = i;
    }
    nameless = !columns[kFirst] && !columns[kLast] && !columns[kFull];
  };
  const auto takeRow = [&](Row& row) {
    if (nameless) return;
    if (row.count == 1 && Trimmed(row.fields[0]).empty()) return;  // a blank line
    if (row.count != header->count) {
      result.Skip(row.line,
                  std::to_string(row.count) + " fields where the header has " +
                      std::to_string(header->count),
                  "a number of fields other than the header's");
      return;
    }
    const auto get = [&](Field field) {
      return columns[field] ? Trimmed(row.fields[*columns[field]]) : std::string();
    };
    Contact contact{0,           get(kFirst), get(kLast), get(kCompany), get(kAddress),
                    get(kPhone), get(kEmail)};
    if (contact.first.empty() && contact.last.empty()) {
      const std::string full = get(kFull);
      const auto space = full.rfind(' ');
      contact.first = space == std::string::npos ? "" : full.substr(0, space);
      contact.last = space == std::string::npos ? full : full.substr(space + 1);
    }
    if (contact.first.empty() && contact.last.empty()) {
      result.Skip(row.line, "a contact without a name");
      return;
    }
    result.contacts.push_back(std::move(contact));
  };
  ParseRows(text, [&](Row& row) { header ? takeRow(row) : takeHeader(row); });
  if (nameless) {
    data_detail::RaiseDataError(
        "The CSV header names no name column (First Name, Last Name or Name).");
  }
  return result;
}

}  // namespace pelkor
