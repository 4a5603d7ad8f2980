// Loading and saving one IBO the way the editor does (through the data-access object, with the
// row version check), and opening the database, on a SQLite file and on a PostgreSQL server
// holding 1,000 and 100,000 IBOs and as many contacts: none of them may grow with the database. The
// server benchmarks run when PELKOR_BENCH_PG names an empty database to use
// (scripts/bench-stores.sh starts a local throwaway server for them).
#include <benchmark/benchmark.h>

#include <algorithm>
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
  const auto record = pelkor::CreateIboProperties();
  for (std::int64_t from = have; from < size; from += kBatch) {
    std::vector<pelkor::IboEntry> ibos;
    std::vector<pelkor::Contact> contacts;
    for (std::int64_t i = from; i < std::min(size, from + kBatch); ++i) {
      const auto id = static_cast<std::int32_t>(kFirstFillerId + i);
      record->Set("IboId", id);
      record->Set("IboNumber", id);
      record->Set("ContactCompany", "Filler Company " + std::to_string(i));
      ibos.push_back({pelkor::IboTable::kMain, record->GetIboData()});
      contacts.push_back({0, "First" + std::to_string(i), "Last" + std::to_string(i),
                          "Filler Company " + std::to_string(i), "", "", ""});
    }
    store->AddMissing(ibos);
    store->AddContacts(contacts);
  }
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

constexpr std::int64_t kSmall = 1000;
constexpr std::int64_t kLarge = 100000;

BENCHMARK_CAPTURE(BM_LoadIbo, sqlite_file, Backend::kSqliteFile)->Arg(kSmall)->Arg(kLarge);
BENCHMARK_CAPTURE(BM_LoadIbo, postgresql, Backend::kServer)->Arg(kSmall)->Arg(kLarge);
BENCHMARK_CAPTURE(BM_SaveIbo, sqlite_file, Backend::kSqliteFile)->Arg(kSmall)->Arg(kLarge);
BENCHMARK_CAPTURE(BM_SaveIbo, postgresql, Backend::kServer)->Arg(kSmall)->Arg(kLarge);
BENCHMARK_CAPTURE(BM_OpenStore, sqlite_file, Backend::kSqliteFile)->Arg(kSmall)->Arg(kLarge);
BENCHMARK_CAPTURE(BM_OpenStore, postgresql, Backend::kServer)->Arg(kSmall)->Arg(kLarge);

}  // namespace
