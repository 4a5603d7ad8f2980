#pragma once

#include <string>
#include <variant>

#include "values/variant.h"

namespace pelkscript {

// A name printed as it stands: the focused widget, `none`.
struct BareName {
  std::string text;
  friend bool operator==(const BareName&, const BareName&) = default;
};

// What an observation reads: a value, or a bare name.
using Observed = std::variant<pelkedit::Variant, BareName>;

std::string Display(const Observed& value);

// Whether the expected word, read as the type of the actual value, equals it. An expected
// word that cannot be read as that type does not match; one that is no value at all is a
// ScriptError.
bool Matches(const Observed& actual, const std::string& expectedRaw);

// A widget position or size: the float the widget holds, as the double its shortest text
// reads back as (so 0.1f prints and compares as 0.1).
double PositionValue(float value);

}  // namespace pelkscript
