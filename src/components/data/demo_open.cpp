#include "data/demo_opportunities.h"

namespace pelkor::demo {

std::vector<Opportunity> OpenOpportunities() {
  std::vector<Opportunity> list;

  // A well-worked expert opportunity: every question answered, two trial closes behind it.
  list.push_back({
      .id = 1001,
      .expert = true,
      .started = "2026-02-09",
      .happens = "2026-09-30",
      .wih = 2,
      .wwgi = 1,
      .userPriority = 2,
      .advisorPriority = 2,
      .levelNeed = 3,
      .solutionMatch = 2,
      .urgency = 3,
      .budgetMatch = 2,
      .funding = 2,
      .familiarity = 1,
      .compPressure = 3,
      .econ = {"Dana Whitfield", 3, "Five-year running cost", 1, 3},
      .tech = {"Marcus Oyelaran", 2, "Fits the dispatch system", 2, 4},
      .user = {"Priya Raman", 1, "No extra driver training", 2, 5},
      .competitors = "Trackwise Telematics, FleetNet Systems",
      .trialClose = true,
      .history = {{"2026-04-14T10:30:00", "Budget frozen until the Q2 board meeting.",
                   "Offer a phased rollout: 40 trucks now, the rest in Q3."},
                  {"2026-06-02T15:00:00", "IT worried about the dispatch integration effort.",
                   "Run a two-week pilot with our integration engineer on site."}},
      .current = {"", "Legal review of the data-retention clause.",
                  "Send our standard data-processing addendum and offer a call with our DPO."},
      .contact = {"Dana", "Whitfield", "Harbor Freight Logistics",
                  "1840 Wharf Road, Suite 300, Tacoma, WA 98421", "(253) 555-0147",
                  "dana.whitfield@harborfreightlogistics.example"},
      .products =
          R"j({"format":"pelkor-products","version":1,"lines":[)j"
          R"j({"product":"FleetTrack T200 telematics unit","quantity":"120",)j"
          R"j("unitPrice":"349","discountPercent":"0","deliveryDate":"2027-02-15",)j"
          R"j("note":"Two batches of 60; vans are fitted at the Eastgate depot."},)j"
          R"j({"product":"FleetTrack cloud licence (3 years)","quantity":"120",)j"
          R"j("unitPrice":"180","discountPercent":"0","deliveryDate":"2027-02-15",)j"
          R"j("note":""},)j"
          R"j({"product":"Dispatch integration package","quantity":"1","unitPrice":"9500",)j"
          R"j("discountPercent":"0","deliveryDate":"2027-03-01",)j"
          R"j("note":"Needs their dispatch vendor's API keys before work starts."}]})j",
      .note = "Kick-off meeting 2026-02-09 with Dana and Marcus. They run 160 trucks out of "
              "Tacoma and Portland; the current GPS boxes reach end of support in December.\r\n"
              "\r\n"
              "Main pain points: fuel theft on the Portland depot, no live ETA for the dispatch "
              "desk, and drivers filling in paper logs. Priya (operations) insists that "
              "anything new must work on the tablets the drivers already carry.\r\n"
              "\r\n"
              "Trackwise came in 8% cheaper on hardware, but their contract locks the data "
              "in their cloud. Dana cares about the five-year cost, so our longer warranty "
              "and open export are the angle.\r\n"
              "\r\n"
              "Next steps: pilot report due 2026-06-20, then the board decides in July.",
  });

  // A fresh basic-mode opportunity: little is known yet.
  list.push_back({
      .id = 1002,
      .started = "2026-05-18",
      .happens = "2026-11-15",
      .wih = 1,
      .wwgi = 0,
      .userPriority = 4,
      .advisorPriority = 4,
      .levelNeed = 1,
      .solutionMatch = 2,
      .urgency = 2,
      .budgetMatch = 0,
      .funding = 0,
      .familiarity = 0,
      .compPressure = 0,
      .user = {"Dr. Helen Castellano", 1, "", kUnanswered, kUnanswered},
      .contact = {"Helen", "Castellano", "Cascade Valley Medical Group",
                  "455 Riverside Parkway, Eugene, OR 97401", "(541) 555-0182",
                  "h.castellano@cascadevalleymed.example"},
      .products = "3\tClinicFlow scheduling server\t4,200.00",
      .note = "Met Dr. Castellano at the regional health IT fair. Interested in online "
              "appointment booking for three clinics.",
  });

  // The ring has wrapped: the oldest kept trial close sits in slot 8.
  list.push_back({
      .id = 1006,
      .expert = true,
      .started = "2025-11-03",
      .happens = "2026-08-31",
      .wih = 1,
      .wwgi = 2,
      .userPriority = 1,
      .advisorPriority = 2,
      .levelNeed = 3,
      .solutionMatch = 3,
      .urgency = 2,
      .budgetMatch = 1,
      .funding = 3,
      .familiarity = 2,
      .compPressure = 1,
      .econ = {"Robert Nakamura", 3, "Stores open in changeover", 2, 4},
      .tech = {"Alicia Ferreira", 2, "Offline dock terminals", 2, 3},
      .user = {"Tom Brennan", 2, "Faster stock counts", 1, 2},
      .competitors = "Anchor POS",
      .trialClose = true,
      .ringFirst = 8,
      .history = {{"2026-01-20T11:00:00", "Wanted references from another marine retailer.",
                   "Arranged a visit to Coastline Outfitters in Newport."},
                  {"2026-03-05T09:15:00", "Concern about the migration weekend.",
                   "Proposed a store-by-store cutover with our staff on site."},
                  {"2026-04-28T16:45:00", "Finance asked for a lease option.",
                   "Brought in our leasing partner with a 36-month offer."}},
      .current = {"", "Waiting for the new fiscal year budget release.",
                  "Keep the offer valid until 2026-07-31 and check in every two weeks."},
      .contact = {"Robert", "Nakamura", "Bluewater Marine Supply",
                  "72 Harborview Drive, Annapolis, MD 21403", "(410) 555-0119",
                  "rnakamura@bluewatermarine.example"},
      .products = "14\tStoreLine POS terminal\t1,150.00\r\n"
                  "6\tHandheld stock scanner\t620.00\r\n"
                  "1\tMigration and training\t7,800.00",
      .note = "Seven stores on the Chesapeake. Robert signs; Alicia runs IT alone.\r\n"
              "Leasing offer sent 2026-05-02.",
  });

  // Expert mode, but the decision makers behind the buyer are still unknown.
  list.push_back({
      .id = 1007,
      .expert = true,
      .started = "2026-06-01",
      .happens = "2027-03-31",
      .wih = 0,
      .wwgi = 1,
      .userPriority = 5,
      .advisorPriority = 4,
      .levelNeed = 2,
      .solutionMatch = 1,
      .urgency = 1,
      .budgetMatch = 3,
      .funding = 1,
      .familiarity = 0,
      .compPressure = 2,
      .econ = {"Gregory Adeyemi", 2, "", 1, 0},
      .competitors = "Precision QMS, in-house spreadsheet tools",
      .contact = {"Gregory", "Adeyemi", "Meridian Aerospace Components",
                  "9100 Industrial Boulevard, Wichita, KS 67219", "(316) 555-0163",
                  "g.adeyemi@meridianaero.example"},
      .products = "1\tQualityTrace enterprise licence\t64,000.00\r\n"
                  "1\tAS9100 audit module\t18,500.00",
      .note = "Procurement-led request for information. Engineering has not been involved "
              "yet; ask Gregory who owns the audit process.",
  });

  return list;
}

}  // namespace pelkor::demo
