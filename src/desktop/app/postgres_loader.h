#pragma once

namespace pelkor::desktop {

// Lets the editor open PostgreSQL databases through the pelkor-postgres module, loaded when the
// first server URI is opened: a user of a database file never pays for libpq.
void UsePostgresModule();

}  // namespace pelkor::desktop
