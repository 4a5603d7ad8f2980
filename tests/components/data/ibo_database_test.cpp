#include "data/ibo_database.h"

#include <SQLiteCpp/SQLiteCpp.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "data_test_support.h"

namespace pelkor {
namespace {

using testing::CompanyOf;
using testing::ErrorOf;
using ::testing::HasSubstr;
using testing::MakeIbo;
using testing::TempFolder;

constexpr const char* kMain = pelkedit::kProcMain;
constexpr const char* kArchive = pelkedit::kProcArchive;

void ExpectDataError(const pelkedit::PelkError& error, const std::string& description) {
  EXPECT_EQ(error.Number(), pelkedit::errnum::kInvalidProcedureCall);
  EXPECT_EQ(error.Source(), kDataErrorSource);
  EXPECT_EQ(error.Description(), description);
}

TEST(IboDatabase, RecordsSurviveWriteReadAndReopenOfAFile) {
  TempFolder folder;
  const std::string path = folder.File("ibos.db");
  const pelkedit::Blob original = MakeIbo(1001, "Harbor Freight Logistics");
  {
    const auto data = CreateDataAccess(IboDatabase::Open(path));
    data->WriteIbo(original, kMain);
    EXPECT_EQ(data->ReadIbo(1001, kMain), original);
    data->WriteIbo(MakeIbo(1001, "Harbor Freight Logistics West"), kMain);
  }
  const auto db = IboDatabase::Open(path);
  EXPECT_EQ(CompanyOf(db->Read(IboTable::kMain, 1001)), "Harbor Freight Logistics West");
  const auto list = db->ListIbos();
  ASSERT_EQ(list.size(), 1u);
  EXPECT_EQ(list[0].id, 1001);
  EXPECT_EQ(list[0].iboNumber, 1002);
  EXPECT_EQ(list[0].company, "Harbor Freight Logistics West");
  EXPECT_FALSE(list[0].archived);

  SQLite::Database raw(path);
  EXPECT_EQ(raw.execAndGet("PRAGMA journal_mode").getString(), "wal");
}

TEST(IboDatabase, InMemoryDatabasesArePrivate) {
  const auto first = CreateDataAccess(IboDatabase::Open(":memory:"));
  const auto second = IboDatabase::Open(":memory:");
  first->WriteIbo(MakeIbo(5, "Bluewater Marine Supply"), kMain);
  EXPECT_EQ(CompanyOf(first->ReadIbo(5, kMain)), "Bluewater Marine Supply");
  EXPECT_FALSE(second->Find(IboTable::kMain, 5).has_value());
}

TEST(IboDatabase, RetrievalProcedureSelectsMainOrArchive) {
  const auto db = IboDatabase::Open(":memory:");
  const auto data = CreateDataAccess(db);
  data->WriteIbo(MakeIbo(7, "Live Company"), kMain);
  data->WriteIbo(MakeIbo(7, "Archived Company"), kArchive);

  EXPECT_EQ(CompanyOf(data->ReadIbo(7, kMain)), "Live Company");
  EXPECT_EQ(CompanyOf(data->ReadIbo(7, kArchive)), "Archived Company");
  const auto list = db->ListIbos();
  ASSERT_EQ(list.size(), 2u);
  EXPECT_FALSE(list[0].archived);
  EXPECT_TRUE(list[1].archived);
  EXPECT_EQ(db->ListIbos(IboTable::kArchive).size(), 1u);
}

TEST(IboDatabase, MissingRecordsAndUnknownProceduresAreClearErrors) {
  const auto db = IboDatabase::Open(":memory:");
  const auto data = CreateDataAccess(db);
  data->WriteIbo(MakeIbo(42, "Only In Main"), kMain);

  ExpectDataError(ErrorOf([&] { data->ReadIbo(41, kMain); }),
                  "IBO 41 was not found in the main table.");
  ExpectDataError(ErrorOf([&] { data->ReadIbo(42, kArchive); }),
                  "IBO 42 was not found in the archive table.");

  const std::string unknown =
      "Unknown retrieval procedure \"GetIboFromTrashByIboID\"; expected "
      "\"GetIboFromMainByIboID\" or \"GetIboFromArchiveByIboID\".";
  ExpectDataError(ErrorOf([&] { data->ReadIbo(42, "GetIboFromTrashByIboID"); }), unknown);
  ExpectDataError(
      ErrorOf([&] { data->WriteIbo(MakeIbo(43, "Nowhere"), "GetIboFromTrashByIboID"); }), unknown);
  EXPECT_EQ(db->ListIbos().size(), 1u);
}

TEST(IboDatabase, CorruptRecordIsRefusedBeforeAnythingIsWritten) {
  const auto db = IboDatabase::Open(":memory:");
  const auto data = CreateDataAccess(db);
  const pelkedit::Blob original = MakeIbo(5, "Original");
  data->WriteIbo(original, kMain);

  pelkedit::Blob cut = MakeIbo(5, "Replacement");
  cut.resize(cut.size() / 2);
  for (const pelkedit::Blob& bad :
       {cut, pelkedit::Blob{0xde, 0xad, 0xbe, 0xef}, pelkedit::Blob{}}) {
    const auto error = ErrorOf([&] { data->WriteIbo(bad, kMain); });
    EXPECT_EQ(error.Source(), kDataErrorSource);
    EXPECT_THAT(error.Description(), HasSubstr("is not a valid IBO"));
  }
  EXPECT_EQ(data->ReadIbo(5, kMain), original);
  EXPECT_EQ(db->ListIbos().size(), 1u);
}

TEST(IboDatabase, FailedWritesLeaveTheTablesAsTheyWere) {
  TempFolder folder;
  const std::string path = folder.File("ibos.db");
  const auto db = IboDatabase::Open(path);
  db->Write(IboTable::kMain, MakeIbo(5, "Before"));
  {
    // Another program's rule that refuses some rows stands in for a failing disk.
    SQLite::Database other(path, SQLite::OPEN_READWRITE);
    other.exec(
        "CREATE TRIGGER refuse_update BEFORE UPDATE ON ibo_main WHEN NEW.id = 5 "
        "BEGIN SELECT RAISE(ABORT, 'refused by rule'); END;"
        "CREATE TRIGGER refuse_insert BEFORE INSERT ON ibo_main WHEN NEW.id = 7 "
        "BEGIN SELECT RAISE(ABORT, 'refused by rule'); END;");
  }

  const auto update = ErrorOf([&] { db->Write(IboTable::kMain, MakeIbo(5, "After")); });
  EXPECT_EQ(update.Description(),
            "Cannot write IBO 5 to the main table of '" + path + "': refused by rule.");
  EXPECT_EQ(CompanyOf(db->Read(IboTable::kMain, 5)), "Before");

  // The batch fails on its last row: the rows before it are rolled back as well.
  const auto batch = ErrorOf([&] {
    db->AddMissing({{IboTable::kArchive, MakeIbo(6, "Six")},
                    {IboTable::kMain, MakeIbo(6, "Six")},
                    {IboTable::kMain, MakeIbo(7, "Seven")}});
  });
  EXPECT_THAT(batch.Description(), HasSubstr("refused by rule"));
  EXPECT_EQ(db->ListIbos().size(), 1u);
}

TEST(IboDatabase, FactoryCreatesDataAccessOverTheSharedDatabase) {
  const auto db = IboDatabase::Open(":memory:");
  db->Write(IboTable::kArchive, MakeIbo(9001, "Old Mill Hardware"));
  pelkedit::ObjectFactory factory;
  RegisterDataComponent(factory, db);

  const auto data =
      std::dynamic_pointer_cast<pelkedit::IDataAccess>(factory.Create(pelkedit::kDataProgId));
  ASSERT_NE(data, nullptr);
  EXPECT_EQ(CompanyOf(data->ReadIbo(9001, kArchive)), "Old Mill Hardware");
}

}  // namespace
}  // namespace pelkor
