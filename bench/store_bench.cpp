// Loading and saving one IBO the way the editor does (through the data-access object, with the
// row version check), on a SQLite file and on a PostgreSQL server. The server benchmarks run
// when PELKOR_BENCH_PG names an empty database to use (scripts/bench-stores.sh starts a local
// throwaway server for them).
#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>

#include "contracts/names.h"
#include "data/demo_seed.h"
#include "data/ibo_store.h"

namespace {

constexpr std::int32_t kExpertIbo = 1001;  // the demo's fullest record
constexpr const char* kServerVariable = "PELKOR_BENCH_PG";

enum class Backend { kSqliteFile, kServer };

// A file database in the temporary folder, fresh for each benchmark.
std::string FreshFile() {
  const auto path = std::filesystem::temp_directory_path() / "pelkor_store_bench.db";
  for (const char* suffix : {"", "-wal", "-shm"}) {
    std::filesystem::remove(path.string() + suffix);
  }
  return path.string();
}

// The name of a backend's database: a fresh file, or the server database named in the
// environment ("" when there is none, and the benchmark is skipped).
std::string DatabaseName(benchmark::State& state, Backend backend) {
  if (backend == Backend::kSqliteFile) return FreshFile();
  const char* uri = std::getenv(kServerVariable);
  if (uri != nullptr) return uri;
  state.SkipWithError("set PELKOR_BENCH_PG to a server database (see scripts/bench-stores.sh)");
  return {};
}

// The backend's database with the demo opportunities; null when the benchmark is skipped.
std::shared_ptr<pelkor::IIboStore> Seeded(const std::string& name) {
  if (name.empty()) return nullptr;
  auto store = pelkor::OpenIboStore(name);
  pelkor::SeedDemoData(*store);
  return store;
}

void BM_LoadIbo(benchmark::State& state, Backend backend) {
  const auto store = Seeded(DatabaseName(state, backend));
  if (!store) return;
  const auto data = pelkor::CreateDataAccess(store);
  for (auto _ : state) {
    benchmark::DoNotOptimize(data->ReadIbo(kExpertIbo, pelkedit::kProcMain));
  }
}

// Each save is checked against the version read before it and gives the row a new one.
void BM_SaveIbo(benchmark::State& state, Backend backend) {
  const auto store = Seeded(DatabaseName(state, backend));
  if (!store) return;
  const auto data = pelkor::CreateDataAccess(store);
  const pelkedit::Blob record = data->ReadIbo(kExpertIbo, pelkedit::kProcMain);
  for (auto _ : state) data->WriteIbo(record, pelkedit::kProcMain);
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * record.size()));
}

// Opening the database as the editor does at its first load: connection and schema check.
void BM_OpenStore(benchmark::State& state, Backend backend) {
  const std::string name = DatabaseName(state, backend);
  if (!Seeded(name)) return;
  for (auto _ : state) benchmark::DoNotOptimize(pelkor::OpenIboStore(name));
}

BENCHMARK_CAPTURE(BM_LoadIbo, sqlite_file, Backend::kSqliteFile);
BENCHMARK_CAPTURE(BM_LoadIbo, postgresql, Backend::kServer);
BENCHMARK_CAPTURE(BM_SaveIbo, sqlite_file, Backend::kSqliteFile);
BENCHMARK_CAPTURE(BM_SaveIbo, postgresql, Backend::kServer);
BENCHMARK_CAPTURE(BM_OpenStore, sqlite_file, Backend::kSqliteFile);
BENCHMARK_CAPTURE(BM_OpenStore, postgresql, Backend::kServer);

}  // namespace
