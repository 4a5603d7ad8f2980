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

// How a person writes numbers: the decimal mark and the mark between groups of thousands, as
// their locale has them ("." and "," in English, "," and "." in German).
struct NumberMarks {
  std::string decimal = ".";
  std::string group = ",";
};

// Money and quantities as people read them: thousands grouped, at least `minDecimals` decimals
// ("1,150.00", "2.5" with the default marks).
std::string FormatAmount(Currency value, int minDecimals, const NumberMarks& marks = {});
// Reads what FormatAmount writes, with or without the group marks (a space groups too), and the
// exponent form of stored numbers ("1e+30"). A text that could mean two numbers under these
// marks ("1,5" where "," groups thousands) is refused rather than guessed. ProductTextError
// naming `what` when the text is not a number or is too large for an amount.
Currency ParseAmount(const std::string& text, const std::string& what,
                     const NumberMarks& marks = {});

}  // namespace pelkor
