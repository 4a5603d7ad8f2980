#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>

namespace pelkedit {

// Error numbers shared with the classic runtime the product was written against.
namespace errnum {
inline constexpr std::int32_t kInvalidProcedureCall = 5;
inline constexpr std::int32_t kOverflow = 6;
inline constexpr std::int32_t kSubscriptOutOfRange = 9;
inline constexpr std::int32_t kTypeMismatch = 13;
inline constexpr std::int32_t kObjectVariableNotSet = 91;
inline constexpr std::int32_t kInvalidPropertyValue = 380;
inline constexpr std::int32_t kCannotCreateObject = 429;
inline constexpr std::int32_t kNotSupported = 438;
}  // namespace errnum

// The one error type of the editor and its collaborators: number, source, description.
class PelkError : public std::runtime_error {
 public:
  PelkError(std::int32_t number, std::string source, std::string description);

  std::int32_t Number() const { return number_; }
  const std::string& Source() const { return source_; }
  const std::string& Description() const { return description_; }

 private:
  std::int32_t number_;
  std::string source_;
  std::string description_;
};

// The classic runtime's description for a well-known error number ("" when unknown).
std::string StandardDescription(std::int32_t number);

// Raise an error with the classic description for its number.
[[noreturn]] void Raise(std::int32_t number, const std::string& source);
[[noreturn]] void Raise(std::int32_t number, const std::string& source,
                        const std::string& description);

}  // namespace pelkedit
