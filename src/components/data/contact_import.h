#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "data/ibo_store.h"

namespace pelkor {

// An entry of an address-book export that was skipped, and why.
struct ImportProblem {
  int line = 0;
  std::string why;
};

struct ContactImport {
  std::vector<Contact> contacts;
  std::vector<ImportProblem> skipped;
};

// Contacts exported by address books: vCard 2.1, 3.0 and 4.0 (folded lines, quoted-printable
// values, escapes) or CSV with a header row naming the columns (quoted fields may hold commas
// and line breaks). A UTF-8 byte order mark is ignored. Entries that cannot be read are skipped
// with their line; a CSV file whose header names no name column is an error (5).
ContactImport ReadVCards(std::string_view text);
ContactImport ReadCsvContacts(std::string_view text);
// By the content: a file that starts with BEGIN:VCARD is vCard, anything else CSV. Error 5 when
// the file cannot be read.
ContactImport ReadContactFile(const std::string& path);

// The text without a leading UTF-8 byte order mark.
std::string_view WithoutMark(std::string_view text);
// The text without blanks and line breaks at its ends.
std::string Trimmed(const std::string& text);

}  // namespace pelkor
