// Loading and saving one IBO the way the editor does (through the data-access object, with the
// row version check), and opening the database, on a SQLite file and on a PostgreSQL server
// holding 1,000 and 100,000 IBOs and as many contacts: none of them may grow with the database. The
// server benchmarks run when PELKOR_BENCH_PG names an empty database to use
// (scripts/bench-stores.sh starts a local throwaway server for them).
#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "contracts/names.h"
#include "data/demo_seed.h"
#include "data/ibo_store.h"
#include "record/ibo_properties.h"

namespace {

constexpr std::int32_t kExpertIbo = 1001;  // the demo's fullest record
constexpr const char* kServerVariable = "PELKOR_BENCH_PG";

enum class Backend { kSqliteFile, kServer };

constexpr std::int32_t kFirstFillerId = 100000;
constexpr std::int64_t kPage = 50;

// A file database in the temporary folder per size, made anew by the first benchmark that uses
// it in this run.
std::string FileFor(std::int64_t size) {
  const auto path = std::filesystem::temp_directory_path() /
                    ("pelkor_store_bench_" + std::to_string(size) + ".db");
  static std::set<std::string> fresh;
  if (fresh.insert(path.string()).second) {
    for (const char* suffix : {"", "-wal", "-shm"}) {
      std::filesystem::remove(path.string() + suffix);
    }
  }
  return path.string();
}

// The name of a backend's database for the benchmark's size: a file, or a server database named
// after the one in the environment ("" when there is none, and the benchmark is skipped).
std::string DatabaseName(benchmark::State& state, Backend backend) {
  if (backend == Backend::kSqliteFile) return FileFor(state.range(0));
  // One server database per size: PELKOR_BENCH_PG's database name with "_SIZE" added.
  const char* uri = std::getenv(kServerVariable);
  if (uri != nullptr) {
    std::string name = uri;
    name.insert(std::min(name.find('?'), name.size()), "_" + std::to_string(state.range(0)));
    return name;
  }
  state.SkipWithError("set PELKOR_BENCH_PG to a server database (see scripts/bench-stores.sh)");
  return {};
}

// The backend's database with the demo opportunities and `size` IBOs and contacts in all,
// filled once per database in a run (sizes grow from one benchmark to the next); null when the
// benchmark is skipped.
std::shared_ptr<pelkor::IIboStore> Seeded(const std::string& name, std::int64_t size) {
  if (name.empty()) return nullptr;
  auto store = pelkor::OpenIboStore(name);
  static std::map<std::string, std::int64_t> filled;
  std::int64_t& have = filled[name];
  if (have >= size) return store;
  pelkor::SeedDemoData(*store);
  constexpr std::int64_t kBatch = 5000;
  // Companies and people as varied as a real book: words mixed, accents among them.
  constexpr std::array kWords = {"Acme",   "Globex",   "Initech", "Umbrella", "Stark",   "Wayne",
                                 "Wonka",  "Hooli",    "Tyrell",  "Müller",   "Soylent", "Aperture",
                                 "Oscorp", "Vandelay", "Piper",   "Ærø"};
  constexpr std::array kFirst = {"Anna", "Bert", "Carl", "Dora", "Emil", "Jürgen", "Zoë"};
  constexpr std::array kLast = {"Müller", "Smith", "Jones", "Brown", "Öztürk", "Nakamura"};
  const auto pick = [](const auto& words, std::int64_t i) {
    return std::string(words[static_cast<std::size_t>(i) % words.size()]);
  };
  const auto record = pelkor::CreateIboProperties();
  for (std::int64_t from = have; from < size; from += kBatch) {
    std::vector<pelkor::IboEntry> ibos;
    std::vector<pelkor::Contact> contacts;
    for (std::int64_t i = from; i < std::min(size, from + kBatch); ++i) {
      const auto id = static_cast<std::int32_t>(kFirstFillerId + i);
      record->Set("IboId", id);
      record->Set("IboNumber", id);
      const std::string company =
          pick(kWords, i) + " " + pick(kWords, i / 16 + 3) + " " + std::to_string(i % 977);
      record->Set("ContactCompany", company);
      record->Set("ContactFirstName", pick(kFirst, i / 3));
      record->Set("ContactLastName", pick(kLast, i / 5));
      record->Set("Status", static_cast<std::int32_t>(1 + i % 4));
      record->Set("UserPriority", static_cast<std::int32_t>(1 + i % 5));
      ibos.push_back({pelkor::IboTable::kMain, record->GetIboData()});
      contacts.push_back(
          {0, pick(kFirst, i) + std::to_string(i), pick(kLast, i / 7), company, "", "", ""});
    }
    store->AddMissing(ibos);
    store->AddContacts(contacts);
  }
  // As a copy into the database ends: what is measured is a settled database.
  store->SettleAfterBulkLoad();
  have = size;
  return store;
}

void BM_LoadIbo(benchmark::State& state, Backend backend) {
  const auto store = Seeded(DatabaseName(state, backend), state.range(0));
  if (!store) return;
  const auto data = pelkor::CreateDataAccess(store);
  for (auto _ : state) {
    benchmark::DoNotOptimize(data->ReadIbo(kExpertIbo, pelkedit::kProcMain));
  }
}

// Each save is checked against the version read before it and gives the row a new one.
void BM_SaveIbo(benchmark::State& state, Backend backend) {
  const auto store = Seeded(DatabaseName(state, backend), state.range(0));
  if (!store) return;
  const auto data = pelkor::CreateDataAccess(store);
  const pelkedit::Blob record = data->ReadIbo(kExpertIbo, pelkedit::kProcMain);
  for (auto _ : state) data->WriteIbo(record, pelkedit::kProcMain);
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * record.size()));
}

// Opening the database as the editor does at its first load: connection, schema check and
// whether it may be written.
void BM_OpenStore(benchmark::State& state, Backend backend) {
  const std::string name = DatabaseName(state, backend);
  if (!Seeded(name, state.range(0))) return;
  for (auto _ : state) benchmark::DoNotOptimize(pelkor::OpenIboStore(name));
}

// The pipeline's first page, as the desktop asks for it: open deals by company.
void BM_PipelineFirstPage(benchmark::State& state, Backend backend) {
  const auto store = Seeded(DatabaseName(state, backend), state.range(0));
  if (!store) return;
  pelkor::IboQuery query;
  query.table = pelkor::IboTable::kMain;
  query.statuses = {1};
  query.sort = pelkor::SummaryColumn::kCompany;
  query.limit = kPage;
  for (auto _ : state) benchmark::DoNotOptimize(store->QueryIbos(query));
}

// For comparison: the same number of rows by the primary key alone, the least an indexed read
// of a page costs on the backend (no filter, no count, no sort of its own).
void BM_BareIndexedRows(benchmark::State& state, Backend backend) {
  const auto store = Seeded(DatabaseName(state, backend), state.range(0));
  if (!store) return;
  const auto middle = static_cast<std::int32_t>(kFirstFillerId + state.range(0) / 2);
  for (auto _ : state) {
    benchmark::DoNotOptimize(store->ReadBatch(pelkor::IboTable::kMain, middle, kPage));
  }
}

// One keystroke in the pipeline's search box: the first page of what matches and the count.
// "a" matches nearly everything, "umbrella 5" some hundreds, "zzq" nothing (every row looked at).
void BM_PipelineSearch(benchmark::State& state, Backend backend, const char* text) {
  const auto store = Seeded(DatabaseName(state, backend), state.range(0));
  if (!store) return;
  pelkor::IboQuery query;
  query.table = pelkor::IboTable::kMain;
  query.search = text;
  query.sort = pelkor::SummaryColumn::kValue;
  query.descending = true;
  query.limit = kPage;
  for (auto _ : state) benchmark::DoNotOptimize(store->QueryIbos(query));
}

// One keystroke in the contact look-up.
void BM_ContactSearch(benchmark::State& state, Backend backend, const char* text) {
  const auto store = Seeded(DatabaseName(state, backend), state.range(0));
  if (!store) return;
  pelkor::ContactQuery query;
  query.search = text;
  query.limit = kPage;
  for (auto _ : state) benchmark::DoNotOptimize(store->SearchContacts(query));
}

constexpr std::int64_t kSmall = 1000;
constexpr std::int64_t kLarge = 100000;

BENCHMARK_CAPTURE(BM_LoadIbo, sqlite_file, Backend::kSqliteFile)->Arg(kSmall)->Arg(kLarge);
BENCHMARK_CAPTURE(BM_LoadIbo, postgresql, Backend::kServer)->Arg(kSmall)->Arg(kLarge);
BENCHMARK_CAPTURE(BM_SaveIbo, sqlite_file, Backend::kSqliteFile)->Arg(kSmall)->Arg(kLarge);
BENCHMARK_CAPTURE(BM_SaveIbo, postgresql, Backend::kServer)->Arg(kSmall)->Arg(kLarge);
BENCHMARK_CAPTURE(BM_OpenStore, sqlite_file, Backend::kSqliteFile)->Arg(kSmall)->Arg(kLarge);
BENCHMARK_CAPTURE(BM_OpenStore, postgresql, Backend::kServer)->Arg(kSmall)->Arg(kLarge);
BENCHMARK_CAPTURE(BM_PipelineFirstPage, sqlite_file, Backend::kSqliteFile)
    ->Arg(kSmall)
    ->Arg(kLarge)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_PipelineFirstPage, postgresql, Backend::kServer)
    ->Arg(kSmall)
    ->Arg(kLarge)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_BareIndexedRows, sqlite_file, Backend::kSqliteFile)
    ->Arg(kSmall)
    ->Arg(kLarge)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_BareIndexedRows, postgresql, Backend::kServer)
    ->Arg(kSmall)
    ->Arg(kLarge)
    ->Unit(benchmark::kMillisecond);
#define PELK_SEARCH_BENCH(name, text)                                             \
  BENCHMARK_CAPTURE(BM_PipelineSearch, sqlite_##name, Backend::kSqliteFile, text) \
      ->Arg(kSmall)                                                               \
      ->Arg(kLarge)                                                               \
      ->Unit(benchmark::kMillisecond);                                            \
  BENCHMARK_CAPTURE(BM_PipelineSearch, postgresql_##name, Backend::kServer, text) \
      ->Arg(kSmall)                                                               \
      ->Arg(kLarge)                                                               \
      ->Unit(benchmark::kMillisecond);                                            \
  BENCHMARK_CAPTURE(BM_ContactSearch, sqlite_##name, Backend::kSqliteFile, text)  \
      ->Arg(kSmall)                                                               \
      ->Arg(kLarge)                                                               \
      ->Unit(benchmark::kMillisecond);                                            \
  BENCHMARK_CAPTURE(BM_ContactSearch, postgresql_##name, Backend::kServer, text)  \
      ->Arg(kSmall)                                                               \
      ->Arg(kLarge)                                                               \
      ->Unit(benchmark::kMillisecond)
PELK_SEARCH_BENCH(broad, "a");
PELK_SEARCH_BENCH(some, "umbrella 5");
PELK_SEARCH_BENCH(none, "zzq");

}  // namespace
