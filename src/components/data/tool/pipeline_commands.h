#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace pelkor {
class IIboStore;
}

namespace pelkor::tool {

// What `pelkor-db list` was asked for.
struct ListOptions {
  std::string search;
  std::string statuses;  // "open,won"
  bool archive = false;
  std::string owner;
  std::string sort = "id";  // COLUMN or COLUMN:desc
  long long offset = 0;
  long long limit = -1;  // every row
  std::string format = "table";
};

struct NewOptions {
  std::string company;
  std::string first;
  std::string last;
  bool expert = false;
  std::string wwih;  // YYYY-MM-DD or ""
  std::string format = "table";
};

// Each prints to standard output; a refusal is a PelkError or a std::invalid_argument saying
// what to type instead.
void ListPipeline(const std::string& database, const ListOptions& options);
void CreateDeal(const std::string& database, const NewOptions& options);
void MoveDeal(const std::string& database, int id, bool toArchive);
void DeleteDeal(const std::string& database, int id, bool confirmed);
void InitDatabase(const std::string& database);
// The versions of an IBO its saves replaced, newest first, with when and by whom.
void PrintHistory(const std::string& database, int id, bool archive);
// IBOs in both tables.
std::int64_t CountIbos(IIboStore& store);

}  // namespace pelkor::tool
