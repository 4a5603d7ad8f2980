#pragma once

#include <string_view>

namespace pelkor::detail {

// Well-formed UTF-8: no stray continuation bytes, overlong forms, surrogates or code points
// beyond U+10FFFF.
bool IsValidUtf8(std::string_view text);

}  // namespace pelkor::detail
