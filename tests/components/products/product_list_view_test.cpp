// The product view as the editor and the desktop table use it: the stored text comes back
// untouched until the user changes the list, refused entries change nothing, and a text that
// cannot be read is kept and reported, never overwritten.
#include "products/product_list_view.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "products/product_text.h"
#include "values/error.h"

namespace pelkor {
namespace {

using Column = ProductListView::Column;
using ::testing::HasSubstr;

constexpr const char* kStored = "2\tCutMaster 85\t8,950.00\r\n10\tConsumables kit\t145.50";

TEST(ProductListView, TheStoredTextComesBackUntilTheUserChangesTheList) {
  ProductListView view;
  int notices = 0;
  view.onChanged = [&] { ++notices; };
  view.SetProducts(kStored);
  EXPECT_FALSE(view.ProductsChanged());
  EXPECT_EQ(view.ProductText(), kStored);
  EXPECT_EQ(view.TotalValue().ToString(), "19355");
  EXPECT_EQ(view.CellText(1, Column::kValue), "1,455.00");

  EXPECT_EQ(view.Enter(1, Column::kQuantity, "12"), "");
  EXPECT_TRUE(view.ProductsChanged());
  EXPECT_EQ(view.TotalValue().ToString(), "19646");
  const ProductList written = ReadProductText(view.ProductText());
  EXPECT_EQ(written.lines[1].quantity.ToString(), "12");
  EXPECT_EQ(notices, 2);

  // Handing in a text again starts over: unchanged.
  view.SetProducts(view.ProductText());
  EXPECT_FALSE(view.ProductsChanged());
}

TEST(ProductListView, RefusedEntriesSayWhyAndChangeNothing) {
  ProductListView view;
  view.SetProducts(kStored);
  EXPECT_THAT(view.Enter(0, Column::kQuantity, "two"),
              HasSubstr("line 1: quantity \"two\" is not a number"));
  EXPECT_THAT(view.Enter(1, Column::kQuantity, "-3"), HasSubstr("line 2: the quantity cannot be"));
  EXPECT_THAT(view.Enter(0, Column::kDiscount, "150"), HasSubstr("0 to 100"));
  EXPECT_THAT(view.Enter(0, Column::kDelivery, "next week"), HasSubstr("YYYY-MM-DD"));
  EXPECT_THAT(view.Enter(0, Column::kValue, "1"), HasSubstr("quantity times unit price"));
  EXPECT_THAT(view.Enter(0, Column::kUnitPrice, "922337203685477"), HasSubstr("too large"));
  EXPECT_THAT(view.Enter(5, Column::kNote, "x"), HasSubstr("cannot be edited"));
  EXPECT_FALSE(view.ProductsChanged());
  EXPECT_EQ(view.ProductText(), kStored);
  // Entering what a cell already holds is no change either.
  EXPECT_EQ(view.Enter(0, Column::kProduct, "CutMaster 85"), "");
  EXPECT_FALSE(view.ProductsChanged());
  // Hours are fractional, and a trade-in is a credit: both are lines a list can hold.
  EXPECT_EQ(view.Enter(0, Column::kQuantity, "2.5"), "");
  EXPECT_EQ(view.Enter(1, Column::kUnitPrice, "-145.50"), "");
  EXPECT_EQ(view.TotalValue().ToString(), "20920");
}

TEST(ProductListView, CellsShowAndReadTheUsersNumberMarks) {
  ProductListView view;
  view.SetNumberMarks({",", "."});
  view.SetProducts(kStored);
  EXPECT_EQ(view.CellText(0, Column::kUnitPrice), "8.950,00");
  EXPECT_EQ(view.Enter(1, Column::kQuantity, "1,5"), "");
  EXPECT_EQ(view.CellText(1, Column::kQuantity), "1,5");
  EXPECT_EQ(ReadProductText(view.ProductText()).lines[1].quantity.ToString(), "1.5");
}

TEST(ProductListView, AStoredListWhoseTotalOverflowsIsKeptAndExplained) {
  ProductListView view;
  const std::string stored = "1\tA\t900000000000000\n1\tB\t900000000000000";
  EXPECT_THROW(view.SetProducts(stored), pelkedit::PelkError);
  EXPECT_EQ(view.ProductText(), stored);
  try {
    view.TotalValue();
    FAIL() << "an overflowing total was returned";
  } catch (const pelkedit::PelkError& error) {
    EXPECT_THAT(error.Description(), HasSubstr("the total of its lines is too large"));
  }
}

TEST(ProductListView, LinesAreAddedAndRemoved) {
  ProductListView view;
  view.SetProducts("");
  const auto added = view.AddLine();
  ASSERT_TRUE(added.has_value());
  EXPECT_EQ(view.Enter(*added, Column::kProduct, "Site survey"), "");
  EXPECT_EQ(view.Enter(*added, Column::kUnitPrice, "1,200"), "");
  EXPECT_EQ(view.Enter(*added, Column::kDiscount, "10"), "");
  EXPECT_EQ(view.TotalValue().ToString(), "1080");
  view.RemoveLine(*added);
  EXPECT_TRUE(view.ProductsChanged());
  EXPECT_EQ(view.ProductText(), "");
}

TEST(ProductListView, AnUnreadableTextIsKeptAndReported) {
  ProductListView view;
  const std::string broken = R"({"format":"pelkor-products","version":9,"lines":[]})";
  try {
    view.SetProducts(broken);
    FAIL() << "an unreadable text was taken";
  } catch (const pelkedit::PelkError& error) {
    EXPECT_EQ(error.Number(), pelkedit::errnum::kInvalidPropertyValue);
    EXPECT_THAT(error.Description(), HasSubstr("newer version (9)"));
    EXPECT_THAT(error.Description(), HasSubstr("kept as stored"));
  }
  EXPECT_EQ(view.ProductText(), broken);
  EXPECT_FALSE(view.ProductsChanged());
  EXPECT_FALSE(view.AddLine().has_value());
  EXPECT_THROW(view.TotalValue(), pelkedit::PelkError);
  EXPECT_THAT(view.Unreadable(), HasSubstr("newer version"));
}

}  // namespace
}  // namespace pelkor
