#include "pipeline_commands.h"

#include <algorithm>
#include <array>
#include <climits>
#include <iostream>
#include <sstream>
#include <stdexcept>

#include "data/ibo_row.h"
#include "data/ibo_store.h"
#include "data/summary_export.h"
#include "record/ibo_properties.h"

namespace pelkor::tool {
namespace {

std::shared_ptr<IIboStore> OpenExisting(const std::string& name) {
  return OpenIboStore(name, StoreOpening::kExistingOnly);
}

IboQuery QueryOf(const ListOptions& options) {
  IboQuery query;
  query.table = options.archive ? IboTable::kArchive : IboTable::kMain;
  query.search = options.search;
  query.owner = options.owner;
  std::istringstream words(options.statuses);
  for (std::string word; std::getline(words, word, ',');) {
    const auto code = StatusNamed(word);
    if (!code) {
      throw std::invalid_argument("unknown status '" + word +
                                  "': use open, won, lost or cancelled, separated by commas");
    }
    query.statuses.push_back(*code);
  }
  const auto colon = options.sort.find(':');
  const std::string name = options.sort.substr(0, colon);
  const std::string direction = colon == std::string::npos ? "" : options.sort.substr(colon + 1);
  const auto column = SummaryColumnNamed(name);
  if (!column || (direction != "" && direction != "asc" && direction != "desc")) {
    std::string names;
    for (const SummaryColumn c : SummaryColumns()) names += std::string(" ") + SummaryColumnName(c);
    throw std::invalid_argument("cannot sort by '" + options.sort +
                                "': write COLUMN or COLUMN:desc with a column of:" + names);
  }
  query.sort = *column;
  query.descending = direction == "desc";
  query.offset = std::max(0LL, options.offset);
  return query;
}

// Characters, not bytes, so that "Müller" pads like "Muller".
std::size_t Width(const std::string& text) {
  return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char c) {
    return (static_cast<unsigned char>(c) & 0xC0) != 0x80;
  }));
}

void PrintAligned(const std::vector<std::vector<ExportCell>>& lines) {
  std::vector<std::size_t> widths(lines.front().size(), 0);
  for (const auto& line : lines) {
    for (std::size_t i = 0; i < line.size(); ++i)
      widths[i] = std::max(widths[i], Width(line[i].text));
  }
  std::ostringstream out;
  for (const auto& line : lines) {
    std::string text;
    for (std::size_t i = 0; i < line.size(); ++i) {
      const std::string pad(widths[i] - Width(line[i].text), ' ');
      // Numbers line up on the right, words on the left.
      text += (i == 0 ? "" : "  ") + (line[i].number ? pad + line[i].text : line[i].text + pad);
    }
    out << text.substr(0, text.find_last_not_of(' ') + 1) << "\n";
  }
  std::cout << out.str();
}

void PrintTable(IIboStore& store, const IboQuery& query, long long limit) {
  constexpr std::array kShown = {SummaryColumn::kId,       SummaryColumn::kNumber,
                                 SummaryColumn::kCompany,  SummaryColumn::kContact,
                                 SummaryColumn::kStatus,   SummaryColumn::kMode,
                                 SummaryColumn::kPriority, SummaryColumn::kWwihDate,
                                 SummaryColumn::kValue,    SummaryColumn::kOwner};
  std::vector<std::vector<ExportCell>> lines;
  std::vector<ExportCell> header;
  for (const SummaryColumn column : kShown) header.push_back({SummaryColumnName(column), false});
  lines.push_back(header);
  const std::int64_t total = ForEachSummary(store, query, limit, [&](const IboSummary& row) {
    const std::vector<ExportCell> cells = ExportCells(row);
    std::vector<ExportCell> line;
    for (const SummaryColumn column : kShown)
      line.push_back(cells[static_cast<std::size_t>(column)]);
    lines.push_back(std::move(line));
  });
  if (total == 0) {
    std::cout << store.Location() << ": no IBOs in the " << IboTableName(query.table)
              << " table match.\n";
    return;
  }
  PrintAligned(lines);
}

}  // namespace

void PrintHistory(const std::string& database, int id, bool archive) {
  const auto store = OpenExisting(database);
  const IboTable table = archive ? IboTable::kArchive : IboTable::kMain;
  const std::vector<SavedVersion> versions = store->History(table, id);
  if (versions.empty()) {
    std::cout << store->Location() << ": no saved versions of IBO " << id << " in the "
              << IboTableName(table) << " table.\n";
    return;
  }
  constexpr std::array kShown = {SummaryColumn::kStatus, SummaryColumn::kPriority,
                                 SummaryColumn::kWwihDate, SummaryColumn::kValue,
                                 SummaryColumn::kCompany};
  std::vector<std::vector<ExportCell>> lines;
  std::vector<ExportCell> header = {{"version", false}, {"saved_at", false}, {"saved_by", false}};
  for (const SummaryColumn column : kShown) header.push_back({SummaryColumnName(column), false});
  lines.push_back(header);
  const auto record = CreateIboProperties();
  for (const SavedVersion& saved : versions) {
    record->SetIboData(saved.data);
    const std::vector<ExportCell> cells = ExportCells(data_detail::SummaryOf(*record));
    std::vector<ExportCell> line = {
        {std::to_string(saved.version), true}, {saved.savedAt, false}, {saved.savedBy, false}};
    for (const SummaryColumn column : kShown)
      line.push_back(cells[static_cast<std::size_t>(column)]);
    lines.push_back(std::move(line));
  }
  PrintAligned(lines);
}

void ListPipeline(const std::string& database, const ListOptions& options) {
  const IboQuery query = QueryOf(options);
  if (options.format != "table" && options.format != "csv" && options.format != "json") {
    throw std::invalid_argument("unknown format '" + options.format + "': use table, csv or json");
  }
  const auto store = OpenExisting(database);
  if (options.format == "table") {
    PrintTable(*store, query, options.limit);
  } else if (options.format == "csv") {
    CsvWriter csv(std::cout);
    csv.Header();
    ForEachSummary(*store, query, options.limit, [&](const IboSummary& row) { csv.Row(row); });
  } else {
    JsonWriter json(std::cout);
    ForEachSummary(*store, query, options.limit, [&](const IboSummary& row) { json.Row(row); });
  }
}

void CreateDeal(const std::string& database, const NewOptions& options) {
  if (options.format != "table" && options.format != "json") {
    throw std::invalid_argument("unknown format '" + options.format + "': use table or json");
  }
  NewIbo ibo{options.company, options.first, options.last, options.expert, std::nullopt};
  if (!options.wwih.empty()) {
    ibo.wwihDate = pelkedit::Date::Parse(options.wwih);
    if (!ibo.wwihDate) {
      throw std::invalid_argument("--wwih '" + options.wwih + "' is not a date: write YYYY-MM-DD");
    }
  }
  const auto store = OpenExisting(database);
  const CreatedIbo created = store->CreateIbo(ibo);
  if (options.format == "json") {
    std::cout << "{\"id\": " << created.id << ", \"number\": " << created.number << "}\n";
    return;
  }
  std::cout << "Created IBO " << created.id << " (IBO#" << created.number << ") in "
            << store->Location() << ".\n";
}

void MoveDeal(const std::string& database, int id, bool toArchive) {
  const auto store = OpenExisting(database);
  store->MoveIbo(toArchive ? IboTable::kMain : IboTable::kArchive, id);
  std::cout << (toArchive ? "Archived" : "Restored") << " IBO " << id << " in " << store->Location()
            << ".\n";
}

void DeleteDeal(const std::string& database, int id, bool confirmed) {
  const auto store = OpenExisting(database);
  if (!confirmed) {
    const auto held = store->Find(IboTable::kArchive, id);
    std::string what = "IBO " + std::to_string(id);
    if (held) {
      const auto record = CreateIboProperties();
      record->SetIboData(*held);
      what += " (" + record->Get("ContactCompany").AsString() + ")";
    }
    throw std::invalid_argument("deleting " + what +
                                " cannot be undone; run the command again with --yes to delete "
                                "it");
  }
  store->DeleteArchived(id);
  std::cout << "Deleted IBO " << id << " from the archive of " << store->Location() << ".\n";
}

std::int64_t CountIbos(IIboStore& store) {
  IboQuery query;
  query.limit = 0;
  std::int64_t held = 0;
  for (const IboTable table : {IboTable::kMain, IboTable::kArchive}) {
    query.table = table;
    held += store.QueryIbos(query).total;
  }
  return held;
}

void InitDatabase(const std::string& database) {
  const auto store = OpenIboStore(database);
  const std::int64_t held = CountIbos(*store);
  std::cout << store->Location() << " is ready for work: " << held << " IBO"
            << (held == 1 ? "" : "s") << " in it.\n";
}

}  // namespace pelkor::tool
