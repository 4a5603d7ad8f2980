#include "observed.h"

#include <charconv>
#include <optional>

#include "lexer.h"
#include "script_error.h"

namespace pelkscript {
namespace {

using pelkedit::Variant;
using pelkedit::VariantType;

// Reads the expected word as a value, or keeps it as a bare name.
Observed ReadExpected(const std::string& raw) {
  try {
    return ParseValue(raw);
  } catch (const ScriptError&) {
    if (raw.empty() || raw.front() == '"') throw;
    return BareName{raw};
  }
}

// The expected value converted to `type`, or nullopt when it cannot be read as that type.
std::optional<Variant> AsType(const Observed& expected, VariantType type) {
  if (const auto* name = std::get_if<BareName>(&expected)) {
    if (type == VariantType::kString) return Variant(name->text);
    if (type == VariantType::kEmpty && name->text == "Empty") return Variant();
    return std::nullopt;
  }
  const auto& value = std::get<Variant>(expected);
  if (value.Type() == type) return value;
  if (type == VariantType::kDouble && value.Type() == VariantType::kLong) {
    return Variant(value.AsDouble());
  }
  return std::nullopt;
}

}  // namespace

std::string Display(const Observed& value) {
  if (const auto* name = std::get_if<BareName>(&value)) return name->text;
  return std::get<Variant>(value).ToDisplay();
}

bool Matches(const Observed& actual, const std::string& expectedRaw) {
  const Observed expected = ReadExpected(expectedRaw);
  if (const auto* name = std::get_if<BareName>(&actual)) {
    if (const auto* word = std::get_if<BareName>(&expected)) return word->text == name->text;
    const auto& value = std::get<Variant>(expected);
    return value.Type() == VariantType::kString && value.AsString() == name->text;
  }
  const auto& value = std::get<Variant>(actual);
  const auto converted = AsType(expected, value.Type());
  return converted.has_value() && *converted == value;
}

double PositionValue(float value) {
  char buf[32];
  const auto result = std::to_chars(buf, buf + sizeof buf, value);
  double out = 0;
  std::from_chars(buf, result.ptr, out);
  return out;
}

}  // namespace pelkscript
