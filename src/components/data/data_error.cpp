#include "data/data_error.h"

#include <sqlite3.h>

#include "data/ibo_database.h"
#include "values/error.h"

namespace pelkor::data_detail {
namespace {

// Extended result codes carry the primary code in their low byte.
constexpr int kPrimaryCodeMask = 0xFF;

std::string Reason(const SQLite::Exception& error) {
  switch (error.getErrorCode() & kPrimaryCodeMask) {
    case SQLITE_NOTADB:
      return "the file is not a database";
    case SQLITE_CORRUPT:
      return "the database is damaged (" + std::string(error.what()) + ")";
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
      return "the database is in use by another program";
    case SQLITE_READONLY:
      return "the database is read-only";
    case SQLITE_FULL:
      return "the disk is full";
    case SQLITE_CANTOPEN:
      return "the file cannot be opened or created";
    default:
      return error.what();
  }
}

}  // namespace

void RaiseDataError(const std::string& description) {
  pelkedit::Raise(pelkedit::errnum::kInvalidProcedureCall, kDataErrorSource, description);
}

void RaiseSqlError(const std::string& action, const SQLite::Exception& error) {
  RaiseDataError(action + ": " + Reason(error) + ".");
}

}  // namespace pelkor::data_detail
