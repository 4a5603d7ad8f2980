#pragma once

#include <stdexcept>
#include <string>

#include "product_list.h"

namespace pelkor {

// The text form of a product list, as the record's Products holds it: a JSON object
// {"format": "pelkor-products", "version": 1, "lines": [...]} whose money and quantities are
// decimal strings, so that nothing passes through binary floating point. An empty list is "".
// Texts of the older tab-separated form (quantity, product, unit price per line) are read too.
inline constexpr const char* kProductTextFormat = "pelkor-products";
inline constexpr int kProductTextVersion = 1;

// Why a product text cannot be read, and where.
class ProductTextError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

std::string WriteProductText(const ProductList& list);
// ProductTextError when the text is malformed, of a newer version, or holds a value a line
// cannot take.
ProductList ReadProductText(const std::string& text);

// Money and quantities as people read them: thousands separated, at least `minDecimals`
// decimals ("1,150.00", "2.5"); ParseAmount reads that form back (separators allowed) and
// throws ProductTextError naming `what` when it is not a number.
std::string FormatAmount(Currency value, int minDecimals);
Currency ParseAmount(const std::string& text, const std::string& what);

}  // namespace pelkor
