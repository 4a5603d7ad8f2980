#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "contracts/journal.h"

namespace pelkor {

// Source of the errors the journal raises.
inline constexpr const char* kJournalErrorSource = "PelkEdit.ChangeJournal";

// Unsaved changes kept in `folder` (made private when missing), one file per record of the
// database named `database`: written to a temporary file, flushed to the disk and renamed over
// the previous entry, so a kill or a power cut at any instant leaves the previous entry or the
// new one. An entry that does not read back whole (a damaged disk) is not offered.
std::shared_ptr<pelkedit::IChangeJournal> OpenFileJournal(const std::filesystem::path& folder,
                                                          const std::string& database);

// Where the desktop keeps unsaved changes: $XDG_STATE_HOME/pelkor, else ~/.local/state/pelkor.
std::filesystem::path DefaultJournalFolder();

}  // namespace pelkor
