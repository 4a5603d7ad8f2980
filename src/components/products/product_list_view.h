#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "contracts/product_view.h"
#include "product_list.h"
#include "product_text.h"

namespace pelkor {

// The product view component: holds the list a salesperson edits line by line and answers the
// editor's four questions about it. A desktop table draws it; the editing calls below are what
// the table does on the user's behalf.
class ProductListView : public pelkedit::IProductView {
 public:
  enum class Column { kProduct, kQuantity, kUnitPrice, kDiscount, kValue, kDelivery, kNote };
  static constexpr int kColumnCount = 7;

  // A text that cannot be read is error 380 naming why; the view then keeps that text as it
  // came, reports it unchanged and takes no edits, so nothing of it can be lost.
  void SetProducts(const std::string& text) override;
  std::string ProductText() override;
  bool ProductsChanged() override { return changed_; }
  // Error 6 when the total leaves the currency range; the error of SetProducts while the text
  // could not be read.
  pelkedit::Currency TotalValue() override;

  const ProductList& List() const { return list_; }
  // The marks the user's locale writes numbers with; cells show and read amounts in them.
  void SetNumberMarks(NumberMarks marks) { marks_ = std::move(marks); }
  const NumberMarks& Marks() const { return marks_; }
  // Why the last text handed in could not be read ("" when it could).
  const std::string& Unreadable() const { return unreadable_; }

  // What a cell shows; the value column is worked out, the others are as entered.
  std::string CellText(std::size_t line, Column column) const;
  // Takes what the user entered into a cell. Returns "" when taken, otherwise why not, naming
  // the line (the line keeps what it had). The value column cannot be entered. Quantities may
  // be fractional (hours, metres) but not negative; a negative unit price is a credit.
  std::string Enter(std::size_t line, Column column, const std::string& text);
  // A new empty line at the end and its index; none while the text could not be read.
  std::optional<std::size_t> AddLine();
  void RemoveLine(std::size_t line);

  // Called after every change of the list, whether set by the editor or made by the user.
  std::function<void()> onChanged;

 private:
  std::string Take(std::size_t line, Column column, const std::string& text);
  void Changed();
  bool Editable(std::size_t line) const;
  ProductList list_;
  std::string text_;
  std::string unreadable_;
  bool changed_ = false;
  NumberMarks marks_;
};

std::shared_ptr<ProductListView> CreateProductListView();

}  // namespace pelkor
