#include "data/ibo_store.h"

#include <SQLiteCpp/SQLiteCpp.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "data_test_support.h"
#include "pipeline_checks.h"
#include "team_editing.h"

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

TEST(IboStore, RecordsSurviveWriteReadAndReopenOfAFile) {
  TempFolder folder;
  const std::string path = folder.File("ibos.db");
  const pelkedit::Blob original = MakeIbo(1001, "Harbor Freight Logistics");
  {
    const auto db = OpenIboStore(path);
    db->Write(IboTable::kMain, original);
    const auto data = CreateDataAccess(db);
    EXPECT_EQ(data->ReadIbo(1001, kMain), original);
    data->WriteIbo(MakeIbo(1001, "Harbor Freight Logistics West"), kMain);
  }
  const auto db = OpenIboStore(path);
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

TEST(IboStore, InMemoryDatabasesArePrivate) {
  const auto first = OpenIboStore(":memory:");
  const auto second = OpenIboStore(":memory:");
  first->Write(IboTable::kMain, MakeIbo(5, "Bluewater Marine Supply"));
  EXPECT_EQ(CompanyOf(first->Read(IboTable::kMain, 5)), "Bluewater Marine Supply");
  EXPECT_FALSE(second->Find(IboTable::kMain, 5).has_value());
}

TEST(IboStore, RetrievalProcedureSelectsMainOrArchive) {
  const auto db = OpenIboStore(":memory:");
  db->Write(IboTable::kMain, MakeIbo(7, "Live Company"));
  db->Write(IboTable::kArchive, MakeIbo(7, "Archived Company"));
  const auto data = CreateDataAccess(db);

  EXPECT_EQ(CompanyOf(data->ReadIbo(7, kMain)), "Live Company");
  EXPECT_EQ(CompanyOf(data->ReadIbo(7, kArchive)), "Archived Company");
  data->WriteIbo(MakeIbo(7, "Archived Company, corrected"), kArchive);
  EXPECT_EQ(CompanyOf(db->Read(IboTable::kMain, 7)), "Live Company");
  EXPECT_EQ(CompanyOf(db->Read(IboTable::kArchive, 7)), "Archived Company, corrected");
  const auto list = db->ListIbos();
  ASSERT_EQ(list.size(), 2u);
  EXPECT_FALSE(list[0].archived);
  EXPECT_TRUE(list[1].archived);
  EXPECT_EQ(db->ListIbos(IboTable::kArchive).size(), 1u);
}

TEST(IboStore, MissingRecordsAndUnknownProceduresAreClearErrors) {
  const auto db = OpenIboStore(":memory:");
  db->Write(IboTable::kMain, MakeIbo(42, "Only In Main"));
  const auto data = CreateDataAccess(db);

  ExpectDataError(ErrorOf([&] { data->ReadIbo(41, kMain); }),
                  "IBO 41 was not found in the main table of the in-memory database. Check the "
                  "IBO number, or open the database that holds it.");
  const std::string unknown =
      "Unknown retrieval procedure \"GetIboFromTrashByIboID\"; expected "
      "\"GetIboFromMainByIboID\" or \"GetIboFromArchiveByIboID\".";
  ExpectDataError(ErrorOf([&] { data->ReadIbo(42, "GetIboFromTrashByIboID"); }), unknown);
  ExpectDataError(
      ErrorOf([&] { data->WriteIbo(MakeIbo(43, "Nowhere"), "GetIboFromTrashByIboID"); }), unknown);
  EXPECT_EQ(db->ListIbos().size(), 1u);
}

// The editor's data-access object writes a record back only where it read it from: a save
// after a failed load, or of a record that vanished meanwhile, writes nothing.
TEST(IboStore, DataAccessNeverCreatesARecordItDidNotRead) {
  const auto db = OpenIboStore(":memory:");
  db->Write(IboTable::kMain, MakeIbo(42, "Read First"));
  const auto data = CreateDataAccess(db);

  ExpectDataError(ErrorOf([&] { data->WriteIbo(MakeIbo(0, "Default"), kMain); }),
                  "IBO 0 was not opened from the main table of the in-memory database, so it is "
                  "not saved there: nothing was written. Open an IBO before saving it.");
  data->ReadIbo(42, kMain);
  ExpectDataError(ErrorOf([&] { data->WriteIbo(MakeIbo(42, "Elsewhere"), kArchive); }),
                  "IBO 42 was not opened from the archive table of the in-memory database, so "
                  "it is not saved there: nothing was written. Open an IBO before saving it.");
  EXPECT_EQ(db->ListIbos().size(), 1u);

  EXPECT_NO_THROW(data->WriteIbo(MakeIbo(42, "Saved"), kMain));
  EXPECT_EQ(CompanyOf(db->Read(IboTable::kMain, 42)), "Saved");
}

TEST(IboStore, UpdateRefusesAVanishedRowAndAForeignId) {
  TempFolder folder;
  const std::string path = folder.File("ibos.db");
  const auto db = OpenIboStore(path);
  db->Write(IboTable::kMain, MakeIbo(8, "Eight"));
  const auto wrongId = ErrorOf([&] { db->Update(IboTable::kMain, 8, MakeIbo(9, "Nine")); });
  EXPECT_THAT(wrongId.Description(), HasSubstr("the record carries the id 9"));
  {
    SQLite::Database other(path, SQLite::OPEN_READWRITE);
    other.exec("DELETE FROM ibo_main WHERE id = 8");
  }
  const auto gone = ErrorOf([&] { db->Update(IboTable::kMain, 8, MakeIbo(8, "Eight again")); });
  EXPECT_THAT(gone.Description(), HasSubstr("the IBO is no longer there"));
  EXPECT_TRUE(db->ListIbos().empty());
}

TEST(IboStore, ASaveOverSomeoneElsesIsRefusedAndWritesNothing) {
  TempFolder folder;
  testing::ExpectSecondSaveRefused([path = folder.File("team.db")] { return OpenIboStore(path); });
}

TEST(IboStore, EightEditorsSavingAtOnceLoseNothingSilently) {
  TempFolder folder;
  testing::ExpectEightEditorsLoseNothing(
      [path = folder.File("team.db")] { return OpenIboStore(path); });
}

TEST(IboStore, SavesKeepTheVersionsTheyReplace) {
  TempFolder folder;
  testing::ExpectSavesKeepTheVersionsTheyReplace(
      [path = folder.File("team.db")] { return OpenIboStore(path); });
}

TEST(IboStore, ThePipelineFindsSortsAndPagesItsDeals) {
  TempFolder folder;
  testing::ExpectPipelineFindsSortsAndPages(
      [path = folder.File("team.db")] { return OpenIboStore(path); });
}

TEST(IboStore, TheForecastSumsTheMonthsItShows) {
  TempFolder folder;
  testing::ExpectForecastSumsTheMonthsShown(
      [path = folder.File("team.db")] { return OpenIboStore(path); });
}

TEST(IboStore, TheContactBookIsSearchedByTheDatabase) {
  TempFolder folder;
  testing::ExpectContactSearch([path = folder.File("team.db")] { return OpenIboStore(path); });
}

TEST(IboStore, EightCreatorsAtOnceGetDifferentNumbers) {
  TempFolder folder;
  testing::ExpectEightCreatorsGetUniqueNumbers(
      [path = folder.File("team.db")] { return OpenIboStore(path); });
}

TEST(IboStore, ArchivingNeverOverridesASave) {
  TempFolder folder;
  testing::ExpectArchiveNeverOverridesASave(
      [path = folder.File("team.db")] { return OpenIboStore(path); });
}

TEST(IboStore, CorruptRecordIsRefusedBeforeAnythingIsWritten) {
  const auto db = OpenIboStore(":memory:");
  const pelkedit::Blob original = MakeIbo(5, "Original");
  db->Write(IboTable::kMain, original);

  pelkedit::Blob cut = MakeIbo(5, "Replacement");
  cut.resize(cut.size() / 2);
  for (const pelkedit::Blob& bad :
       {cut, pelkedit::Blob{0xde, 0xad, 0xbe, 0xef}, pelkedit::Blob{}}) {
    const auto error = ErrorOf([&] { db->Write(IboTable::kMain, bad); });
    EXPECT_EQ(error.Source(), kDataErrorSource);
    EXPECT_THAT(error.Description(), HasSubstr("is not a valid IBO, so nothing was written"));
  }
  EXPECT_EQ(db->Read(IboTable::kMain, 5), original);
  EXPECT_EQ(db->ListIbos().size(), 1u);
}

TEST(IboStore, FailedWritesLeaveTheTablesAsTheyWere) {
  TempFolder folder;
  const std::string path = folder.File("ibos.db");
  const auto db = OpenIboStore(path);
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
            "Cannot write IBO 5 to the main table of '" + path +
                "': the database reported an error (refused by rule). Try again; if it keeps "
                "failing, restore the database from a backup.");
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

TEST(IboStore, FactoryCreatesDataAccessOverTheSharedDatabase) {
  const auto db = OpenIboStore(":memory:");
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
