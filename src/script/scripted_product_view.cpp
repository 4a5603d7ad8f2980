#include "scripted_product_view.h"

#include <array>
#include <string_view>

#include "values/variant.h"

namespace pelkscript {

void ScriptedProductView::SetProducts(const std::string& text) {
  rec_.log.Add(WorldLog::Kind::kCalls, "products.SetProducts " + pelkedit::QuoteString(text));
  Fault("SetProducts");
  text_ = text;
  changed_ = false;
}

std::string ScriptedProductView::ProductText() {
  Fault("ProductText");
  return text_;
}

bool ScriptedProductView::ProductsChanged() {
  Fault("ProductsChanged");
  return changed_;
}

pelkedit::Currency ScriptedProductView::TotalValue() {
  Fault("TotalValue");
  return total_;
}

void ScriptedProductView::UserEdited(std::string text, bool changed, pelkedit::Currency total) {
  text_ = std::move(text);
  changed_ = changed;
  total_ = total;
}

void ScriptedProductView::Fault(const std::string& operation) {
  rec_.faults.Check("products", operation, pelkedit::kProductViewProgId);
}

bool ProductViewOperation(const std::string& name) {
  constexpr std::array<std::string_view, 4> kOperations = {"SetProducts", "ProductText",
                                                           "ProductsChanged", "TotalValue"};
  for (const std::string_view operation : kOperations) {
    if (operation == name) return true;
  }
  return false;
}

}  // namespace pelkscript
