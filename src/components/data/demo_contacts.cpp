// The demo contact book: everyone the demo IBOs name, and people of other firms a salesperson
// in this region would have met.
#include <set>
#include <string>
#include <vector>

#include "data/demo_opportunities.h"
#include "data/demo_seed.h"

namespace pelkor {
namespace {

using demo::Opportunity;

// "Dr. Helen Castellano" is Helen Castellano in the contact book.
std::string WithoutTitle(const std::string& name) {
  for (const char* title : {"Dr. ", "Mr. ", "Ms. ", "Mrs. "}) {
    if (name.rfind(title, 0) == 0) return name.substr(std::string(title).size());
  }
  return name;
}

// "Dana Whitfield" as first and last name; a single word is a last name.
Contact Named(const std::string& name, const std::string& company) {
  Contact contact;
  const auto space = name.find(' ');
  contact.first = space == std::string::npos ? "" : name.substr(0, space);
  contact.last = space == std::string::npos ? name : name.substr(space + 1);
  contact.company = company;
  return contact;
}

const Contact kOthers[] = {
    {0, "José", "Álvarez", "Álvarez Construcciones", "410 Mission St, San Francisco CA 94105",
     "(415) 555-0133", "jose.alvarez@alvarez-construcciones.example"},
    {0, "Zoë", "Brännström", "Nordic Timber Imports", "88 Harbor Blvd, Seattle WA 98121",
     "(206) 555-0178", "zoe.brannstrom@nordictimber.example"},
    {0, "Amara", "Okonkwo", "Lakeside Health Partners", "2300 Lake Ave, Madison WI 53703",
     "(608) 555-0112", "a.okonkwo@lakesidehealth.example"},
    {0, "Henrik", "Sørensen", "Copenhagen Coffee Roasters", "17 Pike Pl, Seattle WA 98101",
     "(206) 555-0155", "henrik@cphroasters.example"},
    {0, "Mei", "Tanaka", "Redwood Robotics", "55 Innovation Dr, San Jose CA 95134",
     "(408) 555-0161", "mei.tanaka@redwoodrobotics.example"},
    {0, "Olumide", "Adeyemi", "Prairie Grain Cooperative", "900 Elevator Rd, Fargo ND 58102",
     "(701) 555-0107", "o.adeyemi@prairiegrain.example"},
    {0, "Chloé", "Dubois", "Bistro Supply Co.", "31 Rue Market St, New Orleans LA 70130",
     "(504) 555-0184", "chloe@bistrosupply.example"},
    {0, "Rajesh", "Iyer", "Summit Ridge Credit Union", "1200 Summit Ave, Denver CO 80203",
     "(303) 555-0146", "rajesh.iyer@summitridgecu.example"},
    {0, "Katarzyna", "Nowak", "Great Lakes Logistics", "77 Dock St, Cleveland OH 44113",
     "(216) 555-0190", "k.nowak@greatlakeslogistics.example"},
    {0, "Liam", "O'Connell", "Emerald Print Works", "6 Canal St, Boston MA 02114", "(617) 555-0121",
     "liam.oconnell@emeraldprint.example"},
    {0, "Fatima", "Haddad", "Desert Sun Solar", "4100 E Camelback Rd, Phoenix AZ 85018",
     "(602) 555-0169", "fatima.haddad@desertsunsolar.example"},
    {0, "Björn", "Lindqvist", "Fjord Marine Electronics", "19 Shilshole Ave, Seattle WA 98107",
     "(206) 555-0138", "bjorn@fjordmarine.example"},
    {0, "Grace", "Mwangi", "Cascade Valley Medical Group", "500 Valley Pkwy, Yakima WA 98901",
     "(509) 555-0117", "grace.mwangi@cascadevalleymed.example"},
    {0, "Tomás", "Herrera", "Sierra Mining Equipment", "2 Ore Rd, Reno NV 89502", "(775) 555-0150",
     "t.herrera@sierramining.example"},
    {0, "Ingrid", "Vogel", "Alpine Dairy Farms", "840 Meadow Ln, Burlington VT 05401",
     "(802) 555-0126", "ingrid.vogel@alpinedairy.example"},
    {0, "Samuel", "Osei", "Keystone Building Supply", "3000 Industrial Blvd, Harrisburg PA 17110",
     "(717) 555-0172", "samuel.osei@keystonebuild.example"},
    {0, "Nadia", "Petrova", "Harbor Freight Logistics",
     "1840 Wharf Road, Suite 300, Tacoma WA 98421", "(253) 555-0188",
     "nadia.petrova@harborfreightlogistics.example"},
    {0, "Ethan", "Brooks", "Pinecrest School District", "12 School St, Bend OR 97701",
     "(541) 555-0109", "ebrooks@pinecrest.k12.example"},
};

}  // namespace

std::vector<Contact> DemoContacts() {
  std::vector<Contact> contacts;
  std::set<std::string> known;
  const auto add = [&](const Contact& contact) {
    if (known.insert(contact.first + " " + contact.last + "|" + contact.company).second) {
      contacts.push_back(contact);
    }
  };
  const auto groups = {demo::OpenOpportunities(), demo::ClosedOpportunities()};
  // The contact people first, with their details; a decision maker who is one of them is the
  // same person.
  for (const auto& group : groups) {
    for (const Opportunity& o : group) {
      add({0, o.contact.first, o.contact.last, o.contact.company, o.contact.address,
           o.contact.phone, o.contact.email});
    }
  }
  for (const auto& group : groups) {
    for (const Opportunity& o : group) {
      for (const demo::DecisionMaker* dm : {&o.econ, &o.tech, &o.user}) {
        if (*dm->name != '\0') add(Named(WithoutTitle(dm->name), o.contact.company));
      }
    }
  }
  contacts.insert(contacts.end(), std::begin(kOthers), std::end(kOthers));
  return contacts;
}

}  // namespace pelkor
