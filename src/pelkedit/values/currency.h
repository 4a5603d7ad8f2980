#pragma once

#include <compare>
#include <cstdint>
#include <string>
#include <string_view>

namespace pelkedit {

// A fixed-point money value with four decimal places, as the classic runtime's currency type:
// exact sums, and conversions that round half to even at the fourth decimal.
class Currency {
 public:
  static constexpr std::int64_t kScale = 10000;
  static constexpr std::int64_t kHundredthsScale = 100;

  constexpr Currency() = default;
  static constexpr Currency FromScaled(std::int64_t tenThousandths) {
    Currency c;
    c.scaled_ = tenThousandths;
    return c;
  }
  // Error 6 (overflow) outside the currency range; NaN is error 6 too.
  static Currency FromNumber(double value);
  // Decimal text: optional sign, digits, optional point and more digits. Error 13 when the
  // text is not such a number, error 6 when it is out of range.
  static Currency Parse(std::string_view text);

  constexpr std::int64_t Scaled() const { return scaled_; }
  // Whole units and the hundredths beyond them, each truncated toward zero with the sign of
  // the value.
  constexpr std::int64_t WholeUnits() const { return scaled_ / kScale; }
  constexpr std::int64_t Hundredths() const {
    return (scaled_ % kScale) / (kScale / kHundredthsScale);
  }
  double ToDouble() const { return static_cast<double>(scaled_) / kScale; }
  // "1234.5678", "-0.5", "12": no trailing zeros after the point.
  std::string ToString() const;

  friend constexpr auto operator<=>(Currency, Currency) = default;
  // Error 6 when the sum or difference leaves the range.
  friend Currency operator+(Currency a, Currency b);
  friend Currency operator-(Currency a, Currency b);

 private:
  std::int64_t scaled_ = 0;
};

}  // namespace pelkedit
