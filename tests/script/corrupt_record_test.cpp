// A record whose stored bytes are damaged: loading it fails through ShowIbo's error path with
// a clear message, and the record shown before stays exactly as it was.
#include <SQLiteCpp/SQLiteCpp.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>

#include "runner.h"
#include "world.h"

namespace pelkscript {
namespace {

TEST(CorruptRecord, LoadingDamagedBytesFailsTheLoadAndKeepsTheShownRecord) {
  const std::filesystem::path dir = MakeTempDir();
  const std::string dbPath = (dir / "damaged.pelkdb").string();
  std::istringstream setUp(
      "ibo 5 0 IboNumber=500 WIH=2\n"
      "ibo 6 0 IboNumber=600\n");
  std::ostringstream ignored;
  WorldOptions options;
  options.dbPath = dbPath;
  ASSERT_EQ(RunScenarios({}, options, setUp, ignored), 0) << ignored.str();
  {
    SQLite::Database raw(dbPath, SQLite::OPEN_READWRITE);
    raw.exec("UPDATE ibo_main SET data = x'5049424F0100FFFFFFFF' WHERE id = 6");
  }

  std::istringstream script(
      "create\n"
      "show 5 0\n"
      "show 6 0\n"
      "expect error.number = 5\n"
      "expect error.source = \"PelkData.Ibo\"\n"
      "expect record.IboNumber = 500\n"
      "expect record.WIH = 2\n"
      "expect control.IboChanged = False\n"
      "expect db.5.0.IboNumber = 500\n");
  std::ostringstream out;
  EXPECT_EQ(RunScenarios({}, options, script, out), 0) << out.str();
  EXPECT_NE(out.str().find("! error 5 \"PelkData.Ibo\""), std::string::npos) << out.str();
  std::filesystem::remove_all(dir);
}

}  // namespace
}  // namespace pelkscript
