#pragma once

#include <cstdint>
#include <string>
#include <variant>

#include "values/date.h"

namespace pelkedit {

enum class VariantType { kEmpty, kBoolean, kLong, kDouble, kString, kDate };

const char* VariantTypeName(VariantType type);

// A value as records and the advisor exchange it by name: empty, Boolean, 32-bit integer,
// double, UTF-8 string or date.
class Variant {
 public:
  Variant() = default;
  Variant(bool v) : value_(v) {}                      // NOLINT(google-explicit-constructor)
  Variant(std::int32_t v) : value_(v) {}              // NOLINT
  Variant(double v) : value_(v) {}                    // NOLINT
  Variant(std::string v) : value_(std::move(v)) {}    // NOLINT
  Variant(const char* v) : value_(std::string(v)) {}  // NOLINT
  Variant(Date v) : value_(v) {}                      // NOLINT

  VariantType Type() const { return static_cast<VariantType>(value_.index()); }
  bool IsEmpty() const { return Type() == VariantType::kEmpty; }

  // Typed reads; a value of another type is error 13. A 32-bit integer reads as a double.
  bool AsBool() const;
  std::int32_t AsLong() const;
  double AsDouble() const;
  const std::string& AsString() const;
  Date AsDate() const;

  // The value as the scenario runner prints it: True/False, integers, shortest doubles,
  // ISO dates, quoted and escaped strings, "Empty".
  std::string ToDisplay() const;

  friend bool operator==(const Variant&, const Variant&) = default;

 private:
  std::variant<std::monostate, bool, std::int32_t, double, std::string, Date> value_;
};

// Quote and escape a string the way the scenario language writes it.
std::string QuoteString(const std::string& text);
// Shortest text that reads back as the same double.
std::string FormatDouble(double value);

}  // namespace pelkedit
