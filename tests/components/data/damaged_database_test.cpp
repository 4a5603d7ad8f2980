// Files that are not IBO databases are refused with an error naming them, and left alone.
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

#include <SQLiteCpp/SQLiteCpp.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "data/demo_seed.h"
#include "data/ibo_store.h"
#include "data_test_support.h"

namespace pelkor {
namespace {

using testing::ErrorOf;
using ::testing::HasSubstr;
using ::testing::StartsWith;
using testing::TempFolder;

std::string Contents(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

void WriteFile(const std::string& path, const std::string& bytes) {
  std::ofstream(path, std::ios::binary) << bytes;
}

// Opening `path` fails with error 5 naming the file and the reason, and changes no byte.
void ExpectRefused(const std::string& path, const std::string& reason) {
  const std::string before = Contents(path);
  const auto error = ErrorOf([&] { OpenIboStore(path); });
  EXPECT_EQ(error.Number(), pelkedit::errnum::kInvalidProcedureCall);
  EXPECT_EQ(error.Source(), kDataErrorSource);
  EXPECT_THAT(error.Description(), StartsWith("Cannot open the IBO database '" + path + "': "));
  EXPECT_THAT(error.Description(), HasSubstr(reason));
  EXPECT_EQ(Contents(path), before);
}

TEST(DamagedDatabase, JunkBytesAreNotADatabase) {
  TempFolder folder;
  const std::string path = folder.File("junk.db");
  std::string junk;
  for (int i = 0; i < 4096; ++i) {
    junk.push_back(static_cast<char>((i * 7919) % 251));
  }
  WriteFile(path, junk);
  ExpectRefused(path, "the file is not an IBO database");
}

TEST(DamagedDatabase, TruncatedDatabaseIsDamaged) {
  TempFolder folder;
  const std::string path = folder.File("truncated.db");
  SeedDemoData(*OpenIboStore(path));  // closing the last connection folds the log back in
  ASSERT_FALSE(std::filesystem::exists(path + "-wal"));
  std::filesystem::resize_file(path, std::filesystem::file_size(path) / 2);
  ExpectRefused(path, "the database is damaged");
}

TEST(DamagedDatabase, ForeignAndNewerSchemasAreRefused) {
  TempFolder folder;
  const std::string foreign = folder.File("contacts.db");
  {
    SQLite::Database db(foreign, SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
    db.exec("CREATE TABLE contacts (id INTEGER PRIMARY KEY, name TEXT)");
  }
  ExpectRefused(foreign, "it is a database of another application");

  const std::string newer = folder.File("newer.db");
  OpenIboStore(newer);
  {
    SQLite::Database db(newer, SQLite::OPEN_READWRITE);
    db.exec("PRAGMA user_version = 6");
  }
  ExpectRefused(newer, "it has schema version 6 and this program reads version 5");

  const std::string gutted = folder.File("gutted.db");
  OpenIboStore(gutted);
  {
    SQLite::Database db(gutted, SQLite::OPEN_READWRITE);
    db.exec("DROP TABLE ibo_archive");
  }
  ExpectRefused(gutted, "the archive table is missing");
}

// A database of the first version: no contact book, no row versions, no summaries beside the
// records. Opening it adds them all and fills the summaries from the records.
TEST(DamagedDatabase, AFirstVersionDatabaseGetsTheContactBookSummariesAndKeepsItsIbos) {
  TempFolder folder;
  const std::string old = folder.File("old.db");
  SeedDemoData(*OpenIboStore(old));
  {
    SQLite::Database db(old, SQLite::OPEN_READWRITE);
    db.exec("DROP TABLE contacts");
    for (const std::string table : {"ibo_main", "ibo_archive"}) {
      SQLite::Statement indexes(db,
                                "SELECT name FROM sqlite_master WHERE type = 'index' AND"
                                " tbl_name = ? AND sql IS NOT NULL");
      indexes.bind(1, table);
      std::vector<std::string> names;
      while (indexes.executeStep()) names.push_back(indexes.getColumn(0).getString());
      for (const std::string& name : names) db.exec("DROP INDEX " + name);
      for (const char* column : testing::kColumnsAfterTheFirstVersion) {
        db.exec("ALTER TABLE " + table + " DROP COLUMN " + column);
      }
    }
    db.exec("DROP TABLE ibo_versions");
    db.exec("PRAGMA user_version = 1");
  }
  const auto store = OpenIboStore(old);
  EXPECT_EQ(store->ListIbos().size(), 9u);
  EXPECT_TRUE(store->ListContacts().empty());
  EXPECT_EQ(store->AddContacts({{0, "Ann", "Lee", "Acme", "", "", "ann@acme.example"}}), 1);
  testing::ExpectSummariesOfTheDemo(*store);
  SQLite::Database db(old, SQLite::OPEN_READONLY);
  EXPECT_EQ(db.execAndGet("PRAGMA user_version").getInt(), 5);
  EXPECT_EQ(db.execAndGet("SELECT count(*) FROM ibo_versions").getInt(), 0);
}

// A database that lost its contact book is refused when opened, not when the book is first
// looked at; an empty file that was only to be listed stays empty.
TEST(DamagedDatabase, AMissingContactBookIsRefusedAndListingNeverCreates) {
  TempFolder folder;
  const std::string damaged = folder.File("damaged.db");
  SeedDemoData(*OpenIboStore(damaged));
  SQLite::Database(damaged, SQLite::OPEN_READWRITE).exec("DROP TABLE contacts");
  EXPECT_THAT(ErrorOf([&] { OpenIboStore(damaged); }).Description(),
              HasSubstr("the database is damaged (the contacts table is missing)"));

  const std::string empty = folder.File("empty.db");
  std::ofstream{empty};
  EXPECT_THAT(ErrorOf([&] { OpenIboStore(empty, StoreOpening::kExistingOnly); }).Description(),
              HasSubstr("it holds no IBOs yet"));
  EXPECT_EQ(std::filesystem::file_size(empty), 0u);
  EXPECT_FALSE(std::filesystem::exists(empty + "-wal"));
}

// Databases hold customers, contacts and deal values: a new one, and the files SQLite keeps
// beside it, are the owner's alone.
TEST(DamagedDatabase, ANewDatabaseIsPrivate) {
  TempFolder folder;
  const std::string path = folder.File("private.db");
  const auto store = OpenIboStore(path);
  SeedDemoData(*store);
  namespace fs = std::filesystem;
  for (const std::string& file : {path, path + "-wal", path + "-shm"}) {
    ASSERT_TRUE(fs::exists(file)) << file;
    EXPECT_EQ(fs::status(file).permissions() & fs::perms::all,
              fs::perms::owner_read | fs::perms::owner_write)
        << file;
  }
}

TEST(DamagedDatabase, MissingFileIsCreatedButMissingFolderIsAnError) {
  TempFolder folder;
  const std::string fresh = folder.File("fresh.db");
  EXPECT_TRUE(OpenIboStore(fresh)->ListIbos().empty());
  EXPECT_TRUE(std::filesystem::exists(fresh));

  const std::string nowhere = folder.File("no/such/folder/ibos.db");
  const auto error = ErrorOf([&] { OpenIboStore(nowhere); });
  EXPECT_EQ(error.Description(), "Cannot open the IBO database '" + nowhere +
                                     "': the file cannot be opened or created. Check that its "
                                     "folder exists and that you may write to it.");
  EXPECT_EQ(ErrorOf([] { OpenIboStore(""); }).Description(), "No IBO database was named.");
}

}  // namespace
}  // namespace pelkor
