// The rule engine over the installed rule file: results stay in their ranges for any facts and
// depend on the facts alone; a rule file that cannot be used says which file, which rule and
// what is wrong; the sales cycle is placed as docs/ADVISOR.md describes.
#include "advisor/rule_engine.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>

#include "advisor/advisor_names.h"
#include "advisor/sales_cycle.h"

namespace pelkor {
namespace {

using pelkedit::Date;
using pelkedit::Variant;
using pelkedit::VariantType;
using ::testing::AllOf;
using ::testing::HasSubstr;

const Date kToday = Date::FromCivil(2026, 3, 10);

std::shared_ptr<RuleEngine> Engine() {
  return CreateRuleEngine(DefaultRuleFile(), [] { return kToday; });
}

std::string Installed() {
  std::ifstream in(DefaultRuleFile());
  std::stringstream text;
  text << in.rdbuf();
  return text.str();
}

// The message of loading a copy of the installed rules with `from` replaced by `to`.
std::string ErrorOfEdited(const std::string& from, const std::string& to) {
  std::string text = Installed();
  const auto at = text.find(from);
  if (at == std::string::npos) return "not in the rule file: " + from;
  text.replace(at, from.size(), to);
  const auto path = std::filesystem::temp_directory_path() / "pelkor-test-advisor.rules";
  std::ofstream(path) << text;
  try {
    CreateRuleEngine(path.string(), [] { return kToday; });
  } catch (const RuleFileError& error) {
    return error.what();
  }
  return "";
}

TEST(RuleEngine, AFreshEngineAlreadyAnswersItsPriorities) {
  const auto engine = Engine();
  const std::int32_t user = engine->Get("UserPriority").AsLong();
  EXPECT_GE(user, 1);
  EXPECT_LE(user, 5);
  EXPECT_EQ(engine->Get("SalesCycleLine1").AsString(), "Probe phase");
}

TEST(RuleEngine, AnyFactsGiveResultsInTheirRangesAndTheSameFactsTheSameResults) {
  const auto engine = Engine();
  std::mt19937 random(20261123);
  const auto pick = [&](int low, int high) {
    return std::uniform_int_distribution<int>(low, high)(random);
  };
  for (int round = 0; round < 2000; ++round) {
    for (const AdvisorName& name : AdvisorNames()) {
      if (name.kind != AdvisorNameKind::kFact) continue;
      const std::string fact(name.name);
      if (name.type == VariantType::kBoolean) engine->Set(fact, pick(0, 1) == 1);
      if (name.type == VariantType::kLong) engine->Set(fact, std::int32_t{pick(-1, 5)});
      if (name.type == VariantType::kDate) {
        engine->Set(fact, Date::FromDayNumber(kToday.DayNumber() + pick(-400, 400)));
      }
    }
    engine->Evaluate();
    std::map<std::string, Variant> first;
    for (const AdvisorName& name : AdvisorNames()) {
      if (name.kind == AdvisorNameKind::kResult)
        first[std::string(name.name)] = engine->Get(std::string(name.name));
    }
    for (const char* rating : {"AdvisorWih", "AdvisorWwgi"}) {
      EXPECT_GE(first[rating].AsLong(), 0);
      EXPECT_LE(first[rating].AsLong(), 2);
    }
    for (const char* priority : {"UserPriority", "AdvisorPriority"}) {
      EXPECT_GE(first[priority].AsLong(), 1);
      EXPECT_LE(first[priority].AsLong(), 5);
    }
    EXPECT_GE(first["AdvisorExtraResult"].AsLong(), 0);
    EXPECT_LE(first["AdvisorExtraResult"].AsLong(), 100);
    EXPECT_GE(first["SalesCyclePosition"].AsDouble(), 0.0);
    EXPECT_FALSE(first["ExpertAdviceTitle"].AsString().empty());
    engine->Evaluate();
    for (const auto& [name, value] : first) EXPECT_EQ(engine->Get(name), value) << name;
  }
}

TEST(RuleEngine, ABrokenRuleFileNamesTheFileTheRuleAndTheProblem) {
  EXPECT_THAT(ErrorOfEdited("when = ExpertMode && open && SEnvFunding == 1",
                            "when = ExpertMode && open && SEnvFundng == 1"),
              AllOf(HasSubstr("pelkor-test-advisor.rules"),
                    HasSubstr("rule \"alert_no_funding\" (line 90)"), HasSubstr("SEnvFundng")));
  EXPECT_THAT(ErrorOfEdited("kind = alert\nrank = 90", "kind = warning\nrank = 90"),
              AllOf(HasSubstr("rule \"alert_no_funding\" (line 88)"),
                    HasSubstr("kind is alert, action or basic")));
  EXPECT_THAT(ErrorOfEdited("high = 4 2 1", "high = 4 2 7"),
              AllOf(HasSubstr("priority \"high\""), HasSubstr("from 1 to 5")));
  EXPECT_THAT(ErrorOfEdited("lost = Lost.", "lots = Lost."),
              HasSubstr("verdict \"lost\": it is missing"));
  EXPECT_THAT(ErrorOfEdited("score = won", "scored = won"),
              HasSubstr("the rating \"score\" is missing"));
  EXPECT_THAT(
      ErrorOfEdited("[rule trial_close]\nkind = action",
                    "[rule trial_close]\nkind = action\ncolour = red"),
      AllOf(HasSubstr("rule \"trial_close\" (line 256)"), HasSubstr("unknown key \"colour\"")));
  EXPECT_THAT(ErrorOfEdited("text = Make a trial close",
                            "text = Make a trial close" + std::string(200, '!')),
              HasSubstr("line 258: it is longer than 199 characters"));
  EXPECT_THAT(ErrorOfEdited("[texts]", "[textz]"),
              AllOf(HasSubstr("section [textz] (line"), HasSubstr("unknown section")));
}

// A rating far beyond its range is the top of the range, not whatever an integer overflow
// leaves of it.
TEST(RuleEngine, AHugeRatingIsTheHighest) {
  std::string text = Installed();
  const std::string from = "advisor_wih = won";
  text.replace(text.find(from), from.size(), "advisor_wih = 1e30 + 0 * won");
  const std::string score = "score = won";
  text.replace(text.find(score), score.size(), "score = 1e30 + 0 * won");
  const auto path = std::filesystem::temp_directory_path() / "pelkor-test-huge.rules";
  std::ofstream(path) << text;
  const auto engine = CreateRuleEngine(path.string(), [] { return kToday; });
  EXPECT_EQ(engine->Get("AdvisorWih").AsLong(), 2);
  EXPECT_EQ(engine->Get("AdvisorExtraResult").AsLong(), 100);
}

TEST(SalesCycle, ThePlaceFollowsTheDatesAndTheStatus) {
  const Date start = Date::FromCivil(2026, 1, 1);
  const Date expected = Date::FromCivil(2026, 4, 11);  // 100 days later
  const Date noDate = Date::FromCivil(1904, 1, 1);
  const CyclePlace early = PlaceInCycle(pelkedit::eEditStatusOpen, start, expected, noDate,
                                        Date::FromCivil(2026, 1, 31));
  EXPECT_DOUBLE_EQ(early.position, 0.3);
  EXPECT_EQ(early.line1, "Probe phase");
  EXPECT_EQ(early.line2, "Day 30 of 100, 70 days to go");
  EXPECT_EQ(
      PlaceInCycle(pelkedit::eEditStatusOpen, start, expected, noDate, Date::FromCivil(2026, 2, 5))
          .line1,
      "Prove phase");
  const CyclePlace late = PlaceInCycle(pelkedit::eEditStatusOpen, start, expected, noDate,
                                       Date::FromCivil(2026, 4, 21));
  EXPECT_DOUBLE_EQ(late.position, 1.1);
  EXPECT_TRUE(late.late);
  EXPECT_EQ(late.line2, "10 days past the expected date");
  const CyclePlace undated = PlaceInCycle(pelkedit::eEditStatusOpen, start, noDate, noDate, kToday);
  EXPECT_EQ(undated.position, 0);
  EXPECT_FALSE(undated.late);
  const CyclePlace lost = PlaceInCycle(pelkedit::eEditStatusLost, start, expected,
                                       Date::FromCivil(2026, 2, 20), kToday);
  EXPECT_DOUBLE_EQ(lost.position, 0.5);
  EXPECT_EQ(lost.line2, "Closed 20 Feb 2026, after 50 days");
  EXPECT_EQ(
      PlaceInCycle(pelkedit::eEditStatusWon, start, expected, Date::FromCivil(2026, 6, 1), kToday)
          .position,
      1);
  EXPECT_EQ(PlaceInCycle(pelkedit::eEditStatusOpen, start, expected, noDate,
                         Date::FromCivil(2025, 12, 29))
                .line2,
            "Starts in 3 days");
}

}  // namespace
}  // namespace pelkor
