// The rule engine's costs: creating an engine (the rule file read and every expression compiled
// and checked, or the compiled file shared), which each record load pays, and one evaluation of
// a fully answered expert record, which each answer pays.
#include <benchmark/benchmark.h>

#include "advisor/rule_engine.h"

namespace {

const pelkedit::Date kToday = pelkedit::Date::FromCivil(2026, 3, 10);

void BM_CreateRuleEngine(benchmark::State& state) {
  const std::string path = pelkor::DefaultRuleFile();
  for (auto _ : state) {
    benchmark::DoNotOptimize(pelkor::CreateRuleEngine(path, [] { return kToday; }));
  }
}
BENCHMARK(BM_CreateRuleEngine)->Unit(benchmark::kMicrosecond);

// The editor creates the next record's engine while the last one still exists: the compiled
// rule file is shared, and only the file's date is checked.
void BM_CreateRuleEngineBesideAnother(benchmark::State& state) {
  const std::string path = pelkor::DefaultRuleFile();
  const auto first = pelkor::CreateRuleEngine(path, [] { return kToday; });
  for (auto _ : state) {
    benchmark::DoNotOptimize(pelkor::CreateRuleEngine(path, [] { return kToday; }));
  }
}
BENCHMARK(BM_CreateRuleEngineBesideAnother)->Unit(benchmark::kMicrosecond);

void BM_EvaluateExpertRecord(benchmark::State& state) {
  const auto engine = pelkor::CreateRuleEngine(pelkor::DefaultRuleFile(), [] { return kToday; });
  engine->Set("ExpertMode", true);
  engine->Set("StartDate", pelkedit::Date::FromCivil(2026, 1, 1));
  engine->Set("WwihDate", pelkedit::Date::FromCivil(2026, 4, 30));
  for (const char* fact : {"SEnvLevelNeed", "SEnvSolMatch", "SEnvCustomerNeed", "SEnvBudgetMatch",
                           "SEnvFunding", "SEnvCompPressure"}) {
    engine->Set(fact, std::int32_t{2});
  }
  for (const char* person : {"Econ", "Tech", "User"}) {
    const std::string dm = std::string("SEnvDm") + person;
    engine->Set(dm + "NameKnown", true);
    engine->Set(dm + "ImportantKnown", true);
    engine->Set(dm + "Influence", std::int32_t{2});
    engine->Set(dm + "Relationship", std::int32_t{1});
    engine->Set(dm + "DOP", std::int32_t{3});
  }
  for (auto _ : state) engine->Evaluate();
}
BENCHMARK(BM_EvaluateExpertRecord)->Unit(benchmark::kMicrosecond);

}  // namespace
