#pragma once

#include <vector>

#include "data/ibo_store.h"

namespace pelkor {

// Fills `db` with a handful of realistic opportunities for demonstrations and manual testing:
// open, won, lost and cancelled, basic and expert mode, one in the archive. Opportunities the
// database already holds (by id and table) are left as they are, so seeding twice adds
// nothing. Returns how many were added.
// The contact book is seeded too (DemoContacts), the same way.
int SeedDemoData(IIboStore& db);

// Everyone the demo opportunities name, and a few dozen more people.
std::vector<Contact> DemoContacts();

}  // namespace pelkor
