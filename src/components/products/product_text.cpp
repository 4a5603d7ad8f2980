#include "product_text.h"

#include <algorithm>
#include <sstream>

#include "values/error.h"

namespace pelkor {
namespace {

using nlohmann::json;

namespace key {
constexpr const char* kFormat = "format";
constexpr const char* kVersion = "version";
constexpr const char* kLines = "lines";
constexpr const char* kProduct = "product";
constexpr const char* kQuantity = "quantity";
constexpr const char* kUnitPrice = "unitPrice";
constexpr const char* kDiscount = "discountPercent";
constexpr const char* kDelivery = "deliveryDate";
constexpr const char* kNote = "note";
}  // namespace key

constexpr int kLegacyFields = 3;

[[noreturn]] void Fail(const std::string& why) {
  throw ProductTextError(why);
}

std::string LineLabel(std::size_t index) {
  return "line " + std::to_string(index + 1);
}

// A JSON number or decimal string as a currency value.
Currency AmountOf(const json& value, const std::string& what) {
  if (value.is_string()) return ParseAmount(value.get<std::string>(), what);
  if (value.is_number()) return ParseAmount(value.dump(), what);
  Fail(what + " is not a number");
}

std::string StringOf(const json& value, const std::string& what) {
  if (!value.is_string()) Fail(what + " is not a text");
  return value.get<std::string>();
}

ProductLine ReadLine(const json& object, std::size_t index) {
  const std::string label = LineLabel(index);
  if (!object.is_object()) Fail(label + " is not an object");
  ProductLine line;
  for (const auto& [name, value] : object.items()) {
    const std::string what = label + ": " + name;
    if (name == key::kProduct) {
      line.product = StringOf(value, what);
    } else if (name == key::kQuantity) {
      line.quantity = AmountOf(value, what);
    } else if (name == key::kUnitPrice) {
      line.unitPrice = AmountOf(value, what);
    } else if (name == key::kDiscount) {
      line.discountPercent = AmountOf(value, what);
      if (!ValidDiscount(line.discountPercent)) Fail(what + " is not between 0 and 100");
    } else if (name == key::kDelivery) {
      line.deliveryDate = StringOf(value, what);
      if (!ValidDeliveryDate(line.deliveryDate)) Fail(what + " is not a date YYYY-MM-DD");
    } else if (name == key::kNote) {
      line.note = StringOf(value, what);
    } else {
      line.unknown[name] = value;
    }
  }
  return line;
}

// Copying and writing a JSON value recurse once per level, so a text nested thousands of levels
// deep would exhaust the stack; a product list needs four.
constexpr std::size_t kMaxNesting = 32;

// The deepest nesting of arrays and objects in a JSON text, strings skipped.
std::size_t NestingOf(const std::string& text) {
  std::size_t depth = 0;
  std::size_t deepest = 0;
  bool inString = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (inString) {
      if (c == '\\')
        ++i;
      else if (c == '"')
        inString = false;
    } else if (c == '"') {
      inString = true;
    } else if (c == '[' || c == '{') {
      deepest = std::max(deepest, ++depth);
    } else if ((c == ']' || c == '}') && depth > 0) {
      --depth;
    }
  }
  return deepest;
}

ProductList ReadJson(const std::string& text) {
  if (NestingOf(text) > kMaxNesting) {
    Fail("the product list is nested more than " + std::to_string(kMaxNesting) + " levels deep");
  }
  json document;
  try {
    document = json::parse(text);
  } catch (const json::parse_error& error) {
    Fail("the product list is not well formed (at byte " + std::to_string(error.byte) + ")");
  } catch (const json::out_of_range&) {
    Fail("the product list holds a number too large to read");
  } catch (const json::exception& error) {
    Fail(std::string("the product list is not well formed (") + error.what() + ")");
  }
  if (!document.is_object()) Fail("the product list is not a JSON object");
  const auto format = document.find(key::kFormat);
  if (format == document.end() || *format != kProductTextFormat) {
    Fail(std::string("the text is not a product list (\"format\" is not \"") + kProductTextFormat +
         "\")");
  }
  const auto version = document.find(key::kVersion);
  if (version == document.end() || !version->is_number_integer() || *version < 1) {
    Fail("the product list has no valid version");
  }
  if (*version > kProductTextVersion) {
    Fail("the product list was written by a newer version (" + version->dump() +
         ") of the product view; this one reads version " + std::to_string(kProductTextVersion));
  }
  ProductList list;
  const auto lines = document.find(key::kLines);
  if (lines != document.end()) {
    if (!lines->is_array()) Fail("\"lines\" is not a list");
    for (std::size_t i = 0; i < lines->size(); ++i) list.lines.push_back(ReadLine((*lines)[i], i));
  }
  for (const auto& [name, value] : document.items()) {
    if (name != key::kFormat && name != key::kVersion && name != key::kLines) {
      list.unknown[name] = value;
    }
  }
  return list;
}

std::vector<std::string> SplitLines(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream in(text);
  for (std::string line; std::getline(in, line);) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    lines.push_back(line);
  }
  return lines;
}

// The tab-separated form of earlier releases: "QUANTITY<TAB>PRODUCT<TAB>UNIT PRICE" per line.
ProductList ReadTabSeparated(const std::string& text) {
  ProductList list;
  const std::vector<std::string> rows = SplitLines(text);
  for (std::size_t i = 0; i < rows.size(); ++i) {
    if (rows[i].empty()) continue;
    std::vector<std::string> fields;
    std::istringstream in(rows[i]);
    for (std::string field; std::getline(in, field, '\t');) fields.push_back(field);
    const std::string label = LineLabel(i);
    if (fields.size() != kLegacyFields) {
      Fail(label + " is neither a product list nor quantity, product and unit price separated " +
           "by tabs");
    }
    ProductLine line;
    line.quantity = ParseAmount(fields[0], label + ": quantity");
    line.product = fields[1];
    line.unitPrice = ParseAmount(fields[2], label + ": unit price");
    list.lines.push_back(std::move(line));
  }
  return list;
}

bool Blank(const std::string& text) {
  return std::all_of(text.begin(), text.end(),
                     [](char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; });
}

}  // namespace

std::string WriteProductText(const ProductList& list) {
  if (list.lines.empty() && list.unknown.empty()) return "";
  json document = list.unknown.is_object() ? list.unknown : json::object();
  document[key::kFormat] = kProductTextFormat;
  document[key::kVersion] = kProductTextVersion;
  json lines = json::array();
  for (const ProductLine& line : list.lines) {
    json object = line.unknown.is_object() ? line.unknown : json::object();
    object[key::kProduct] = line.product;
    object[key::kQuantity] = line.quantity.ToString();
    object[key::kUnitPrice] = line.unitPrice.ToString();
    object[key::kDiscount] = line.discountPercent.ToString();
    object[key::kDelivery] = line.deliveryDate;
    object[key::kNote] = line.note;
    lines.push_back(std::move(object));
  }
  document[key::kLines] = std::move(lines);
  // A text that is not valid UTF-8 is kept readable rather than refused at save time.
  return document.dump(-1, ' ', false, json::error_handler_t::replace);
}

ProductList ReadProductText(const std::string& text) {
  if (Blank(text)) return {};
  const auto first = text.find_first_not_of(" \t\r\n");
  if (text[first] == '{') return ReadJson(text);
  return ReadTabSeparated(text);
}

}  // namespace pelkor
