// Contacts from CSV exports (Outlook, Google, Thunderbird and hand-made sheets): the header row
// names the columns; libcsv reads the fields, quoted ones included.
#include <csv.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <optional>

#include "data/contact_import.h"
#include "data/data_error.h"

namespace pelkor {
namespace {

struct Row {
  int line = 0;
  std::vector<std::string> fields;
};

struct Reader {
  std::vector<Row> rows;
  Row current;
  int line = 1;
};

void EndField(void* text, std::size_t size, void* data) {
  auto& reader = *static_cast<Reader*>(data);
  if (reader.current.fields.empty()) reader.current.line = reader.line;
  reader.current.fields.emplace_back(text == nullptr ? ""
                                                     : std::string(static_cast<char*>(text), size));
}

void EndRow(int /*terminator*/, void* data) {
  auto& reader = *static_cast<Reader*>(data);
  reader.rows.push_back(std::move(reader.current));
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

std::vector<Row> ParseRows(std::string_view text) {
  csv_parser parser{};
  if (csv_init(&parser, CSV_APPEND_NULL) != 0) data_detail::RaiseDataError("Cannot read CSV.");
  Reader reader;
  // A byte at a time, so that each row knows the line it starts on.
  for (const char c : text) {
    csv_parse(&parser, &c, 1, EndField, EndRow, &reader);
    if (c == '\n') ++reader.line;
  }
  csv_fini(&parser, EndField, EndRow, &reader);
  csv_free(&parser);
  return std::move(reader.rows);
}

}  // namespace

ContactImport ReadCsvContacts(std::string_view text) {
  ContactImport result;
  std::vector<Row> rows = ParseRows(WithoutMark(text));
  if (rows.empty()) return result;
  std::array<std::optional<std::size_t>, kFieldCount> columns;
  const Row& header = rows.front();
  for (std::size_t i = 0; i < header.fields.size(); ++i) {
    const auto field = FieldOf(header.fields[i]);
    if (field && !columns[*field]) columns[*field] = i;
  }
  if (!columns[kFirst] && !columns[kLast] && !columns[kFull]) {
    data_detail::RaiseDataError(
        "The CSV header names no name column (First Name, Last Name or Name).");
  }
  for (std::size_t r = 1; r < rows.size(); ++r) {
    const Row& row = rows[r];
    if (row.fields.size() == 1 && Trimmed(row.fields[0]).empty()) continue;  // a blank line
    if (row.fields.size() != header.fields.size()) {
      result.skipped.push_back({row.line, std::to_string(row.fields.size()) +
                                              " fields where the header has " +
                                              std::to_string(header.fields.size())});
      continue;
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
      result.skipped.push_back({row.line, "a contact without a name"});
      continue;
    }
    result.contacts.push_back(contact);
  }
  return result;
}

}  // namespace pelkor
