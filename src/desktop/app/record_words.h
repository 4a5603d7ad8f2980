#pragma once

#include <QString>
#include <optional>
#include <string>
#include <vector>

#include "contracts/record.h"

namespace pelkor::desktop {

// A record property as people read it: the question's caption ("Will It Happen?"), or for a
// trial-close slot the caption and the slot ("Barriers? (trial close 3)").
QString CaptionOf(const std::string& property, std::optional<std::int32_t> slot = std::nullopt);

// A value as the editor shows it: an answer's text ("High", "Budget approved"), Yes or No, a
// date in the user's format, a status by name, money with its decimals.
QString TextOf(const std::string& property, const pelkedit::Variant& value,
               pelkedit::IRecord& record);

// How two product lists differ, a line for each product added, removed or changed
// ("Added: Pump x 2 at 1,150.00"); a text that cannot be read is shown as it is.
std::vector<QString> ProductChanges(const std::string& from, const std::string& to);

}  // namespace pelkor::desktop
