#include "data/demo_seed.h"

#include <map>
#include <set>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "data_test_support.h"
#include "record/ibo_properties.h"
#include "values/date.h"

namespace pelkor {
namespace {

using pelkedit::Date;
using pelkedit::IRecord;

constexpr std::int32_t kSlots = 10;

std::shared_ptr<IRecord> Load(IIboStore& db, const IboSummary& ibo) {
  const auto record = CreateIboProperties();
  record->SetIboData(db.Read(ibo.archived ? IboTable::kArchive : IboTable::kMain, ibo.id));
  return record;
}

// What a loaded record must hold for the editor to show it: dates the date widgets accept,
// codes inside their answer scales, and a trial-close ring the history walk can follow.
void ExpectShowable(IRecord& r, std::int32_t id) {
  SCOPED_TRACE("IBO " + std::to_string(id));
  const Date earliest = Date::FromCivil(1904, 1, 2);
  const Date latest = Date::FromCivil(2031, 12, 31);
  const Date noDate = Date::FromCivil(1904, 1, 1);
  const Date start = r.Get("StartDate").AsDate();
  EXPECT_GE(start, earliest);
  EXPECT_LE(start, r.Get("WwihDate").AsDate());
  EXPECT_LE(r.Get("WwihDate").AsDate(), latest);
  const Date closed = r.Get("CloseDate").AsDate();
  EXPECT_EQ(closed == noDate, r.Get("Status").AsLong() == 1);
  EXPECT_TRUE(closed == noDate || (closed >= start && closed <= latest));

  for (const char* answer : {"WIH", "WWGI"}) {
    EXPECT_THAT(r.Get(answer).AsLong(), ::testing::AllOf(::testing::Ge(0), ::testing::Le(2)));
  }
  for (const char* priority : {"UserPriority", "AdvisorPriority"}) {
    EXPECT_THAT(r.Get(priority).AsLong(), ::testing::AllOf(::testing::Ge(1), ::testing::Le(5)));
  }
  const std::map<std::string, std::int32_t> scaleSizes = {
      {"SEnvLevelNeed", 4},      {"SEnvSolMatch", 4},       {"SEnvCustomerNeed", 4},
      {"SEnvBudgetMatch", 4},    {"SEnvFunding", 4},        {"SEnvFamOrg", 3},
      {"SEnvCompPressure", 4},   {"DmEconInfluence", 4},    {"DmTechInfluence", 4},
      {"DmUserInfluence", 4},    {"DmEconRelationship", 3}, {"DmTechRelationship", 3},
      {"DmUserRelationship", 3}, {"DmEconDOP", 6},          {"DmTechDOP", 6},
      {"DmUserDOP", 6}};
  for (const auto& [name, size] : scaleSizes) {
    EXPECT_THAT(r.Get(name).AsLong(), ::testing::AllOf(::testing::Ge(-1), ::testing::Lt(size)))
        << name;
  }
  for (const char* role : {"Econ", "Tech", "User"}) {
    const std::string prefix = std::string("Dm") + role;
    EXPECT_EQ(r.Get(prefix + "Known").AsBool(), !r.Get(prefix + "Name").AsString().empty());
  }

  // Enacted trial closes, oldest first, carry their date and what was tried.
  const std::int32_t current = r.Get("TrialCloseCurrent").AsLong();
  Date previous = start;
  for (std::int32_t slot = r.Get("TrialCloseFirst").AsLong(); slot != current;
       slot = (slot + 1) % kSlots) {
    const Date enacted = r.GetAt("TrialCloseDate", slot).AsDate();
    EXPECT_GE(enacted, previous);
    EXPECT_LE(enacted, latest);
    EXPECT_FALSE(r.GetAt("CloseBarriers", slot).AsString().empty());
    EXPECT_FALSE(r.GetAt("CloseStrategy", slot).AsString().empty());
    previous = enacted;
  }
}

TEST(DemoSeed, SeedsAVariedDemonstrationOnceOnly) {
  const auto db = OpenIboStore(":memory:");
  const int added = SeedDemoData(*db);
  const auto list = db->ListIbos();
  EXPECT_EQ(added, static_cast<int>(list.size()));
  EXPECT_GE(list.size(), 8u);

  std::set<std::int32_t> statuses;
  std::set<bool> modes;
  int archived = 0;
  int unknownDecisionMakers = 0;
  int wrappedRings = 0;
  for (const IboSummary& ibo : list) {
    const auto record = Load(*db, ibo);
    ExpectShowable(*record, ibo.id);
    EXPECT_EQ(ibo.company, record->Get("ContactCompany").AsString());
    EXPECT_FALSE(ibo.company.empty());
    statuses.insert(ibo.status);
    modes.insert(ibo.expert);
    archived += ibo.archived ? 1 : 0;
    for (const char* known : {"DmEconKnown", "DmTechKnown", "DmUserKnown"}) {
      unknownDecisionMakers += record->Get(known).AsBool() ? 0 : 1;
    }
    wrappedRings +=
        record->Get("TrialCloseFirst").AsLong() > record->Get("TrialCloseCurrent").AsLong();
  }
  EXPECT_EQ(statuses, (std::set<std::int32_t>{1, 2, 3, 4}));
  EXPECT_EQ(modes.size(), 2u);
  EXPECT_EQ(archived, 1);
  EXPECT_GT(unknownDecisionMakers, 0);
  EXPECT_GT(wrappedRings, 0);

  // The showcase opportunity has a real history and a long note in paragraphs.
  const auto showcase = Load(*db, list.front());
  EXPECT_GE(showcase->Get("TrialCloseFact").AsLong(), 2);
  const std::string note = showcase->Get("IboNote").AsString();
  EXPECT_GT(note.size(), 500u);
  EXPECT_THAT(note, ::testing::HasSubstr("\r\n\r\n"));

  EXPECT_EQ(SeedDemoData(*db), 0);
  EXPECT_EQ(db->ListIbos().size(), list.size());
}

TEST(DemoSeed, ReseedingKeepsTheUsersChanges) {
  const auto db = OpenIboStore(":memory:");
  SeedDemoData(*db);
  const IboSummary first = db->ListIbos().front();
  const auto record = Load(*db, first);
  record->Set("ContactCompany", "Renamed By The User");
  db->Write(IboTable::kMain, record->GetIboData());

  EXPECT_EQ(SeedDemoData(*db), 0);
  EXPECT_EQ(testing::CompanyOf(db->Read(IboTable::kMain, first.id)), "Renamed By The User");
}

}  // namespace
}  // namespace pelkor
