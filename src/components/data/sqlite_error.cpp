#include "data/sqlite_error.h"

#include <sqlite3.h>

namespace pelkor::data_detail {
namespace {

// Extended result codes carry the primary code in their low byte.
constexpr int kPrimaryCodeMask = 0xFF;

}  // namespace

std::string SqliteReason(const SQLite::Exception& error) {
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

}  // namespace pelkor::data_detail
