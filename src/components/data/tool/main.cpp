// pelkor-db: create and seed an IBO database, and list what it holds.
#include <cstdio>
#include <filesystem>
#include <iostream>
#include <string>

#include <CLI/CLI.hpp>

#include "data/demo_seed.h"
#include "data/ibo_store.h"
#include "record/ibo_properties.h"
#include "values/error.h"

namespace {

constexpr int kExitFailure = 1;

void Seed(const std::string& path) {
  const auto db = pelkor::OpenIboStore(path);
  const int added = pelkor::SeedDemoData(*db);
  const std::size_t total = db->ListIbos().size();
  std::cout << "Seeded '" << path << "': " << added << " IBO" << (added == 1 ? "" : "s")
            << " added, " << total << " in the database.\n";
}

void List(const std::string& path) {
  // Listing never creates: a mistyped name should not leave an empty database behind.
  if (!std::filesystem::exists(path)) {
    throw pelkedit::PelkError(pelkedit::errnum::kInvalidProcedureCall, pelkor::kDataErrorSource,
                              "The IBO database '" + path + "' does not exist.");
  }
  const auto db = pelkor::OpenIboStore(path);
  const auto record = pelkor::CreateIboProperties();  // for the status texts
  const auto ibos = db->ListIbos();
  if (ibos.empty()) {
    std::cout << "'" << path << "' holds no IBOs.\n";
    return;
  }
  for (const pelkor::IboSummary& ibo : ibos) {
    const char* table =
        pelkor::IboTableName(ibo.archived ? pelkor::IboTable::kArchive : pelkor::IboTable::kMain);
    std::printf("%6d  %-7s  IBO#%-6d  %-32s  %-9s  %s\n", ibo.id, table, ibo.iboNumber,
                ibo.company.c_str(), record->StatusText(ibo.status).c_str(),
                ibo.expert ? "expert" : "basic");
  }
}

}  // namespace

int main(int argc, char** argv) {
  CLI::App app{"Create, seed and list Pelkor IBO databases.", "pelkor-db"};
  app.require_subcommand(1);
  std::string path;

  CLI::App* seed = app.add_subcommand(
      "seed", "Create the database if it is missing and add the demo opportunities it lacks.");
  seed->add_option("FILE", path, "Database file")->required();
  CLI::App* list = app.add_subcommand("list",
                                      "List every IBO: id, table, number, company, "
                                      "status, mode.");
  list->add_option("FILE", path, "Database file")->required();

  CLI11_PARSE(app, argc, argv);
  try {
    if (seed->parsed()) {
      Seed(path);
    } else {
      List(path);
    }
  } catch (const pelkedit::PelkError& error) {
    std::cerr << "pelkor-db: " << error.Description() << " (error " << error.Number() << ", "
              << error.Source() << ")\n";
    return kExitFailure;
  }
  return 0;
}
