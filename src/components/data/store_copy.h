#pragma once

#include "data/ibo_store.h"

namespace pelkor {

// What a copy added to its target.
struct CopyReport {
  int main = 0;       // IBOs added to the main table
  int archive = 0;    // IBOs added to the archive
  int unchanged = 0;  // IBOs the target already held exactly so
  int contacts = 0;   // contacts added to the book
};

// Copies every IBO of both tables and the contact book from `source` into `target` (a team
// moving its file to a server, say). An IBO the target already holds exactly so is left as it
// is, so an interrupted copy can simply be run again; one it holds differently stops the copy
// there (error 5 naming it). The rows go a batch at a time, each batch in one transaction, so
// memory stays the same at any size; who created and last saved each IBO is copied with it.
CopyReport CopyDatabase(IIboStore& source, IIboStore& target);

}  // namespace pelkor
