#include "values/error.h"

namespace pelkedit {

PelkError::PelkError(std::int32_t number, std::string source, std::string description)
    : std::runtime_error(description),
      number_(number),
      source_(std::move(source)),
      description_(std::move(description)) {}

std::string StandardDescription(std::int32_t number) {
  switch (number) {
    case errnum::kInvalidProcedureCall:
      return "Invalid procedure call or argument";
    case errnum::kOverflow:
      return "Overflow";
    case errnum::kSubscriptOutOfRange:
      return "Subscript out of range";
    case errnum::kTypeMismatch:
      return "Type mismatch";
    case errnum::kObjectVariableNotSet:
      return "Object variable or With block variable not set";
    case errnum::kInvalidPropertyValue:
      return "Invalid property value";
    case errnum::kCannotCreateObject:
      return "ActiveX component can't create object";
    case errnum::kNotSupported:
      return "Object doesn't support this property or method";
    default:
      return "";
  }
}

void Raise(std::int32_t number, const std::string& source) {
  throw PelkError(number, source, StandardDescription(number));
}

void Raise(std::int32_t number, const std::string& source, const std::string& description) {
  throw PelkError(number, source, description);
}

}  // namespace pelkedit
