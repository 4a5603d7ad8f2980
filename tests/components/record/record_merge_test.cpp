#include <gtest/gtest.h>

#include "contracts/names.h"
#include "record/ibo_properties.h"
#include "record/record_merge.h"

namespace {

using pelkor::CreateIboProperties;
using pelkor::MergeRecords;
namespace prop = pelkedit::prop;

TEST(RecordMerge, TakesEachSidesOwnChangesAndListsWhatBothChanged) {
  const auto base = CreateIboProperties();
  base->Set(prop::ContactCompany, std::string("Harbor"));
  base->Set(prop::WIH, 1);
  base->Set(prop::Products, std::string("old list"));
  base->Set(prop::TotalValueUnits, 10.0);
  const auto mine = CreateIboProperties();
  mine->SetIboData(base->GetIboData());
  const auto theirs = CreateIboProperties();
  theirs->SetIboData(base->GetIboData());

  // Mine: the company, the list (with its total), a barrier, and the WIH.
  mine->Set(prop::ContactCompany, std::string("Harbor West"));
  mine->Set(prop::Products, std::string("my list"));
  mine->Set(prop::TotalValueUnits, 20.0);
  mine->SetAt(prop::CloseBarriers, 4, std::string("No budget"));
  mine->Set(prop::WIH, 2);
  // Theirs: the note, the same barrier the same way, and the WIH otherwise.
  theirs->Set(prop::IboNote, std::string("Called Monday"));
  theirs->SetAt(prop::CloseBarriers, 4, std::string("No budget"));
  theirs->Set(prop::WIH, 0);

  auto merged = MergeRecords(*base, *mine, *theirs);
  pelkedit::IRecord& record = *merged.record;
  EXPECT_EQ(record.Get(prop::ContactCompany).AsString(), "Harbor West");
  EXPECT_EQ(record.Get(prop::IboNote).AsString(), "Called Monday");
  EXPECT_EQ(record.Get(prop::Products).AsString(), "my list");
  EXPECT_EQ(record.Get(prop::TotalValueUnits).AsDouble(), 20.0);
  EXPECT_EQ(record.GetAt(prop::CloseBarriers, 4).AsString(), "No budget");
  ASSERT_EQ(merged.conflicts.size(), 1u);
  EXPECT_EQ(merged.conflicts[0].property, prop::WIH);
  // Until the user picks, the stored answer stands.
  EXPECT_EQ(record.Get(prop::WIH).AsLong(), 0);
  pelkor::TakeMine(record, *mine, merged.conflicts[0]);
  EXPECT_EQ(record.Get(prop::WIH).AsLong(), 2);
}

TEST(RecordMerge, BothChangingTheProductListIsOneConflictWhoseTotalFollows) {
  const auto base = CreateIboProperties();
  const auto mine = CreateIboProperties();
  const auto theirs = CreateIboProperties();
  mine->Set(prop::Products, std::string("mine"));
  mine->Set(prop::TotalValueUnits, 5.0);
  theirs->Set(prop::Products, std::string("theirs"));
  theirs->Set(prop::TotalValueUnits, 7.0);
  auto merged = MergeRecords(*base, *mine, *theirs);
  ASSERT_EQ(merged.conflicts.size(), 1u);
  EXPECT_EQ(merged.conflicts[0].property, prop::Products);
  EXPECT_EQ(merged.record->Get(prop::TotalValueUnits).AsDouble(), 7.0);
  pelkor::TakeMine(*merged.record, *mine, merged.conflicts[0]);
  EXPECT_EQ(merged.record->Get(prop::TotalValueUnits).AsDouble(), 5.0);
}

}  // namespace
