// Fuzz target for the product list's text form: any text is either refused with a
// ProductTextError, or read into a list whose total is defined (or an overflow error) and whose
// written form reads back into the same list.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "products/product_text.h"
#include "values/error.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);
  pelkor::ProductList list;
  try {
    list = pelkor::ReadProductText(text);
  } catch (const pelkor::ProductTextError&) {
    return 0;
  }
  try {
    static_cast<void>(list.Total());
  } catch (const pelkedit::PelkError& error) {
    if (error.Number() != pelkedit::errnum::kOverflow) std::abort();
  }
  std::string written;
  try {
    written = pelkor::WriteProductText(list);
  } catch (...) {
    std::abort();
  }
  // Text that is not UTF-8 is written with replacement characters, so only valid texts must
  // come back exactly; every written text must read back.
  const pelkor::ProductList again = pelkor::ReadProductText(written);
  if (pelkor::WriteProductText(again) != written) std::abort();
  return 0;
}
