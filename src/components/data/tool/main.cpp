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
#include "pipeline_commands.h"
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
  const std::int64_t total = pelkor::tool::CountIbos(*db);
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
  db->SettleAfterBulkLoad();
  std::cout << "Imported " << added << " new contact" << (added == 1 ? "" : "s") << " from '"
            << file << "' (" << read.contacts.size() - static_cast<std::size_t>(added)
            << " already in the book, " << read.SkippedCount() << " skipped).\n";
}

}  // namespace

int main(int argc, char** argv) {
  CLI::App app{
      "Create, seed, list and copy Pelkor IBO databases, and create, archive, restore and "
      "delete their deals. A database is a SQLite file or a PostgreSQL server's database named "
      "by a URI (postgresql://user@host/dbname); where none is given, $PELKOR_DB names it.",
      "pelkor-db"};
  app.require_subcommand(1);
  std::string path;
  const auto database = [&](CLI::App* command) {
    command->add_option("DATABASE", path, "Database file or postgresql:// URI")
        ->envname(pelkor::kDatabaseVariable)
        ->required();
  };

  CLI::App* init = app.add_subcommand(
      "init", "Create an empty database for real work (or bring an older one up to date).");
  database(init);
  CLI::App* seed = app.add_subcommand(
      "seed", "Create the database if it is missing and add the demo opportunities it lacks.");
  database(seed);

  pelkor::tool::ListOptions listed;
  CLI::App* list = app.add_subcommand(
      "list", "List the deals of the main table (or the archive), a page of them or all.");
  database(list);
  list->add_option("--search", listed.search,
                   "Only deals whose number, company or contact holds every word (case and "
                   "accents ignored)");
  list->add_option("--status", listed.statuses, "open,won,lost,cancelled: any of these");
  list->add_flag("--archive", listed.archive, "The archive instead of the main table");
  list->add_option("--owner", listed.owner, "Only the deals this person created");
  list->add_option("--sort", listed.sort,
                   "COLUMN or COLUMN:desc; columns: id number company contact status mode "
                   "priority advisor_priority wih wwgi wwih_date close_date result position "
                   "value owner saved_at saved_by");
  list->add_option("--offset", listed.offset, "Skip this many matching deals");
  list->add_option("--limit", listed.limit, "At most this many deals");
  list->add_option("--format", listed.format,
                   "table (for people), csv (RFC 4180, UTF-8, for spreadsheets) or json");

  pelkor::tool::NewOptions made;
  CLI::App* create = app.add_subcommand(
      "new", "Create an open deal with a new id and IBO number, and print them.");
  database(create);
  create->add_option("--company", made.company, "The customer's company")->required();
  create->add_option("--first", made.first, "The contact's first name");
  create->add_option("--last", made.last, "The contact's last name");
  create->add_flag("--expert", made.expert, "Work the deal in expert mode");
  create->add_option("--wwih", made.wwih, "When will it happen: YYYY-MM-DD");
  create->add_option("--format", made.format, "table or json ({\"id\": N, \"number\": M})");

  int id = 0;
  bool confirmed = false;
  const auto deal = [&](const char* name, const char* what) {
    CLI::App* command = app.add_subcommand(name, what);
    database(command);
    command->add_option("ID", id, "The IBO's id")->required();
    return command;
  };
  CLI::App* archive = deal("archive", "Move a deal from the main table into the archive.");
  CLI::App* restore = deal("restore", "Move a deal from the archive back into the main table.");
  CLI::App* remove = deal("delete", "Delete an archived deal for good (asks for --yes).");
  remove->add_flag("--yes", confirmed, "Yes, delete it: this cannot be undone");
  bool archived = false;
  CLI::App* history =
      deal("history",
           "List the versions of a deal that its saves replaced (the latest 50), newest first.");
  history->add_flag("--archive", archived, "The deal is in the archive");

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
      "Copy every IBO and contact of SOURCE into TARGET (created when missing), a batch at a "
      "time. IBOs TARGET already holds exactly so are skipped, so an interrupted copy can be "
      "run again; one it holds differently stops the copy there.");
  copy->add_option("SOURCE", path, "Database file or postgresql:// URI to copy from")->required();
  copy->add_option("TARGET", target, "Database file or postgresql:// URI to copy into")->required();

  CLI11_PARSE(app, argc, argv);
  try {
    if (seed->parsed()) {
      Seed(path);
    } else if (init->parsed()) {
      pelkor::tool::InitDatabase(path);
    } else if (copy->parsed()) {
      Copy(path, target);
    } else if (import->parsed()) {
      ImportContacts(path, contacts);
    } else if (create->parsed()) {
      pelkor::tool::CreateDeal(path, made);
    } else if (archive->parsed() || restore->parsed()) {
      pelkor::tool::MoveDeal(path, id, archive->parsed());
    } else if (history->parsed()) {
      pelkor::tool::PrintHistory(path, id, archived);
    } else if (remove->parsed()) {
      pelkor::tool::DeleteDeal(path, id, confirmed);
    } else {
      pelkor::tool::ListPipeline(path, listed);
    }
  } catch (const pelkedit::PelkError& error) {
    std::cerr << "pelkor-db: " << error.Description() << " (error " << error.Number() << ", "
              << error.Source() << ")\n";
    return kExitFailure;
  } catch (const std::invalid_argument& error) {
    std::cerr << "pelkor-db: " << error.what() << "\n";
    return kExitFailure;
  }
  return 0;
}
