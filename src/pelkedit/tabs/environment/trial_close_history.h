#pragma once

#include <string>

namespace pelkedit {

class IRecord;

// The enacted trial closes of the record's ring, oldest first, as the history box shows them
// ("Empty" when there are none); dates in the user's short-date format.
std::string TrialCloseHistory(IRecord& rec, const std::string& shortDateFormat);

}  // namespace pelkedit
