#pragma once

#include <memory>
#include <optional>
#include <string>

#include "contracts/product_view.h"
#include "values/error.h"
#include "widgets/widget.h"

namespace pelkedit {

// The place on the IBO Info page where the product view component draws its list. The widget
// holds the component; the editor calls its operations through View().
class ProductViewBox : public Widget {
 public:
  explicit ProductViewBox(std::string name) : Widget(std::move(name), WidgetKind::kProductView) {}

  void Attach(std::shared_ptr<IProductView> view) { view_ = std::move(view); }
  // Keeps the error that stopped the component from being created: every call raises it.
  void CreationFailed(const PelkError& error) { failure_ = error; }
  IProductView& View() const;
  const std::shared_ptr<IProductView>& Shared() const { return view_; }

 private:
  std::shared_ptr<IProductView> view_;
  std::optional<PelkError> failure_;
};

}  // namespace pelkedit
