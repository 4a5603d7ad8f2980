#include "data/data_error.h"

#include <sqlite3.h>

#include "data/ibo_schema.h"
#include "data/ibo_store.h"
#include "values/error.h"

namespace pelkor::data_detail {
namespace {

// Extended result codes carry the primary code in their low byte.
constexpr int kPrimaryCodeMask = 0xFF;

// What went wrong, in words, and what the user can do about it.
std::string Reason(const SQLite::Exception& error) {
  switch (error.getErrorCode() & kPrimaryCodeMask) {
    case SQLITE_NOTADB:
      return "the file is not an IBO database. Open an IBO database, or name a new file to "
             "create one";
    case SQLITE_CORRUPT:
      return "the database is damaged. Restore it from a backup";
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
      return "the database is in use by another program. Wait a moment and try again";
    case SQLITE_READONLY:
      return "the database is read-only. Check that you may write to the file";
    case SQLITE_FULL:
      return "the disk is full. Free some space and try again";
    case SQLITE_CANTOPEN:
      return "the file cannot be opened or created. Check that its folder exists and that you "
             "may write to it";
    default:
      return "the database reported an error (" + std::string(error.what()) +
             "). Try again; if it keeps failing, restore the database from a backup";
  }
}

}  // namespace

std::string DescribeLocation(const std::string& path) {
  if (path == kMemoryPath) return "the in-memory database";
  return "'" + path + "'";
}

void RaiseDataError(const std::string& description) {
  pelkedit::Raise(pelkedit::errnum::kInvalidProcedureCall, kDataErrorSource, description);
}

void RaiseSqlError(const std::string& action, const SQLite::Exception& error) {
  RaiseDataError(action + ": " + Reason(error) + ".");
}

}  // namespace pelkor::data_detail
