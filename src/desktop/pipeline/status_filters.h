#pragma once

#include <cstdint>
#include <vector>

namespace pelkor::desktop {

// The pipeline's status filter: a caption and the statuses it lists (none: every status).
struct StatusFilter {
  const char* caption;
  std::vector<std::int32_t> statuses;
};

inline const std::vector<StatusFilter>& StatusFilters() {
  static const std::vector<StatusFilter> filters = {{"Open", {1}},         {"Won", {2}},
                                                    {"Lost", {3}},         {"Cancelled", {4}},
                                                    {"Closed", {2, 3, 4}}, {"All statuses", {}}};
  return filters;
}

// Places in the status filter.
constexpr int kOpenDeals = 0;
constexpr int kAllStatuses = 5;

}  // namespace pelkor::desktop
