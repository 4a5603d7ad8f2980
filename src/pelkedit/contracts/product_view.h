#pragma once

#include <string>

#include "platform/com_object.h"
#include "values/currency.h"

namespace pelkedit {

inline constexpr const char* kProductViewProgId = "PelkorProduct.ProductView";

// The product list editor shown on the IBO Info tab: the editor hands it the record's product
// text and reads back the text, whether the user changed it, and the total. The text form is
// the view's own; the editor never parses it.
class IProductView : public ComObject {
 public:
  virtual void SetProducts(const std::string& text) = 0;
  virtual std::string ProductText() = 0;
  virtual bool ProductsChanged() = 0;
  // The total of the listed products, as the view works it out.
  virtual Currency TotalValue() = 0;
};

}  // namespace pelkedit
