#include <benchmark/benchmark.h>

#include <string>

#include "record/ibo_properties.h"
#include "values/date.h"

namespace {

using pelkedit::Date;
using pelkedit::Variant;

constexpr std::int32_t kTrialCloseSlots = 10;
constexpr std::size_t kNearLimitNoteBytes = 61000;

// An opportunity as users fill them in: answers, three decision makers, a contact, a product
// list, a note of a few paragraphs and four filed trial closes.
std::shared_ptr<pelkedit::IRecord> RealisticRecord() {
  auto record = pelkor::CreateIboProperties();
  record->Set("IboId", 4711);
  record->Set("IboNumber", 1024);
  record->Set("ExpertMode", true);
  record->Set("StartDate", Date::FromCivil(2024, 3, 4));
  record->Set("WwihDate", Date::FromCivil(2024, 9, 30));
  record->Set("ModifiedDate", Date::FromCivil(2024, 6, 12, 14, 3, 27));
  for (const char* scale : {"SEnvLevelNeed", "SEnvSolMatch", "SEnvFunding", "SEnvFamOrg"}) {
    record->Set(scale, 2);
  }
  for (const std::string role : {"Econ", "Tech", "User"}) {
    record->Set("Dm" + role + "Name", "Dr. Johanna M\xC3\xBCller-Westphal (" + role + ")");
    record->Set("Dm" + role + "Known", true);
    record->Set("Dm" + role + "Important", "Return on investment within two budget years");
  }
  record->Set("ContactFirstName", "Johanna");
  record->Set("ContactLastName", "M\xC3\xBCller-Westphal");
  record->Set("ContactCompany", "Nordlicht Logistik GmbH");
  record->Set("ContactAddress", "Am Sandtorkai 41\r\n20457 Hamburg\r\nGermany");
  record->Set("ContactEmail", "j.mueller-westphal@nordlicht-logistik.example");
  record->Set("ContactPhone", "+49 40 555 0199");
  record->Set("Products", std::string(40, 'P') + "\t12\t1450.00\r\n" + std::string(30, 'Q'));
  record->Set("TotalValueUnits", 17400);
  record->Set("TotalValueHundredths", 50);
  record->Set("IboNote", std::string(1800, 'n'));
  record->Set("Competitors", "Acme Freight Systems, Borealis Software");
  for (std::int32_t slot = 0; slot < 4; ++slot) {
    record->SetAt("TrialCloseDate", slot, Date::FromCivil(2024, 5, 1 + slot, 10, 30));
    record->SetAt("CloseBarriers", slot, "Budget freeze until the board meets in Q3");
    record->SetAt("CloseStrategy", slot, "Offer a phased roll-out starting with one depot");
  }
  record->Set("TrialCloseCurrent", 4);
  return record;
}

// Just under the save limit: a long note and every trial-close slot filled.
std::shared_ptr<pelkedit::IRecord> NearLimitRecord() {
  auto record = RealisticRecord();
  record->Set("IboNote", std::string(kNearLimitNoteBytes, 'n'));
  for (std::int32_t slot = 0; slot < kTrialCloseSlots; ++slot) {
    record->SetAt("CloseBarriers", slot, std::string(150, 'b'));
    record->SetAt("CloseStrategy", slot, std::string(150, 's'));
  }
  return record;
}

void Encode(benchmark::State& state, const std::shared_ptr<pelkedit::IRecord>& record) {
  for (auto _ : state) {
    auto blob = record->GetIboData();
    benchmark::DoNotOptimize(blob.data());
  }
  const auto bytes = record->GetIboData().size();
  state.counters["bytes"] = static_cast<double>(bytes);
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * bytes));
}

void Decode(benchmark::State& state, const std::shared_ptr<pelkedit::IRecord>& source) {
  const auto blob = source->GetIboData();
  auto target = pelkor::CreateIboProperties();
  for (auto _ : state) {
    target->SetIboData(blob);
    benchmark::ClobberMemory();
  }
  state.counters["bytes"] = static_cast<double>(blob.size());
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * blob.size()));
}

void BM_EncodeRealistic(benchmark::State& state) {
  Encode(state, RealisticRecord());
}
void BM_DecodeRealistic(benchmark::State& state) {
  Decode(state, RealisticRecord());
}
void BM_EncodeNearLimit(benchmark::State& state) {
  Encode(state, NearLimitRecord());
}
void BM_DecodeNearLimit(benchmark::State& state) {
  Decode(state, NearLimitRecord());
}

BENCHMARK(BM_EncodeRealistic);
BENCHMARK(BM_DecodeRealistic);
BENCHMARK(BM_EncodeNearLimit);
BENCHMARK(BM_DecodeNearLimit);

}  // namespace
