#include "product_list.h"

#include <cstdint>
#include <limits>

#include "values/date.h"
#include "values/error.h"

namespace pelkor {
namespace {

// Wide enough for the product of two scaled values and a scaled percentage.
__extension__ using Wide = __int128;

constexpr std::int64_t kHundredPercent = 100 * Currency::kScale;
constexpr const char* kSource = "PelkorProduct.ProductView";
constexpr std::size_t kIsoDateLength = 10;

Wide Magnitude(Wide v) {
  return v < 0 ? -v : v;
}

// numerator / denominator rounded half to even.
Wide DivideHalfEven(Wide numerator, Wide denominator) {
  Wide quotient = numerator / denominator;
  const Wide remainder = Magnitude(numerator % denominator);
  const Wide twice = remainder * 2;
  const bool up = twice > denominator || (twice == denominator && quotient % 2 != 0);
  if (up) quotient += numerator < 0 ? -1 : 1;
  return quotient;
}

}  // namespace

Currency ProductLine::Value() const {
  // Each factor is below 2^63, so their product fits; the percentage needs room of its own.
  const Wide gross = static_cast<Wide>(quantity.Scaled()) * unitPrice.Scaled();
  const Wide remaining = kHundredPercent - discountPercent.Scaled();
  constexpr Wide kRoom = (static_cast<Wide>(1) << 126) / kHundredPercent;
  if (Magnitude(gross) > kRoom) pelkedit::Raise(pelkedit::errnum::kOverflow, kSource);
  const Wide value =
      DivideHalfEven(gross * remaining, static_cast<Wide>(Currency::kScale) * kHundredPercent);
  if (value > std::numeric_limits<std::int64_t>::max() ||
      value < std::numeric_limits<std::int64_t>::min()) {
    pelkedit::Raise(pelkedit::errnum::kOverflow, kSource);
  }
  return Currency::FromScaled(static_cast<std::int64_t>(value));
}

Currency ProductList::Total() const {
  Currency total;
  for (const ProductLine& line : lines) total = total + line.Value();
  return total;
}

bool ValidDiscount(Currency percent) {
  return percent >= Currency() && percent.Scaled() <= kHundredPercent;
}

bool ValidDeliveryDate(const std::string& text) {
  if (text.empty()) return true;
  if (text.size() != kIsoDateLength) return false;
  const auto date = pelkedit::Date::Parse(text);
  return date.has_value();
}

}  // namespace pelkor
