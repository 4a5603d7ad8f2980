#pragma once

#include <string>

#include "contracts/product_view.h"
#include "recording.h"

namespace pelkscript {

// The product view of a scenario: it holds whatever text it was last given, by the editor or by
// `products`, and reports the changed flag and total that `products` set. SetProducts is
// recorded in the calls log; every operation can be made to fail with `fail products.NAME`.
class ScriptedProductView : public pelkedit::IProductView {
 public:
  explicit ScriptedProductView(Recording recording) : rec_(recording) {}

  void SetProducts(const std::string& text) override;
  std::string ProductText() override;
  bool ProductsChanged() override;
  pelkedit::Currency TotalValue() override;

  // What the user has done in the view (`products "TEXT" CHANGED TOTAL`).
  void UserEdited(std::string text, bool changed, pelkedit::Currency total);
  const std::string& Text() const { return text_; }

 private:
  void Fault(const std::string& operation);
  Recording rec_;
  std::string text_;
  bool changed_ = false;
  pelkedit::Currency total_;
};

// The operations `fail products.NAME` may name.
bool ProductViewOperation(const std::string& name);

}  // namespace pelkscript
