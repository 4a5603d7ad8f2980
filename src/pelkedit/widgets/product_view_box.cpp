#include "widgets/product_view_box.h"

#include "values/error.h"

namespace pelkedit {

void ProductViewBox::CreationFailed(std::int32_t number, std::string source,
                                    std::string description) {
  failedNumber_ = number;
  failedSource_ = std::move(source);
  failedDescription_ = std::move(description);
}

IProductView& ProductViewBox::View() const {
  if (view_) return *view_;
  if (failedNumber_ != 0) Raise(failedNumber_, failedSource_, failedDescription_);
  Raise(errnum::kObjectVariableNotSet, Name());
}

}  // namespace pelkedit
