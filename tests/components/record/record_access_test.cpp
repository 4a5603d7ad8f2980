#include <gtest/gtest.h>

#include <set>

#include "contracts/names.h"
#include "record/ibo_properties.h"
#include "record_test_support.h"
#include "values/date.h"

namespace pelkor {
namespace {

using pelkedit::Date;
using pelkedit::Variant;
using pelkedit::VariantType;
using testing::CaptureError;
namespace errnum = pelkedit::errnum;

constexpr std::int32_t kNoDateDay = 1460;

TEST(RecordSchemaTest, NamesAreUniqueAndEveryPropertyAnswersWithItsDeclaredType) {
  auto record = CreateIboProperties();
  std::set<std::string> names;
  for (const PropertyInfo& info : RecordSchema()) {
    EXPECT_TRUE(names.insert(info.name).second) << info.name << " is declared twice";
    const Variant value = info.indexed ? record->GetAt(info.name, 9) : record->Get(info.name);
    EXPECT_EQ(value.Type(), info.type) << info.name;
  }
  for (const char* name : {"DmEconKnown", "DmEconImportantKnown", "CloseStrategy", "IboId",
                           "TotalValueHundredths", "SEnvCompPressure", "ContactEmail"}) {
    EXPECT_TRUE(names.contains(name)) << name;
  }
}

// The editor reaches the record by these names only; each must be one the schema has.
TEST(RecordSchemaTest, EveryPropertyTheEditorNamesIsInTheSchema) {
  std::set<std::string> schema;
  for (const PropertyInfo& info : RecordSchema()) schema.insert(info.name);
  for (const char* name : pelkedit::prop::kAll) EXPECT_EQ(schema.count(name), 1u) << name;
}

TEST(RecordDefaultsTest, NewRecordIsAnOpenUnansweredOpportunityWithoutDates) {
  auto record = CreateIboProperties();
  const Variant noDate = Date::FromDayNumber(kNoDateDay);
  const std::pair<const char*, Variant> expected[] = {{"Status", 1},
                                                      {"WIH", 1},
                                                      {"WWGI", 1},
                                                      {"AdvisorWih", 1},
                                                      {"AdvisorWwgi", 1},
                                                      {"UserPriority", 3},
                                                      {"AdvisorPriority", 3},
                                                      {"SEnvFunding", -1},
                                                      {"SEnvCompPressure", -1},
                                                      {"DmEconInfluence", -1},
                                                      {"DmTechDOP", -1},
                                                      {"DmUserRelationship", -1},
                                                      {"CloseResult", 0},
                                                      {"TrialCloseFact", 0},
                                                      {"IboId", 0},
                                                      {"TotalValueUnits", 0.0},
                                                      {"StartDate", noDate},
                                                      {"ModifiedDate", noDate}};
  for (const auto& [name, value] : expected) EXPECT_EQ(record->Get(name), value) << name;
  EXPECT_EQ(record->GetAt("TrialCloseDate", 4), noDate);
  for (const PropertyInfo& info : RecordSchema()) {
    if (info.indexed) continue;
    const Variant value = record->Get(info.name);
    if (info.type == VariantType::kBoolean) {
      EXPECT_EQ(value, Variant(false)) << info.name;
    } else if (info.type == VariantType::kString) {
      EXPECT_EQ(value, Variant("")) << info.name;
    }
  }
}

TEST(RecordAccessTest, UnknownOrMiscasedNamesAreNotSupportedAndNameTheProperty) {
  auto record = CreateIboProperties();
  for (const char* name : {"NoSuchThing", "status", "DMECONNAME", "Status "}) {
    const auto get = CaptureError([&] { record->Get(name); });
    EXPECT_EQ(get.Number(), errnum::kNotSupported) << name;
    EXPECT_EQ(get.Source(), kRecordSource);
    EXPECT_NE(get.Description().find(name), std::string::npos) << get.Description();
    EXPECT_EQ(CaptureError([&] { record->Set(name, 1); }).Number(), errnum::kNotSupported);
    EXPECT_EQ(CaptureError([&] { record->GetAt(name, 0); }).Number(), errnum::kNotSupported);
  }
}

TEST(RecordAccessTest, IndexedAndPlainPropertiesAreReachedOnlyTheirOwnWay) {
  auto record = CreateIboProperties();
  EXPECT_EQ(CaptureError([&] { record->Get("CloseBarriers"); }).Number(), errnum::kNotSupported);
  EXPECT_EQ(CaptureError([&] { record->Set("TrialCloseDate", Date()); }).Number(),
            errnum::kNotSupported);
  EXPECT_EQ(CaptureError([&] { record->GetAt("Status", 0); }).Number(), errnum::kNotSupported);
  EXPECT_EQ(CaptureError([&] { record->SetAt("IboNote", 0, "x"); }).Number(),
            errnum::kNotSupported);

  record->SetAt("CloseStrategy", 9, "last slot");
  record->SetAt("CloseStrategy", 0, "first slot");
  for (const std::int32_t bad : {-1, 10, 1 << 30}) {
    EXPECT_EQ(CaptureError([&] { record->GetAt("CloseStrategy", bad); }).Number(),
              errnum::kSubscriptOutOfRange);
    EXPECT_EQ(CaptureError([&] { record->SetAt("CloseStrategy", bad, "lost"); }).Number(),
              errnum::kSubscriptOutOfRange);
  }
  EXPECT_EQ(record->GetAt("CloseStrategy", 9), Variant("last slot"));
  EXPECT_EQ(record->GetAt("CloseStrategy", 0), Variant("first slot"));
  EXPECT_EQ(record->GetAt("CloseStrategy", 5), Variant(""));
}

TEST(RecordAccessTest, ValuesOfTheWrongTypeAreRefusedAndChangeNothing) {
  auto record = CreateIboProperties();
  record->Set("SEnvFunding", 2);
  const struct {
    const char* name;
    Variant value;
  } refused[] = {{"SEnvFunding", "2"},      {"SEnvFunding", 2.0},      {"SEnvFunding", Variant()},
                 {"ExpertMode", 1},         {"StartDate", kNoDateDay}, {"ContactEmail", 7},
                 {"TotalValueUnits", true}, {"TotalValueUnits", "12"}, {"DmEconKnown", "True"},
                 {"CloseDate", 45000.5}};
  for (const auto& [name, value] : refused) {
    const Variant before = record->Get(name);
    const auto error = CaptureError([&] { record->Set(name, value); });
    EXPECT_EQ(error.Number(), errnum::kTypeMismatch) << name << " " << value.ToDisplay();
    EXPECT_NE(error.Description().find(name), std::string::npos) << error.Description();
    EXPECT_EQ(record->Get(name), before) << name;
  }
  EXPECT_EQ(CaptureError([&] { record->SetAt("TrialCloseDate", 1, "2024-01-01"); }).Number(),
            errnum::kTypeMismatch);
  EXPECT_EQ(record->Get("SEnvFunding"), Variant(2));

  // A whole number is accepted for a Double and kept as a Double.
  record->Set("TotalValueUnits", 1250);
  EXPECT_EQ(record->Get("TotalValueUnits"), Variant(1250.0));
  EXPECT_EQ(record->Get("TotalValueUnits").Type(), VariantType::kDouble);
}

TEST(RecordAccessTest, RingIndexesAndTextsMustBeValid) {
  auto record = CreateIboProperties();
  record->Set("TrialCloseCurrent", 9);
  for (const char* name : {"TrialCloseFirst", "TrialCloseCurrent"}) {
    for (const std::int32_t bad : {-1, 10}) {
      EXPECT_EQ(CaptureError([&] { record->Set(name, bad); }).Number(),
                errnum::kInvalidPropertyValue)
          << name << " " << bad;
    }
  }
  EXPECT_EQ(record->Get("TrialCloseCurrent"), Variant(9));

  for (const char* bad : {"\xC3", "\xC0\xAF", "\xED\xA0\x80", "\xF4\x90\x80\x80", "ab\x80"}) {
    EXPECT_EQ(CaptureError([&] { record->Set("IboNote", bad); }).Number(),
              errnum::kInvalidPropertyValue);
    EXPECT_EQ(CaptureError([&] { record->SetAt("CloseBarriers", 3, bad); }).Number(),
              errnum::kInvalidPropertyValue);
  }
  EXPECT_EQ(record->Get("IboNote"), Variant(""));
}

TEST(RecordDerivedTest, KnownFlagsFollowTheirTextsAndCannotBeWritten) {
  auto record = CreateIboProperties();
  const std::pair<const char*, const char*> derived[] = {
      {"DmEconImportantKnown", "DmEconImportant"},
      {"DmTechImportantKnown", "DmTechImportant"},
      {"DmUserImportantKnown", "DmUserImportant"},
      {"CompetitorsKnown", "Competitors"}};
  for (const auto& [flag, text] : derived) {
    EXPECT_EQ(record->Get(flag), Variant(false)) << flag;
    record->Set(text, " ");
    EXPECT_EQ(record->Get(flag), Variant(true)) << flag;
    record->Set(text, "");
    EXPECT_EQ(record->Get(flag), Variant(false)) << flag;
  }
  // The name flag is the record's own answer, not derived from the name.
  record->Set("DmTechName", "Ada");
  EXPECT_EQ(record->Get("DmTechKnown"), Variant(false));

  for (const PropertyInfo& info : RecordSchema()) {
    if (!info.readOnly) continue;
    const auto error = CaptureError([&] { record->Set(info.name, true); });
    EXPECT_EQ(error.Number(), errnum::kNotSupported) << info.name;
    EXPECT_NE(error.Description().find("read-only"), std::string::npos) << error.Description();
  }
}

// Files trial closes the way the Close phase does and watches the history count.
TEST(RecordDerivedTest, TrialCloseFactCountsTheEnactedTrialClosesKeptInTheRing) {
  auto record = CreateIboProperties();
  const auto enact = [&] {
    const std::int32_t current = record->Get("TrialCloseCurrent").AsLong();
    std::int32_t first = record->Get("TrialCloseFirst").AsLong();
    const std::int32_t next = (current + 1) % 10;
    if (next == first) first = (first + 1) % 10;
    record->Set("TrialCloseFirst", first);
    record->Set("TrialCloseCurrent", next);
  };
  for (std::int32_t filed = 1; filed <= 9; ++filed) {
    enact();
    EXPECT_EQ(record->Get("TrialCloseFact"), Variant(filed));
  }
  enact();  // the tenth drops the oldest
  EXPECT_EQ(record->Get("TrialCloseFirst"), Variant(1));
  EXPECT_EQ(record->Get("TrialCloseCurrent"), Variant(0));
  EXPECT_EQ(record->Get("TrialCloseFact"), Variant(9));

  record->Set("TrialCloseFirst", 8);
  record->Set("TrialCloseCurrent", 1);
  EXPECT_EQ(record->Get("TrialCloseFact"), Variant(3));
  record->Set("TrialCloseCurrent", 8);
  EXPECT_EQ(record->Get("TrialCloseFact"), Variant(0));
}

TEST(RecordStatusTextTest, NamesEachStatusAndTheRecordsOwnWithMinusOne) {
  auto record = CreateIboProperties();
  const char* const texts[] = {"Unknown", "Open", "Won", "Lost", "Cancelled"};
  for (std::int32_t code = 0; code < 5; ++code) EXPECT_EQ(record->StatusText(code), texts[code]);
  for (const std::int32_t other : {5, -2, 1000}) EXPECT_EQ(record->StatusText(other), "Unknown");

  EXPECT_EQ(record->StatusText(-1), "Open");
  record->Set("Status", 3);
  EXPECT_EQ(record->StatusText(-1), "Lost");
  record->Set("Status", 42);
  EXPECT_EQ(record->StatusText(-1), "Unknown");
}

TEST(RecordRegistrationTest, FactoryCreatesFreshRecordsAndSizeHelpers) {
  pelkedit::ObjectFactory factory;
  RegisterRecordComponents(factory);
  auto first =
      std::dynamic_pointer_cast<pelkedit::IRecord>(factory.Create(pelkedit::kRecordProgId));
  auto second =
      std::dynamic_pointer_cast<pelkedit::IRecord>(factory.Create(pelkedit::kRecordProgId));
  ASSERT_TRUE(first && second);
  first->Set("IboNumber", 77);
  EXPECT_EQ(second->Get("IboNumber"), Variant(0));

  auto size =
      std::dynamic_pointer_cast<pelkedit::ISizeHelper>(factory.Create(pelkedit::kSizeHelperProgId));
  ASSERT_TRUE(size);
  EXPECT_EQ(size->GetPhysicalSize(first->GetIboData()),
            Variant(static_cast<std::int32_t>(first->GetIboData().size())));
}

}  // namespace
}  // namespace pelkor
