// pelkor-db: create and seed an IBO database, list what it holds, import contacts.
#include <cstdio>
#include <filesystem>
#include <iostream>
#include <string>

#include <CLI/CLI.hpp>

#include "data/contact_import.h"
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

// Listing and importing never create: a mistyped name should not leave an empty database.
void RequireExisting(const std::string& path) {
  if (std::filesystem::exists(path)) return;
  throw pelkedit::PelkError(pelkedit::errnum::kInvalidProcedureCall, pelkor::kDataErrorSource,
                            "The IBO database '" + path + "' does not exist.");
}

void ImportContacts(const std::string& path, const std::string& file) {
  RequireExisting(path);
  const auto db = pelkor::OpenIboStore(path);
  const pelkor::ContactImport read = pelkor::ReadContactFile(file);
  for (const pelkor::ImportProblem& problem : read.skipped) {
    std::cerr << file << ":" << problem.line << ": skipped: " << problem.why << "\n";
  }
  // One transaction: all of the readable contacts, or none.
  const int added = db->AddContacts(read.contacts);
  std::cout << "Imported " << added << " new contact" << (added == 1 ? "" : "s") << " from '"
            << file << "' (" << read.contacts.size() - static_cast<std::size_t>(added)
            << " already in the book, " << read.skipped.size() << " skipped).\n";
}

void List(const std::string& path) {
  RequireExisting(path);
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
  std::string contacts;
  CLI::App* import = app.add_subcommand(
      "import-contacts",
      "Add the contacts of a vCard (.vcf) or CSV export to the contact book; entries that "
      "cannot be read are reported with their line and skipped, people already there are not "
      "added again.");
  import->add_option("FILE", path, "Database file")->required();
  import->add_option("CONTACTS", contacts, "vCard or CSV file")->required();

  CLI11_PARSE(app, argc, argv);
  try {
    if (seed->parsed()) {
      Seed(path);
    } else if (import->parsed()) {
      ImportContacts(path, contacts);
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
