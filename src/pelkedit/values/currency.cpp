#include "values/currency.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "values/error.h"

namespace pelkedit {
namespace {

constexpr const char* kSource = "Currency";
constexpr int kDecimals = 4;
constexpr int kDecimalBase = 10;
// Beyond 2^63 / 10^4 units the scaled value no longer fits.
constexpr double kLargestNumber = 922337203685477.5807;

[[noreturn]] void Overflow() {
  Raise(errnum::kOverflow, kSource);
}

bool AllDigits(std::string_view text) {
  for (const char c : text) {
    if (c < '0' || c > '9') return false;
  }
  return true;
}

// Half to even: the first dropped digit decides, a tie goes to the even neighbour.
bool RoundsUp(std::uint64_t kept, std::string_view dropped) {
  if (dropped.empty()) return false;
  const int first = dropped.front() - '0';
  if (first != kDecimalBase / 2) return first > kDecimalBase / 2;
  if (dropped.find_first_not_of('0', 1) != std::string_view::npos) return true;
  return kept % 2 != 0;
}

constexpr std::int64_t kMax = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t kMin = std::numeric_limits<std::int64_t>::min();

}  // namespace

Currency Currency::FromNumber(double value) {
  if (std::isnan(value) || std::fabs(value) > kLargestNumber) Overflow();
  // nearbyint rounds half to even in the default rounding mode.
  const double scaled = std::nearbyint(value * static_cast<double>(kScale));
  if (std::fabs(scaled) >= 0x1p63) Overflow();
  return FromScaled(static_cast<std::int64_t>(scaled));
}

Currency Currency::Parse(std::string_view text) {
  bool negative = false;
  if (!text.empty() && (text.front() == '-' || text.front() == '+')) {
    negative = text.front() == '-';
    text.remove_prefix(1);
  }
  const std::size_t point = text.find('.');
  const std::string_view whole = text.substr(0, point);
  const std::string_view fraction =
      point == std::string_view::npos ? std::string_view() : text.substr(point + 1);
  if (!AllDigits(whole) || !AllDigits(fraction) || whole.size() + fraction.size() == 0) {
    Raise(errnum::kTypeMismatch, kSource);
  }
  const std::string_view keptFraction =
      fraction.substr(0, std::min<std::size_t>(fraction.size(), kDecimals));
  std::string digits(whole);
  digits += keptFraction;
  digits.append(kDecimals - keptFraction.size(), '0');
  const std::uint64_t limit = negative ? static_cast<std::uint64_t>(kMax) + 1 : kMax;
  std::uint64_t magnitude = 0;
  for (const char c : digits) {
    const auto digit = static_cast<std::uint64_t>(c - '0');
    if (magnitude > (limit - digit) / kDecimalBase) Overflow();
    magnitude = magnitude * kDecimalBase + digit;
  }
  if (RoundsUp(magnitude, fraction.substr(keptFraction.size()))) {
    if (magnitude == limit) Overflow();
    ++magnitude;
  }
  if (negative) return FromScaled(static_cast<std::int64_t>(0 - magnitude));
  return FromScaled(static_cast<std::int64_t>(magnitude));
}

std::string Currency::ToString() const {
  const bool negative = scaled_ < 0;
  // The magnitude as unsigned so that the most negative value has one too.
  const std::uint64_t magnitude =
      negative ? 0 - static_cast<std::uint64_t>(scaled_) : static_cast<std::uint64_t>(scaled_);
  std::string text = std::to_string(magnitude / kScale);
  std::string fraction = std::to_string(magnitude % kScale);
  fraction.insert(0, kDecimals - fraction.size(), '0');
  while (!fraction.empty() && fraction.back() == '0') fraction.pop_back();
  if (!fraction.empty()) text += "." + fraction;
  return negative ? "-" + text : text;
}

Currency operator+(Currency a, Currency b) {
  if (b.scaled_ > 0 ? a.scaled_ > kMax - b.scaled_ : a.scaled_ < kMin - b.scaled_) Overflow();
  return Currency::FromScaled(a.scaled_ + b.scaled_);
}

Currency operator-(Currency a, Currency b) {
  if (b.scaled_ < 0 ? a.scaled_ > kMax + b.scaled_ : a.scaled_ < kMin + b.scaled_) Overflow();
  return Currency::FromScaled(a.scaled_ - b.scaled_);
}

}  // namespace pelkedit
