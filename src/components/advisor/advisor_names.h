#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "values/variant.h"

namespace pelkor {

// Source of the errors every advisor engine raises.
inline constexpr const char* kAdvisorSource = "PelkInrt.Advisor";

enum class AdvisorNameKind { kFact, kResult };

// One fact or result of the advisor engine: its exact name, whether the editor sets it or
// only reads it, and the type of its value.
struct AdvisorName {
  std::string_view name;
  AdvisorNameKind kind;
  pelkedit::VariantType type;
};

// Every fact and result, facts first.
std::span<const AdvisorName> AdvisorNames();
// Position of a name in AdvisorNames(); names are matched exactly.
std::optional<std::size_t> FindAdvisorName(std::string_view name);
// Like FindAdvisorName, but an unknown name is error 438 naming it.
std::size_t RequireAdvisorName(std::string_view name);

// The value converted to the type the name takes: a Long is accepted where a Double is
// expected; any other mismatch is error 13 naming the fact or result.
pelkedit::Variant ConvertForName(const AdvisorName& name, const pelkedit::Variant& value);

// The value a fact holds before anything sets it.
pelkedit::Variant DefaultFactValue(const AdvisorName& fact);

}  // namespace pelkor
