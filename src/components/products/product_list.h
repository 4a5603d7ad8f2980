#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "values/currency.h"

namespace pelkor {

using pelkedit::Currency;

// One line of the products offered: what, how many, at what price and discount, when it is
// to be delivered, and the salesperson's note on it.
struct ProductLine {
  std::string product;
  // Quantities may be fractional (hours, metres); four decimals like money.
  Currency quantity = Currency::FromScaled(Currency::kScale);
  Currency unitPrice;
  // Percent off the quantity times the unit price, 0 to 100.
  Currency discountPercent;
  // "" or YYYY-MM-DD.
  std::string deliveryDate;
  std::string note;
  // Fields this version does not know, kept as they came so that a round trip keeps them.
  nlohmann::json unknown = nlohmann::json::object();

  // Quantity x unit price less the discount, rounded half to even at the fourth decimal.
  // Error 6 when it does not fit the currency range.
  Currency Value() const;
  friend bool operator==(const ProductLine&, const ProductLine&) = default;
};

struct ProductList {
  std::vector<ProductLine> lines;
  nlohmann::json unknown = nlohmann::json::object();

  // The sum of the line values; error 6 when it does not fit the currency range.
  Currency Total() const;
  friend bool operator==(const ProductList&, const ProductList&) = default;
};

// Whether a discount is one a line can hold.
bool ValidDiscount(Currency percent);
// Whether the text is "" or a real calendar date written YYYY-MM-DD.
bool ValidDeliveryDate(const std::string& text);

}  // namespace pelkor
