#include "pipeline_checks.h"

#include <sys/wait.h>
#include <unistd.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <map>
#include <set>

#include "data_test_support.h"
#include "record/ibo_properties.h"

namespace pelkor::testing {
namespace {

using ::testing::HasSubstr;

IboQuery MainQuery() {
  IboQuery query;
  query.table = IboTable::kMain;
  return query;
}

std::vector<std::string> Companies(const IboPage& page) {
  std::vector<std::string> names;
  for (const IboSummary& row : page.rows) names.push_back(row.company);
  return names;
}

// A deal with a value, dates and a status, saved as the editor would.
void Reshape(IIboStore& store, const CreatedIbo& created, int status, const std::string& products,
             const std::string& wwih) {
  const auto record = CreateIboProperties();
  record->SetIboData(store.Read(IboTable::kMain, created.id));
  record->Set("Status", status);
  record->Set("Products", products);
  record->Set("WwihDate", *pelkedit::Date::Parse(wwih));
  store.Update(IboTable::kMain, created.id, record->GetIboData());
}

}  // namespace

void ExpectPipelineFindsSortsAndPages(const Connect& connect) {
  ::setenv("PELKOR_USER", "ann", 1);
  const auto ann = connect();
  ::setenv("PELKOR_USER", "bo", 1);
  const auto bo = connect();
  ::unsetenv("PELKOR_USER");

  const CreatedIbo mueller = ann->CreateIbo(
      {"  Müller Präzision GmbH ", "Jürgen", "Öztürk", true, pelkedit::Date::Parse("2027-01-15")});
  const CreatedIbo acme = ann->CreateIbo({"acme 100% Steel", "Ada", "Zeller", false, {}});
  const CreatedIbo zeta = bo->CreateIbo({"Zeta_Works", "Bo", "Ames", false, {}});
  EXPECT_EQ(acme.number, mueller.number + 1);
  EXPECT_THAT(ErrorOf([&] {
                ann->CreateIbo({" ", "No", "Company", false, {}});
              }).Description(),
              HasSubstr("the customer's company is missing"));

  Reshape(*ann, acme, 3, "2\tWidget\t10.50\n", "2026-03-01");
  Reshape(*bo, zeta, 1, "1\tGadget\t99\n", "2026-12-24");

  IboQuery query = MainQuery();
  query.search = "MULLER ozturk";
  IboPage page = ann->QueryIbos(query);
  ASSERT_EQ(page.total, 1);
  const IboSummary& found = page.rows.at(0);
  EXPECT_EQ(found.company, "Müller Präzision GmbH");
  EXPECT_TRUE(found.expert);
  EXPECT_EQ(found.status, 1);
  EXPECT_EQ(found.wwihDate, "2027-01-15");
  EXPECT_EQ(found.owner, "ann");
  EXPECT_EQ(found.savedBy, "ann");
  EXPECT_EQ(found.savedAt.size(), std::string("YYYY-MM-DD HH:MM:SS").size());
  query.search = std::to_string(zeta.number);
  EXPECT_THAT(Companies(ann->QueryIbos(query)), ::testing::Contains("Zeta_Works"));
  // Wildcards are letters to look for.
  query.search = "100%";
  EXPECT_EQ(Companies(ann->QueryIbos(query)), std::vector<std::string>{"acme 100% Steel"});
  query.search = "e_1";
  EXPECT_EQ(ann->QueryIbos(query).total, 0);
  query.search = "_";
  EXPECT_EQ(Companies(ann->QueryIbos(query)), std::vector<std::string>{"Zeta_Works"});

  query = MainQuery();
  query.sort = SummaryColumn::kCompany;
  EXPECT_EQ(Companies(ann->QueryIbos(query)),
            (std::vector<std::string>{"acme 100% Steel", "Müller Präzision GmbH", "Zeta_Works"}));
  query.sort = SummaryColumn::kValue;
  query.descending = true;
  page = ann->QueryIbos(query);
  EXPECT_EQ(Companies(page),
            (std::vector<std::string>{"Zeta_Works", "acme 100% Steel", "Müller Präzision GmbH"}));
  EXPECT_EQ(page.rows.at(1).value, 210000);  // 2 x 10.50, exact
  query.statuses = {1};
  query.owner = "ann";
  EXPECT_EQ(Companies(ann->QueryIbos(query)), std::vector<std::string>{"Müller Präzision GmbH"});
  query.owner = "bo";
  EXPECT_EQ(Companies(ann->QueryIbos(query)), std::vector<std::string>{"Zeta_Works"});

  // Every column sorts both ways, and a page at a time yields each deal once.
  for (int i = 0; i < 7; ++i)
    bo->CreateIbo({"Filler " + std::to_string(i % 3), "", "", i % 2 == 1, {}});
  for (const SummaryColumn column : SummaryColumns()) {
    for (const bool descending : {false, true}) {
      query = MainQuery();
      query.sort = column;
      query.descending = descending;
      query.limit = 3;
      std::multiset<std::int32_t> seen;
      for (query.offset = 0; query.offset < 12; query.offset += 3) {
        page = ann->QueryIbos(query);
        EXPECT_EQ(page.total, 10);
        for (const IboSummary& row : page.rows) seen.insert(row.id);
      }
      EXPECT_EQ(seen.size(), 10u) << SummaryColumnName(column);
      EXPECT_EQ(std::set<std::int32_t>(seen.begin(), seen.end()).size(), 10u)
          << SummaryColumnName(column);
    }
  }
  // Uncounted, the same rows come back.
  query = MainQuery();
  query.sort = SummaryColumn::kValue;
  query.descending = true;
  query.statuses = {1};
  const IboPage counted = ann->QueryIbos(query);
  query.countAll = false;
  const IboPage uncounted = ann->QueryIbos(query);
  EXPECT_EQ(Companies(uncounted), Companies(counted));
  EXPECT_EQ(uncounted.total, counted.total);
}

void ExpectForecastSumsTheMonthsShown(const Connect& connect) {
  ::setenv("PELKOR_USER", "ann", 1);
  const auto store = connect();
  ::setenv("PELKOR_USER", "bo", 1);
  const auto bo = connect();
  ::unsetenv("PELKOR_USER");
  const CreatedIbo bos = bo->CreateIbo({"Bo's Co", "", "", false, {}});
  Reshape(*bo, bos, 1, "1\tBo\t1\n", "2026-12-01");
  const auto deal = [&](int status, const std::string& products, const std::string& wwih) {
    const CreatedIbo created = store->CreateIbo({"Forecast Co", "", "", false, {}});
    if (!wwih.empty()) Reshape(*store, created, status, products, wwih);
  };
  deal(1, "1\tLate\t10\n", "2026-11-23");
  deal(1, "1\tNow\t20\n", "2026-11-24");
  deal(1, "2\tNow\t5\n", "2026-11-30");
  deal(1, "1\tLast\t40\n", "2027-10-31");
  deal(1, "1\tBeyond\t80\n", "2027-11-01");
  deal(2, "1\tWon\t160\n", "2026-12-01");
  deal(1, "", "");  // no date

  using Sums = std::map<std::string, std::pair<std::int64_t, std::int64_t>>;
  const auto byMonth = [&store](const std::string& owner) {
    Sums sums;
    for (const ForecastBucket& bucket : store->Forecast("2026-11-24", owner)) {
      sums[bucket.month].first += bucket.value;
      sums[bucket.month].second += bucket.deals;
    }
    return sums;
  };
  EXPECT_EQ(byMonth("ann"),
            (Sums{{"overdue", {100000, 1}}, {"2026-11", {300000, 2}}, {"2027-10", {400000, 1}}}));
  EXPECT_EQ(byMonth("bo"), (Sums{{"2026-12", {10000, 1}}}));
  EXPECT_EQ(byMonth("").at("2026-12"), (std::pair<std::int64_t, std::int64_t>{10000, 1}));
  EXPECT_THAT(ErrorOf([&] { store->Forecast("24/11/2026", ""); }).Description(),
              HasSubstr("\"24/11/2026\" is not a date"));
}

void ExpectContactSearch(const Connect& connect) {
  const auto store = connect();
  const std::vector<std::string> firsts = {"Zoë", "Jose", "José", "Ana", "Bjorn", "Björn", "chloé"};
  // Last names in letters only, in the order of their numbers, so that digits match firms only.
  const auto letters = [](int i) {
    return std::string{static_cast<char>('a' + i / 26 / 26), static_cast<char>('a' + i / 26 % 26),
                       static_cast<char>('a' + i % 26)};
  };
  std::vector<Contact> book;
  for (int i = 0; i < 700; ++i) {
    book.push_back({0, firsts[static_cast<std::size_t>(i) % firsts.size()], "Person" + letters(i),
                    "Firm " + std::to_string(i % 17), "", "", ""});
  }
  ASSERT_EQ(store->AddContacts(book), 700);
  ContactQuery query;
  query.search = "BJÖRN";
  query.limit = 30;
  auto [page, total] = store->SearchContacts(query);
  EXPECT_EQ(total, 200);  // a hundred Bjorn and a hundred Björn
  ASSERT_EQ(page.size(), 30u);
  EXPECT_EQ(page.front().last, "Person" + letters(4));
  query.offset = 190;
  EXPECT_EQ(store->SearchContacts(query).first.size(), 10u);
  query = {};
  query.search = "JOSÉ  firm 16";  // every word: Jose and José at firm 16
  const auto [atFirm, count] = store->SearchContacts(query);
  EXPECT_EQ(count, static_cast<std::int64_t>(atFirm.size()));
  EXPECT_EQ(count, 12);
  for (const Contact& found : atFirm) {
    EXPECT_TRUE(found.first == "Jose" || found.first == "José") << found.first;
    EXPECT_EQ(found.company, "Firm 16");
  }
  query.search = "josé nobody";
  EXPECT_EQ(store->SearchContacts(query).second, 0);
  query.search = "";
  query.limit = 1000;
  const auto all = store->SearchContacts(query).first;
  ASSERT_EQ(all.size(), 700u);
  EXPECT_TRUE(std::is_sorted(all.begin(), all.end(),
                             [](const Contact& a, const Contact& b) { return a.last < b.last; }));
}

void ExpectEightCreatorsGetUniqueNumbers(const Connect& connect) {
  constexpr int kCreators = 8;
  constexpr int kEach = 10;
  connect()->Write(IboTable::kArchive, MakeIbo(500, "Archived with a high id"));
  std::vector<pid_t> children;
  for (int i = 0; i < kCreators; ++i) {
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
      int failures = 0;
      try {
        const auto store = connect();
        for (int n = 0; n < kEach; ++n)
          store->CreateIbo({"Creator " + std::to_string(i), "", "", false, {}});
      } catch (...) {
        failures = 1;
      }
      ::_exit(failures);
    }
    children.push_back(child);
  }
  for (const pid_t child : children) {
    int status = 0;
    ::waitpid(child, &status, 0);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
  }
  const std::vector<IboSummary> all = connect()->ListIbos(IboTable::kMain);
  ASSERT_EQ(all.size(), static_cast<std::size_t>(kCreators * kEach));
  std::set<std::int32_t> ids;
  std::set<std::int32_t> numbers;
  for (const IboSummary& ibo : all) {
    ids.insert(ibo.id);
    numbers.insert(ibo.iboNumber);
    EXPECT_GT(ibo.id, 500);  // never an id the archive holds
  }
  EXPECT_EQ(ids.size(), all.size());
  EXPECT_EQ(numbers.size(), all.size());
}

void ExpectArchiveNeverOverridesASave(const Connect& connect) {
  const auto mine = connect();
  const auto theirs = connect();
  const CreatedIbo deal = mine->CreateIbo({"Harbor", "", "", false, {}});
  const std::int64_t read = mine->FindVersioned(IboTable::kMain, deal.id)->version;
  theirs->Update(IboTable::kMain, deal.id, MakeIbo(deal.id, "Harbor, renamed"));

  const auto refused = ErrorOf([&] { mine->MoveIbo(IboTable::kMain, deal.id, read); });
  EXPECT_THAT(refused.Description(), HasSubstr("someone saved it since you opened it, so nothing "
                                               "was moved"));
  EXPECT_EQ(CompanyOf(mine->Read(IboTable::kMain, deal.id)), "Harbor, renamed");
  EXPECT_FALSE(mine->Find(IboTable::kArchive, deal.id).has_value());

  const auto current = mine->FindVersioned(IboTable::kMain, deal.id)->version;
  EXPECT_THAT(ErrorOf([&] { mine->DeleteArchived(deal.id); }).Description(),
              HasSubstr("Only archived IBOs can be deleted: archive it first."));
  mine->MoveIbo(IboTable::kMain, deal.id, current);
  EXPECT_FALSE(mine->Find(IboTable::kMain, deal.id).has_value());
  IboQuery archived;
  archived.table = IboTable::kArchive;
  const IboPage page = theirs->QueryIbos(archived);
  ASSERT_EQ(page.total, 1);
  EXPECT_EQ(page.rows.at(0).company, "Harbor, renamed");
  EXPECT_EQ(page.rows.at(0).owner, CurrentUserName());
  // An editor still open on the main table cannot write the deal back there.
  EXPECT_THAT(ErrorOf([&] {
                theirs->Update(IboTable::kMain, deal.id, MakeIbo(deal.id, "Late"), current + 1);
              }).Description(),
              HasSubstr("the IBO is no longer there"));

  mine->MoveIbo(IboTable::kArchive, deal.id);
  EXPECT_EQ(CompanyOf(theirs->Read(IboTable::kMain, deal.id)), "Harbor, renamed");
  EXPECT_THAT(ErrorOf([&] { theirs->MoveIbo(IboTable::kArchive, deal.id); }).Description(),
              HasSubstr("it is not in the archive table"));
  mine->MoveIbo(IboTable::kMain, deal.id);
  mine->DeleteArchived(deal.id);
  EXPECT_FALSE(theirs->Find(IboTable::kArchive, deal.id).has_value());
  EXPECT_THAT(ErrorOf([&] { mine->DeleteArchived(deal.id); }).Description(),
              HasSubstr("the archive holds no IBO with that id"));
}

void ExpectSavesKeepTheVersionsTheyReplace(const Connect& connect) {
  const auto db = connect();
  const CreatedIbo deal = db->CreateIbo({"Version 0", "", "", false, {}});
  EXPECT_TRUE(db->History(IboTable::kMain, deal.id).empty());
  constexpr int kSaves = kSavedVersionsKept + 5;
  for (int save = 1; save <= kSaves; ++save) {
    const std::int64_t read = db->FindVersioned(IboTable::kMain, deal.id)->version;
    db->Update(IboTable::kMain, deal.id, MakeIbo(deal.id, "Version " + std::to_string(save)), read);
  }
  const std::int64_t read = db->FindVersioned(IboTable::kMain, deal.id)->version;
  EXPECT_THAT(ErrorOf([&] {
                db->Update(IboTable::kMain, deal.id, MakeIbo(deal.id, "Stale"), read - 1);
              }).Description(),
              HasSubstr("changed by someone else"));

  const std::vector<SavedVersion> history = db->History(IboTable::kMain, deal.id);
  ASSERT_EQ(history.size(), static_cast<std::size_t>(kSavedVersionsKept));
  // Newest first: the version the last save replaced, back to the 50th before it.
  EXPECT_EQ(CompanyOf(history.front().data), "Version " + std::to_string(kSaves - 1));
  EXPECT_EQ(CompanyOf(history.back().data),
            "Version " + std::to_string(kSaves - kSavedVersionsKept));
  EXPECT_GT(history.front().version, history.back().version);
  EXPECT_EQ(history.front().savedBy, CurrentUserName());
  EXPECT_EQ(history.front().savedAt.size(), std::string("2026-11-24 10:00:00").size());
  EXPECT_TRUE(db->History(IboTable::kArchive, deal.id).empty());
}

}  // namespace pelkor::testing
