#include "widgets/product_view_box.h"

#include "values/error.h"

namespace pelkedit {

IProductView& ProductViewBox::View() const {
  if (view_) return *view_;
  if (failure_) throw *failure_;
  Raise(errnum::kObjectVariableNotSet, Name());
}

}  // namespace pelkedit
