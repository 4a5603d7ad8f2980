#include "advisor/scripted_engine.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "advisor/advisor_names.h"
#include "contracts/names.h"
#include "values/error.h"

namespace pelkor {
namespace {

using pelkedit::Date;
using pelkedit::PelkError;
using pelkedit::Variant;
using ::testing::HasSubstr;

// The number and description of the error a call raises.
template <typename Call>
PelkError ErrorOf(Call call) {
  try {
    call();
  } catch (const PelkError& e) {
    return e;
  }
  ADD_FAILURE() << "expected an error";
  return PelkError(0, "", "");
}

const std::vector<std::string> kLongSEnvFacts = {"SEnvLevelNeed",
                                                 "SEnvSolMatch",
                                                 "SEnvCustomerNeed",
                                                 "SEnvBudgetMatch",
                                                 "SEnvFunding",
                                                 "SEnvFamOrg",
                                                 "SEnvCompPressure",
                                                 "SEnvDmEconInfluence",
                                                 "SEnvDmTechInfluence",
                                                 "SEnvDmUserInfluence",
                                                 "SEnvDmEconDOP",
                                                 "SEnvDmTechDOP",
                                                 "SEnvDmUserDOP",
                                                 "SEnvDmEconRelationship",
                                                 "SEnvDmTechRelationship",
                                                 "SEnvDmUserRelationship"};
const std::vector<std::string> kBooleanSEnvFacts = {
    "SEnvCompetitorsKnown",    "SEnvDmEconNameKnown",      "SEnvDmTechNameKnown",
    "SEnvDmUserNameKnown",     "SEnvDmEconImportantKnown", "SEnvDmTechImportantKnown",
    "SEnvDmUserImportantKnown"};
const std::vector<std::string> kTextResults = {
    "SalesCycleLine1",   "SalesCycleLine2",  "ExpertAdviceHeading", "ExpertAdviceTitle",
    "ExpertAdviceAlert", "ExpertAdviceBody", "BasicAdviceBody",     "BasicAdviceTitle"};

// The editor reaches the engine by these names only; each must be one the engine knows.
TEST(AdvisorNames, EveryFactTheEditorNamesIsKnownToTheEngine) {
  for (const char* name : pelkedit::fact::kAll) {
    EXPECT_TRUE(FindAdvisorName(name).has_value()) << name;
  }
}

TEST(ScriptedEngine, FreshEngineAnswersInRangeBeforeAnyFactOrEvaluation) {
  auto engine = CreateScriptedEngine(std::make_shared<ScriptedResults>());
  for (const char* priority : {"UserPriority", "AdvisorPriority"}) {
    const auto value = engine->Get(priority).AsLong();
    EXPECT_GE(value, 1) << priority;
    EXPECT_LE(value, 5) << priority;
  }
  for (const char* assessment : {"AdvisorWih", "AdvisorWwgi"}) {
    const auto value = engine->Get(assessment).AsLong();
    EXPECT_GE(value, 0) << assessment;
    EXPECT_LE(value, 2) << assessment;
  }
  EXPECT_EQ(engine->Get("AdvisorExtraResult"), Variant(0));
  EXPECT_EQ(engine->Get("SalesCyclePosition"), Variant(0.0));
  for (const auto& text : kTextResults) EXPECT_EQ(engine->Get(text), Variant(""));

  EXPECT_EQ(engine->Get("ExpertMode"), Variant(false));
  EXPECT_EQ(engine->Get("Status"), Variant(1));
  EXPECT_EQ(engine->Get("TrialCloseFact"), Variant(-1));
  EXPECT_EQ(engine->Get("SEnvFunding"), Variant(-1));
  EXPECT_EQ(engine->Get("SEnvDmUserNameKnown"), Variant(false));
  for (const char* date : {"StartDate", "WwihDate", "CloseDate"}) {
    EXPECT_EQ(engine->Get(date), Variant(Date::FromCivil(1904, 1, 1))) << date;
  }
  EXPECT_EQ(static_cast<ScriptedEngine&>(*engine).EvaluationCount(), 0);
}

TEST(ScriptedEngine, AssessmentsFollowTheAnswersOnlyAfterEvaluate) {
  auto engine = CreateScriptedEngine(std::make_shared<ScriptedResults>());
  engine->Set("WIH", 2);
  engine->Set("WWGI", 0);
  EXPECT_EQ(engine->Get("AdvisorWih"), Variant(1));
  EXPECT_EQ(engine->Get("AdvisorWwgi"), Variant(1));

  engine->Evaluate();
  EXPECT_EQ(engine->Get("AdvisorWih"), Variant(2));
  EXPECT_EQ(engine->Get("AdvisorWwgi"), Variant(0));

  engine->Set("WIH", 0);
  EXPECT_EQ(engine->Get("AdvisorWih"), Variant(2));
  engine->Evaluate();
  EXPECT_EQ(engine->Get("AdvisorWih"), Variant(0));
  EXPECT_EQ(static_cast<ScriptedEngine&>(*engine).EvaluationCount(), 2);
}

TEST(ScriptedEngine, ScriptedResultsReachEveryEngineOfTheWorldAtOnce) {
  auto results = std::make_shared<ScriptedResults>();
  pelkedit::ObjectFactory factory;
  RegisterScriptedAdvisor(factory, results);
  auto existing = std::dynamic_pointer_cast<pelkedit::IAdvisor>(
      factory.Create(pelkedit::kAdvisorProgIdAtCreate));
  ASSERT_TRUE(existing);

  results->Set("UserPriority", 5);
  results->Set("AdvisorWih", 0);
  results->Set("SalesCyclePosition", 2);  // a whole number is taken for the Double
  results->Set("ExpertAdviceBody", "* first\r\n* second");

  auto later =
      std::dynamic_pointer_cast<pelkedit::IAdvisor>(factory.Create(pelkedit::kAdvisorProgId));
  ASSERT_TRUE(later);
  for (const auto& engine : {existing, later}) {
    engine->Set("WIH", 2);
    engine->Evaluate();
    EXPECT_EQ(engine->Get("UserPriority"), Variant(5));
    EXPECT_EQ(engine->Get("AdvisorWih"), Variant(0));
    EXPECT_EQ(engine->Get("SalesCyclePosition"), Variant(2.0));
    EXPECT_EQ(engine->Get("ExpertAdviceBody"), Variant("* first\r\n* second"));
    EXPECT_EQ(engine->Get("AdvisorPriority"), Variant(3));
  }

  results->Clear("AdvisorWih");
  EXPECT_EQ(existing->Get("AdvisorWih"), Variant(2));
  // Engines share the results, never the facts.
  later->Set("SEnvFunding", 4);
  EXPECT_EQ(existing->Get("SEnvFunding"), Variant(-1));
}

TEST(ScriptedEngine, EveryFactReadsBackByNameAsSet) {
  auto engine = CreateScriptedEngine(nullptr);
  std::int32_t code = 0;
  for (const auto& name : kLongSEnvFacts) {
    engine->Set(name, code);
    ++code;
  }
  for (const auto& name : kBooleanSEnvFacts) engine->Set(name, true);
  const Date start = Date::FromCivil(2023, 11, 30);
  engine->Set("StartDate", start);
  engine->Set("ExpertMode", true);
  engine->Set("TrialCloseFact", 7);

  code = 0;
  for (const auto& name : kLongSEnvFacts) {
    EXPECT_EQ(engine->Get(name), Variant(code)) << name;
    ++code;
  }
  for (const auto& name : kBooleanSEnvFacts) EXPECT_EQ(engine->Get(name), Variant(true)) << name;
  EXPECT_EQ(engine->Get("StartDate"), Variant(start));
  EXPECT_EQ(engine->Get("ExpertMode"), Variant(true));
  EXPECT_EQ(engine->Get("TrialCloseFact"), Variant(7));
}

TEST(ScriptedEngine, BadNamesAndTypesAreRefusedAndLoseNothing) {
  auto results = std::make_shared<ScriptedResults>();
  auto engine = CreateScriptedEngine(results);
  engine->Set("SEnvFunding", 2);

  const auto unknown = ErrorOf([&] { engine->Get("SEnvFundings"); });
  EXPECT_EQ(unknown.Number(), 438);
  EXPECT_THAT(unknown.Description(), HasSubstr("SEnvFundings"));
  EXPECT_EQ(ErrorOf([&] { engine->Set("Nope", 1); }).Number(), 438);
  EXPECT_EQ(ErrorOf([&] { engine->Set("AdvisorWih", 1); }).Number(), 438);
  EXPECT_EQ(ErrorOf([&] { engine->Set("sEnvFunding", 1); }).Number(), 438);

  const auto mismatch = ErrorOf([&] { engine->Set("SEnvFunding", "3"); });
  EXPECT_EQ(mismatch.Number(), 13);
  EXPECT_THAT(mismatch.Description(), HasSubstr("SEnvFunding"));
  EXPECT_EQ(ErrorOf([&] { engine->Set("SEnvCompetitorsKnown", 1); }).Number(), 13);
  EXPECT_EQ(ErrorOf([&] { engine->Set("WwihDate", 40000); }).Number(), 13);
  EXPECT_EQ(ErrorOf([&] { engine->Set("WIH", Variant()); }).Number(), 13);
  EXPECT_EQ(engine->Get("SEnvFunding"), Variant(2));

  EXPECT_EQ(ErrorOf([&] { results->Set("Bogus", 1); }).Number(), 438);
  EXPECT_EQ(ErrorOf([&] { results->Set("WIH", 1); }).Number(), 438);
  EXPECT_EQ(ErrorOf([&] { results->Set("UserPriority", 2.5); }).Number(), 13);
  EXPECT_EQ(ErrorOf([&] { results->Set("SalesCycleLine1", 3); }).Number(), 13);
  EXPECT_TRUE(results->Values().empty());
}

}  // namespace
}  // namespace pelkor
