#include "product_list_view.h"

#include "product_text.h"
#include "values/error.h"

namespace pelkor {
namespace {

constexpr const char* kSource = "PelkorProduct.ProductView";
constexpr int kMoneyDecimals = 2;
constexpr int kPlainDecimals = 0;

}  // namespace

void ProductListView::SetProducts(const std::string& text) {
  text_ = text;
  changed_ = false;
  try {
    list_ = ReadProductText(text);
    unreadable_.clear();
    // A stored list whose total no longer fits an amount is kept as it is, like any other
    // list this view cannot take.
    static_cast<void>(list_.Total());
  } catch (const ProductTextError& error) {
    list_ = {};
    unreadable_ = error.what();
  } catch (const pelkedit::PelkError&) {
    list_ = {};
    unreadable_ = "the total of its lines is too large for an amount";
  }
  Changed();
  if (!unreadable_.empty()) {
    pelkedit::Raise(pelkedit::errnum::kInvalidPropertyValue, kSource,
                    "The product list cannot be read: " + unreadable_ +
                        ". It is kept as stored and cannot be edited.");
  }
}

std::string ProductListView::ProductText() {
  if (!unreadable_.empty() || !changed_) return text_;
  return WriteProductText(list_);
}

pelkedit::Currency ProductListView::TotalValue() {
  if (!unreadable_.empty()) {
    pelkedit::Raise(pelkedit::errnum::kInvalidPropertyValue, kSource,
                    "The product list cannot be read: " + unreadable_);
  }
  return list_.Total();
}

std::string ProductListView::CellText(std::size_t line, Column column) const {
  const ProductLine& l = list_.lines.at(line);
  switch (column) {
    case Column::kProduct:
      return l.product;
    case Column::kQuantity:
      return FormatAmount(l.quantity, kPlainDecimals, marks_);
    case Column::kUnitPrice:
      return FormatAmount(l.unitPrice, kMoneyDecimals, marks_);
    case Column::kDiscount:
      return l.discountPercent == Currency()
                 ? ""
                 : FormatAmount(l.discountPercent, kPlainDecimals, marks_);
    case Column::kValue:
      try {
        return FormatAmount(l.Value(), kMoneyDecimals, marks_);
      } catch (const pelkedit::PelkError&) {
        return "too large";
      }
    case Column::kDelivery:
      return l.deliveryDate;
    case Column::kNote:
      return l.note;
  }
  return "";
}

std::string ProductListView::Enter(std::size_t line, Column column, const std::string& text) {
  if (!Editable(line)) return "the product list cannot be edited";
  const std::string why = Take(line, column, text);
  // The table shows the message away from the cell: it names the line it is about.
  return why.empty() ? why : "line " + std::to_string(line + 1) + ": " + why;
}

std::string ProductListView::Take(std::size_t line, Column column, const std::string& text) {
  ProductLine edited = list_.lines[line];
  try {
    switch (column) {
      case Column::kProduct:
        edited.product = text;
        break;
      case Column::kQuantity:
        edited.quantity = ParseAmount(text, "quantity", marks_);
        // Fractions are hours, days or metres; what is given back is a credit at a negative
        // unit price, so that the quantity always counts something delivered.
        if (edited.quantity < Currency()) {
          return "the quantity cannot be negative: enter a credit as a negative unit price";
        }
        break;
      case Column::kUnitPrice:
        // A negative unit price is a credit: a trade-in, a refund or a goodwill deduction.
        edited.unitPrice = ParseAmount(text, "unit price", marks_);
        break;
      case Column::kDiscount:
        edited.discountPercent = text.empty() ? Currency() : ParseAmount(text, "discount", marks_);
        if (!ValidDiscount(edited.discountPercent))
          return "the discount is a percentage from 0 to 100";
        break;
      case Column::kValue:
        return "the value is quantity times unit price less the discount";
      case Column::kDelivery:
        if (!ValidDeliveryDate(text)) return "the delivery date is written YYYY-MM-DD";
        edited.deliveryDate = text;
        break;
      case Column::kNote:
        edited.note = text;
        break;
    }
    // A line whose value no longer fits, or that pushes the total out of range, is refused.
    ProductList trial = list_;
    trial.lines[line] = edited;
    trial.Total();
  } catch (const ProductTextError& error) {
    return error.what();
  } catch (const pelkedit::PelkError&) {
    return "the value of the line or the total would be too large";
  }
  if (edited == list_.lines[line]) return "";
  list_.lines[line] = std::move(edited);
  changed_ = true;
  Changed();
  return "";
}

std::optional<std::size_t> ProductListView::AddLine() {
  if (!unreadable_.empty()) return std::nullopt;
  list_.lines.emplace_back();
  changed_ = true;
  Changed();
  return list_.lines.size() - 1;
}

void ProductListView::RemoveLine(std::size_t line) {
  if (!Editable(line)) return;
  list_.lines.erase(list_.lines.begin() + static_cast<std::ptrdiff_t>(line));
  changed_ = true;
  Changed();
}

bool ProductListView::Editable(std::size_t line) const {
  return unreadable_.empty() && line < list_.lines.size();
}

void ProductListView::Changed() {
  if (onChanged) onChanged();
}

std::shared_ptr<ProductListView> CreateProductListView() {
  return std::make_shared<ProductListView>();
}

}  // namespace pelkor
