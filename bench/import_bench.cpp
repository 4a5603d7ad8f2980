// Reading address-book exports of growing size: the time per megabyte should stay flat (the
// import is linear) and the memory a small multiple of the file, however the file is shaped.
// Each shape is one that once made the import quadratic or made a string per separator:
// long parameters with many folded lines, a value of nothing but separators, and a CSV whose
// every row is skipped.
#include <benchmark/benchmark.h>
#include <sys/resource.h>

#include <string>

#include "data/contact_import.h"

namespace {

constexpr std::size_t kMegabyte = 1 << 20;
constexpr double kKilobytesPerMegabyte = 1024.0;

// The largest resident size of the process so far, in MB.
double PeakResidentMegabytes() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return static_cast<double>(usage.ru_maxrss) / kKilobytesPerMegabyte;
}

std::string FoldedCard(std::size_t size) {
  std::string card = "BEGIN:VCARD\nN;X-NOTE=" + std::string(size / 2, 'p') + ":Lee;Ann\n";
  while (card.size() < size) card += " folded line of a long note\n";
  return card + "END:VCARD\n";
}

std::string SeparatorCard(std::size_t size) {
  return "BEGIN:VCARD\nN:Lee;Ann" + std::string(size, ';') + "\nADR:" + std::string(size, ';') +
         "\nEND:VCARD\n";
}

std::string SkippedCsv(std::size_t size) {
  std::string csv = "First Name,Last Name,Company\n";
  while (csv.size() < size) csv += "only one field\n";
  return csv;
}

template <typename Make, typename Read>
void Import(benchmark::State& state, Make make, Read read) {
  const auto size = static_cast<std::size_t>(state.range(0)) * kMegabyte;
  const std::string text = make(size);
  for (auto _ : state) {
    const pelkor::ContactImport result = read(text);
    benchmark::DoNotOptimize(result.contacts.data());
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) *
                          static_cast<std::int64_t>(text.size()));
  state.counters["peak_rss_MB"] = PeakResidentMegabytes();
}

void BM_VCardLongParametersAndFolds(benchmark::State& state) {
  Import(state, FoldedCard, pelkor::ReadVCards);
}
void BM_VCardOnlySeparators(benchmark::State& state) {
  Import(state, SeparatorCard, pelkor::ReadVCards);
}
void BM_CsvEveryRowSkipped(benchmark::State& state) {
  Import(state, SkippedCsv, pelkor::ReadCsvContacts);
}

// 1, 4 and 16 MB each: a linear import takes four times as long for four times the text.
BENCHMARK(BM_VCardLongParametersAndFolds)->Arg(1)->Arg(4)->Arg(16)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_VCardOnlySeparators)
    ->Arg(1)
    ->Arg(4)
    ->Arg(8)
    ->Arg(16)
    ->Arg(32)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(BM_CsvEveryRowSkipped)->Arg(1)->Arg(4)->Arg(16)->Unit(benchmark::kMillisecond);

}  // namespace
