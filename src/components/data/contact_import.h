#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "data/ibo_store.h"

namespace pelkor {

// An entry of an address-book export that was skipped, and why.
struct ImportProblem {
  int line = 0;
  std::string why;
  // What entries skipped for the same kind of reason share ("why" may add details).
  std::string kind;
};

struct ContactImport {
  // Of each reason for skipping, the first few entries are kept with their lines; the rest are
  // counted, so that a file of a million bad lines reports in a few lines and little memory.
  static constexpr std::size_t kKeptPerReason = 10;

  std::vector<Contact> contacts;
  std::vector<ImportProblem> skipped;
  // How many more entries than those in `skipped` were skipped for each kind of reason, in the
  // order the kinds first came up.
  std::vector<std::pair<std::string, std::size_t>> moreSkipped;

  // `kind` is `why` unless the reason carries details that differ from entry to entry.
  void Skip(int line, const std::string& why, const std::string& kind = "");
  // Every entry skipped, the kept and the counted ones.
  std::size_t SkippedCount() const;
};

// Contacts exported by address books: vCard 2.1, 3.0 and 4.0 (folded lines, quoted-printable
// values, escapes) or CSV with a header row naming the columns (quoted fields may hold commas
// and line breaks). The text is UTF-8 (a byte order mark is ignored); a text that is not, or
// that holds a NUL character, is error 5 naming its first such line, so that every backend
// stores the same contacts. Entries that cannot be read are skipped with their line; a CSV file
// whose header names no name column is an error (5). Time and memory grow linearly with the
// text.
ContactImport ReadVCards(std::string_view text);
ContactImport ReadCsvContacts(std::string_view text);
// By the content: a file that starts with BEGIN:VCARD is vCard, anything else CSV. UTF-8 with
// or without a byte order mark and UTF-16 with one are read. Error 5 when the file cannot be
// read.
ContactImport ReadContactFile(const std::string& path);

// The text of a contacts file as UTF-8: UTF-16 with a byte order mark is converted, anything
// else is returned as it is. Error 5 when the file cannot be read.
std::string ReadContactText(const std::string& path);
// The text without a leading UTF-8 byte order mark.
std::string_view WithoutMark(std::string_view text);
// Calls `take` with each line of `text` and its number (from 1); a line keeps its '\n'.
void ForEachLine(std::string_view text, const std::function<void(int, std::string_view)>& take);
// Error 5 naming the first line of `text` that is not UTF-8 or that holds a NUL character.
void RequireContactText(std::string_view text);
// The text without blanks and line breaks at its ends.
std::string Trimmed(const std::string& text);

}  // namespace pelkor
