#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "contracts/product_view.h"
#include "widgets/widget.h"

namespace pelkedit {

// The place on the IBO Info page where the product view component draws its list. The widget
// holds the component; the editor calls its operations through View().
class ProductViewBox : public Widget {
 public:
  explicit ProductViewBox(std::string name) : Widget(std::move(name), WidgetKind::kProductView) {}

  void Attach(std::shared_ptr<IProductView> view) { view_ = std::move(view); }
  // Keeps the error that stopped the component from being created: every call raises it.
  void CreationFailed(std::int32_t number, std::string source, std::string description);
  IProductView& View() const;
  const std::shared_ptr<IProductView>& Shared() const { return view_; }

 private:
  std::shared_ptr<IProductView> view_;
  std::int32_t failedNumber_ = 0;
  std::string failedSource_;
  std::string failedDescription_;
};

}  // namespace pelkedit
