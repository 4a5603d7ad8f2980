// pelkor-db: create and seed an IBO database, list what it holds, import contacts, copy a
// database (from a file to a server, say).
#include <cstdio>
#include <iostream>
#include <sstream>
#include <string>

#include <CLI/CLI.hpp>

#include "data/contact_import.h"
#include "data/demo_seed.h"
#include "data/ibo_store.h"
#include "data/store_copy.h"
#include "record/ibo_properties.h"
#include "values/error.h"

namespace {

constexpr int kExitFailure = 1;

// "999,990": counts of skipped lines run into the millions.
std::string Grouped(std::size_t count) {
  std::string digits = std::to_string(count);
  constexpr std::size_t kGroup = 3;
  for (std::size_t at = digits.size(); at > kGroup; at -= kGroup) digits.insert(at - kGroup, ",");
  return digits;
}

const char* Plural(std::size_t count) {
  return count == 1 ? "" : "s";
}

// Listing, importing and copying from never create: a mistyped name should not leave an empty
// database behind.
std::shared_ptr<pelkor::IIboStore> OpenExisting(const std::string& name) {
  return pelkor::OpenIboStore(name, pelkor::StoreOpening::kExistingOnly);
}

void Seed(const std::string& name) {
  const auto db = pelkor::OpenIboStore(name);
  const int added = pelkor::SeedDemoData(*db);
  const std::size_t total = db->ListIbos().size();
  std::cout << "Seeded " << db->Location() << ": " << added << " IBO" << Plural(added) << " added, "
            << total << " in the database.\n";
}

void Copy(const std::string& from, const std::string& to) {
  const auto source = OpenExisting(from);
  const auto target = pelkor::OpenIboStore(to);
  const pelkor::CopyReport copied = pelkor::CopyDatabase(*source, *target);
  std::cout << "Copied " << source->Location() << " to " << target->Location() << ": "
            << copied.main << " main and " << copied.archive << " archived IBO"
            << Plural(copied.archive) << " added, " << copied.unchanged << " already there, "
            << copied.contacts << " new contact" << Plural(copied.contacts) << ".\n";
}

void ImportContacts(const std::string& name, const std::string& file) {
  const auto db = OpenExisting(name);
  const pelkor::ContactImport read = pelkor::ReadContactFile(file);
  // One buffered report: a file of a million bad lines is summed up, not listed.
  std::ostringstream report;
  for (const pelkor::ImportProblem& problem : read.skipped) {
    report << file << ":" << problem.line << ": skipped: " << problem.why << "\n";
  }
  for (const auto& [kind, more] : read.moreSkipped) {
    report << file << ": and " << Grouped(more) << " more line" << Plural(more)
           << " like it skipped: " << kind << "\n";
  }
  std::cerr << report.str();
  // One transaction: all of the readable contacts, or none.
  const int added = db->AddContacts(read.contacts);
  std::cout << "Imported " << added << " new contact" << (added == 1 ? "" : "s") << " from '"
            << file << "' (" << read.contacts.size() - static_cast<std::size_t>(added)
            << " already in the book, " << read.SkippedCount() << " skipped).\n";
}

void List(const std::string& name) {
  const auto db = OpenExisting(name);
  const auto record = pelkor::CreateIboProperties();  // for the status texts
  const auto ibos = db->ListIbos();
  if (ibos.empty()) {
    std::cout << db->Location() << " holds no IBOs.\n";
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
  CLI::App app{
      "Create, seed, list and copy Pelkor IBO databases. A database is a SQLite file "
      "or a PostgreSQL server's database named by a URI "
      "(postgresql://user@host/dbname); where none is given, $PELKOR_DB names it.",
      "pelkor-db"};
  app.require_subcommand(1);
  std::string path;
  const auto database = [&](CLI::App* command) {
    command->add_option("DATABASE", path, "Database file or postgresql:// URI")
        ->envname(pelkor::kDatabaseVariable)
        ->required();
  };

  CLI::App* seed = app.add_subcommand(
      "seed", "Create the database if it is missing and add the demo opportunities it lacks.");
  database(seed);
  CLI::App* list = app.add_subcommand("list",
                                      "List every IBO: id, table, number, company, "
                                      "status, mode.");
  database(list);
  std::string contacts;
  CLI::App* import = app.add_subcommand(
      "import-contacts",
      "Add the contacts of a vCard (.vcf) or CSV export to the contact book; entries that "
      "cannot be read are reported with their line and skipped, people already there are not "
      "added again.");
  database(import);
  import->add_option("CONTACTS", contacts, "vCard or CSV file")->required();
  std::string target;
  CLI::App* copy = app.add_subcommand(
      "copy",
      "Copy every IBO and contact of SOURCE into TARGET (created when missing). IBOs TARGET "
      "already holds exactly so are skipped, so an interrupted copy can be run again; one it "
      "holds differently stops the copy before anything is written.");
  copy->add_option("SOURCE", path, "Database file or postgresql:// URI to copy from")->required();
  copy->add_option("TARGET", target, "Database file or postgresql:// URI to copy into")->required();

  CLI11_PARSE(app, argc, argv);
  try {
    if (seed->parsed()) {
      Seed(path);
    } else if (copy->parsed()) {
      Copy(path, target);
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
