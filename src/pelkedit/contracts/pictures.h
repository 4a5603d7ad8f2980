#pragma once

#include <cstdint>

// The numbers of the pictures the editor shows, which a host draws: the priorities, the form's
// own drawings, and (in control/tab_strips.h) one per tab of each strip.
namespace pelkedit::picture {

// The user's (light) and the advisor's (dark) priority, one per priority 1 to 5.
inline constexpr std::int32_t kUserPriorityFirst = 113;
inline constexpr std::int32_t kAdvisorPriorityFirst = 118;
inline constexpr std::int32_t kPriorityCount = 5;

// Drawings that belong to the form's design, which a page gives its picture boxes.
inline constexpr std::int32_t kMatrix = 201;
inline constexpr std::int32_t kUserSquare = 202;
inline constexpr std::int32_t kAdvisorSquare = 203;
inline constexpr std::int32_t kCommonSquare = 204;
inline constexpr std::int32_t kSalesCycle = 205;
inline constexpr std::int32_t kCycleMarker = 206;
// The "..." beside a decision maker's name that opens the contact book.
inline constexpr std::int32_t kLookupButton = 207;

}  // namespace pelkedit::picture
