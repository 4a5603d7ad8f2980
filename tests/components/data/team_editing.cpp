#include "team_editing.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "data_test_support.h"

namespace pelkor::testing {
namespace {

using ::testing::HasSubstr;

constexpr const char* kMain = pelkedit::kProcMain;
constexpr const char* kChanged =
    "was changed by someone else since you opened it. Your changes are still here; nothing was "
    "written.";

}  // namespace

void ExpectSecondSaveRefused(const Connect& connect) {
  connect()->Write(IboTable::kMain, MakeIbo(1042, "Original"));
  const auto mine = CreateDataAccess(connect());
  const auto theirs = CreateDataAccess(connect());
  mine->ReadIbo(1042, kMain);
  theirs->ReadIbo(1042, kMain);
  theirs->WriteIbo(MakeIbo(1042, "Theirs"), kMain);
  const auto refused = ErrorOf([&] { mine->WriteIbo(MakeIbo(1042, "Mine"), kMain); });
  EXPECT_THAT(refused.Description(), HasSubstr(std::string("IBO 1042 ") + kChanged));
  EXPECT_EQ(CompanyOf(connect()->Read(IboTable::kMain, 1042)), "Theirs");
  theirs->WriteIbo(MakeIbo(1042, "Theirs again"), kMain);
  EXPECT_EQ(CompanyOf(connect()->Read(IboTable::kMain, 1042)), "Theirs again");
  mine->ReadIbo(1042, kMain);
  EXPECT_NO_THROW(mine->WriteIbo(MakeIbo(1042, "Mine, on theirs"), kMain));
  EXPECT_EQ(CompanyOf(connect()->Read(IboTable::kMain, 1042)), "Mine, on theirs");
}

void ExpectEightEditorsLoseNothing(const Connect& connect) {
  connect()->Write(IboTable::kMain, MakeIbo(7, "Start"));
  constexpr int kEditors = 8;
  std::vector<std::shared_ptr<pelkedit::IDataAccess>> editors;
  for (int i = 0; i < kEditors; ++i) {
    editors.push_back(CreateDataAccess(connect()));
    editors.back()->ReadIbo(7, kMain);
  }
  std::mutex mutex;
  std::vector<std::string> landed;
  std::vector<std::string> refusals;
  std::vector<std::thread> saves;
  for (int i = 0; i < kEditors; ++i) {
    saves.emplace_back([&, i] {
      const std::string company = "Editor " + std::to_string(i);
      try {
        editors[static_cast<std::size_t>(i)]->WriteIbo(MakeIbo(7, company), kMain);
        std::lock_guard lock(mutex);
        landed.push_back(company);
      } catch (const pelkedit::PelkError& error) {
        std::lock_guard lock(mutex);
        refusals.push_back(error.Description());
      }
    });
  }
  for (std::thread& save : saves) save.join();
  ASSERT_EQ(landed.size(), 1u);
  ASSERT_EQ(refusals.size(), static_cast<std::size_t>(kEditors - 1));
  for (const std::string& refusal : refusals) EXPECT_THAT(refusal, HasSubstr(kChanged));
  EXPECT_EQ(CompanyOf(connect()->Read(IboTable::kMain, 7)), landed.front());
}

}  // namespace pelkor::testing
