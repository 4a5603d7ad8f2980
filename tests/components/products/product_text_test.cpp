// The product list's text form: exact money, unknown fields kept through a round trip, older
// tab-separated texts read, and clear errors for texts that cannot be read.
#include "products/product_text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace pelkor {
namespace {

using ::testing::HasSubstr;

std::string ErrorOf(const std::string& text) {
  try {
    ReadProductText(text);
  } catch (const ProductTextError& error) {
    return error.what();
  }
  return "";
}

TEST(ProductText, LineValuesAndTotalsAreExactDecimals) {
  ProductList list;
  ProductLine tenth;
  tenth.quantity = Currency::Parse("3");
  tenth.unitPrice = Currency::Parse("0.1");
  ProductLine discounted;
  discounted.quantity = Currency::Parse("3");
  discounted.unitPrice = Currency::Parse("19.99");
  discounted.discountPercent = Currency::Parse("12.5");
  list.lines = {tenth, discounted};
  EXPECT_EQ(tenth.Value().ToString(), "0.3");
  // 59.97 less 12.5 % is 52.47375: half to even at the fourth decimal.
  EXPECT_EQ(discounted.Value().ToString(), "52.4738");
  EXPECT_EQ(list.Total().ToString(), "52.7738");
  const ProductList back = ReadProductText(WriteProductText(list));
  EXPECT_EQ(back, list);
  EXPECT_EQ(back.Total(), list.Total());
}

TEST(ProductText, UnknownFieldsAndUnicodeSurviveARoundTrip) {
  const std::string text =
      R"({"format":"pelkor-products","version":1,"currency":"EUR",)"
      R"("lines":[{"product":"Kühlschrank – groß","quantity":"2","unitPrice":"1499.95",)"
      R"("sku":"KS-200","warranty":{"years":3},"note":"Lieferung\r\nper Spedition"}]})";
  const ProductList list = ReadProductText(text);
  ASSERT_EQ(list.lines.size(), 1u);
  EXPECT_EQ(list.lines[0].product, "Kühlschrank – groß");
  EXPECT_EQ(list.lines[0].note, "Lieferung\r\nper Spedition");
  EXPECT_EQ(list.Total().ToString(), "2999.9");
  const ProductList back = ReadProductText(WriteProductText(list));
  EXPECT_EQ(back, list);
  EXPECT_EQ(back.unknown["currency"], "EUR");
  EXPECT_EQ(back.lines[0].unknown["warranty"]["years"], 3);
  EXPECT_THAT(WriteProductText(list), HasSubstr(R"("sku":"KS-200")"));
}

TEST(ProductText, AnEmptyListIsAnEmptyTextAndBlankTextsAreEmptyLists) {
  EXPECT_EQ(WriteProductText(ProductList{}), "");
  EXPECT_TRUE(ReadProductText("").lines.empty());
  EXPECT_TRUE(ReadProductText(" \r\n").lines.empty());
}

TEST(ProductText, TheOlderTabSeparatedFormIsRead) {
  const ProductList list =
      ReadProductText("120\tFleetTrack T200\t349.00\r\n1\tIntegration\t9,500.00\r\n");
  ASSERT_EQ(list.lines.size(), 2u);
  EXPECT_EQ(list.lines[1].product, "Integration");
  EXPECT_EQ(list.Total().ToString(), "51380");
  EXPECT_THAT(ErrorOf("3\tServer"), HasSubstr("line 1 is neither a product list"));
  EXPECT_THAT(ErrorOf("x\tServer\t10"), HasSubstr("line 1: quantity \"x\" is not a number"));
}

TEST(ProductText, TextsThatCannotBeReadSayWhy) {
  EXPECT_THAT(ErrorOf(R"({"format":"pelkor-products","version":1,"lines":[)"),
              HasSubstr("not well formed (at byte"));
  EXPECT_THAT(ErrorOf(R"({"format":"other","version":1})"), HasSubstr("not a product list"));
  EXPECT_THAT(ErrorOf(R"({"format":"pelkor-products"})"), HasSubstr("no valid version"));
  EXPECT_THAT(ErrorOf(R"({"format":"pelkor-products","version":2,"lines":[]})"),
              HasSubstr("newer version (2)"));
  const std::string prefix = R"({"format":"pelkor-products","version":1,"lines":[)";
  EXPECT_THAT(ErrorOf(prefix + R"({"product":"A"},{"quantity":"lots"}]})"),
              HasSubstr("line 2: quantity \"lots\" is not a number"));
  EXPECT_THAT(ErrorOf(prefix + R"({"discountPercent":"120"}]})"),
              HasSubstr("line 1: discountPercent is not between 0 and 100"));
  EXPECT_THAT(ErrorOf(prefix + R"({"deliveryDate":"2027-02-30"}]})"),
              HasSubstr("line 1: deliveryDate is not a date"));
  EXPECT_THAT(ErrorOf(prefix + R"({"product":7}]})"), HasSubstr("line 1: product is not a text"));
  EXPECT_THAT(ErrorOf(prefix + R"({"unitPrice":"1e400"}]})"), HasSubstr("is too large"));
  EXPECT_THAT(ErrorOf(prefix + R"({"unitPrice":1e30}]})"),
              HasSubstr("line 1: unitPrice \"1e+30\" is too large"));
  // A number no double holds is refused by the reader itself, as the same kind of error.
  EXPECT_THAT(ErrorOf(prefix + R"({"quantity":1e400}]})"), HasSubstr("number too large"));
  EXPECT_EQ(ReadProductText(prefix + R"({"quantity":2.5e1}]})").lines[0].quantity.ToString(), "25");
}

// Copying and writing a JSON value recurse per level: a crafted text nested far deeper than a
// product list is refused before it can exhaust the stack, while ordinary nesting in unknown
// fields still round-trips.
TEST(ProductText, DeepNestingIsRefusedNotACrash) {
  const std::size_t levels = 100000;
  const std::string deep = R"({"format":"pelkor-products","version":1,"x":)" +
                           std::string(levels, '[') + std::string(levels, ']') + "}";
  EXPECT_THAT(ErrorOf(deep), HasSubstr("nested more than 32 levels deep"));
  // Brackets inside strings are text, not nesting.
  const std::string quoted =
      R"({"format":"pelkor-products","version":1,"x":")" + std::string(levels, '[') + R"("})";
  EXPECT_EQ(ReadProductText(quoted).unknown["x"].get<std::string>().size(), levels);
  const std::string nested =
      R"({"format":"pelkor-products","lines":[],"version":1,"x":[[[[{"y":[1]}]]]]})";
  EXPECT_EQ(WriteProductText(ReadProductText(nested)), nested);
}

TEST(ProductText, AmountsReadAndPrintAsPeopleWriteThem) {
  EXPECT_EQ(FormatAmount(Currency::Parse("1234567.5"), 2), "1,234,567.50");
  EXPECT_EQ(FormatAmount(Currency::Parse("-950"), 2), "-950.00");
  EXPECT_EQ(FormatAmount(Currency::Parse("2.125"), 0), "2.125");
  EXPECT_EQ(ParseAmount("1,150.00", "price").ToString(), "1150");
  EXPECT_THROW(ParseAmount("1 1/2", "quantity"), ProductTextError);
}

std::string AmountError(const std::string& text, const NumberMarks& marks) {
  try {
    return "read as " + ParseAmount(text, "quantity", marks).ToString();
  } catch (const ProductTextError& error) {
    return error.what();
  }
}

// "1,5" is one and a half to a German and fifteen-or-a-typo to an English reader: each locale
// reads what is unambiguous in its marks and refuses the rest, naming the cell.
TEST(ProductText, AmountsFollowTheUsersLocaleAndAmbiguityIsRefused) {
  const NumberMarks english;
  const NumberMarks german{",", "."};
  const NumberMarks french{",", "\u202F"};
  EXPECT_EQ(AmountError("1,5", german), "read as 1.5");
  EXPECT_EQ(AmountError("1.234,56", german), "read as 1234.56");
  EXPECT_EQ(AmountError(" 2,50 ", german), "read as 2.5");
  EXPECT_EQ(AmountError("1 234,5", french), "read as 1234.5");
  EXPECT_EQ(AmountError("1\u202F234,5", french), "read as 1234.5");
  EXPECT_EQ(AmountError("1,234,567.5", english), "read as 1234567.5");
  EXPECT_EQ(AmountError("-1,000", english), "read as -1000");
  EXPECT_EQ(AmountError("1,5", english),
            "quantity \"1,5\" cannot be read: here \".\" marks the decimals and \",\" groups "
            "thousands");
  EXPECT_THAT(AmountError("2,50", english), HasSubstr("cannot be read"));
  EXPECT_THAT(AmountError("1.5", german), HasSubstr("cannot be read"));
  EXPECT_THAT(AmountError("12,34.5", english), HasSubstr("cannot be read"));
  EXPECT_THAT(AmountError("1,2345", english), HasSubstr("cannot be read"));
  EXPECT_THAT(AmountError("1.2.3", english), HasSubstr("is not a number"));
  EXPECT_THAT(AmountError("1e30", english), HasSubstr("\"1e30\" is too large"));
  EXPECT_EQ(FormatAmount(Currency::Parse("1234567.5"), 2, german), "1.234.567,50");
}

}  // namespace
}  // namespace pelkor
