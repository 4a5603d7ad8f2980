#include "values/variant.h"

#include <charconv>
#include <cstdio>

#include "values/error.h"

namespace pelkedit {
namespace {
constexpr const char* kSource = "PelkEdit.Variant";
}

const char* VariantTypeName(VariantType type) {
  switch (type) {
    case VariantType::kEmpty:
      return "Empty";
    case VariantType::kBoolean:
      return "Boolean";
    case VariantType::kLong:
      return "Long";
    case VariantType::kDouble:
      return "Double";
    case VariantType::kString:
      return "String";
    case VariantType::kDate:
      return "Date";
  }
  return "?";
}

bool Variant::AsBool() const {
  if (const auto* v = std::get_if<bool>(&value_)) return *v;
  Raise(errnum::kTypeMismatch, kSource);
}

std::int32_t Variant::AsLong() const {
  if (const auto* v = std::get_if<std::int32_t>(&value_)) return *v;
  Raise(errnum::kTypeMismatch, kSource);
}

double Variant::AsDouble() const {
  if (const auto* v = std::get_if<double>(&value_)) return *v;
  if (const auto* v = std::get_if<std::int32_t>(&value_)) return *v;
  Raise(errnum::kTypeMismatch, kSource);
}

const std::string& Variant::AsString() const {
  if (const auto* v = std::get_if<std::string>(&value_)) return *v;
  Raise(errnum::kTypeMismatch, kSource);
}

Date Variant::AsDate() const {
  if (const auto* v = std::get_if<Date>(&value_)) return *v;
  Raise(errnum::kTypeMismatch, kSource);
}

std::string FormatDouble(double value) {
  char buf[64];
  const auto result = std::to_chars(buf, buf + sizeof buf, value);
  return std::string(buf, result.ptr);
}

std::string QuoteString(const std::string& text) {
  std::string out = "\"";
  for (const char c : text) {
    switch (c) {
      case '"':
        out += "\\\"";
        break;
      case '\\':
        out += "\\\\";
        break;
      case '\r':
        out += "\\r";
        break;
      case '\n':
        out += "\\n";
        break;
      case '\t':
        out += "\\t";
        break;
      default:
        if (static_cast<unsigned char>(c) < 0x20) {
          char buf[8];
          std::snprintf(buf, sizeof buf, "\\u%04X", static_cast<unsigned>(c));
          out += buf;
        } else {
          out += c;
        }
    }
  }
  return out + "\"";
}

std::string Variant::ToDisplay() const {
  switch (Type()) {
    case VariantType::kEmpty:
      return "Empty";
    case VariantType::kBoolean:
      return AsBool() ? "True" : "False";
    case VariantType::kLong:
      return std::to_string(AsLong());
    case VariantType::kDouble:
      return FormatDouble(std::get<double>(value_));
    case VariantType::kString:
      return QuoteString(AsString());
    case VariantType::kDate:
      return AsDate().ToIso();
  }
  return "";
}

}  // namespace pelkedit
