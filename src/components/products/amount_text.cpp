// Amounts as people type and read them, in the marks of their locale.
#include <array>
#include <charconv>
#include <cmath>
#include <optional>
#include <string_view>

#include "product_text.h"
#include "values/error.h"

namespace pelkor {
namespace {

constexpr std::size_t kThousandsGroup = 3;
// A space groups thousands in many locales, typed plainly or as a (narrow) no-break space.
constexpr std::array<std::string_view, 3> kSpaceGroups = {" ", "\u00A0", "\u202F"};

[[noreturn]] void Fail(const std::string& why) {
  throw ProductTextError(why);
}

std::string_view Trim(std::string_view text) {
  const auto first = text.find_first_not_of(" \t");
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

// The length of the group mark at the start of `text`, 0 when there is none.
std::size_t GroupMarkAt(std::string_view text, const NumberMarks& marks) {
  if (!marks.group.empty() && text.starts_with(marks.group)) return marks.group.size();
  for (const std::string_view space : kSpaceGroups) {
    if (marks.decimal != space && text.starts_with(space)) return space.size();
  }
  return 0;
}

// "1e+30", "2.5E3": how stored numbers of another writer may look.
std::optional<double> ExponentForm(std::string_view text) {
  if (text.find_first_of("eE") == std::string_view::npos) return std::nullopt;
  if (!text.empty() && text.front() == '+') text.remove_prefix(1);
  double value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (end != text.data() + text.size()) return std::nullopt;
  if (error == std::errc::result_out_of_range) return HUGE_VAL;
  if (error != std::errc() || !std::isfinite(value)) return std::nullopt;
  return value;
}

std::string Quoted(const std::string& text) {
  return "\"" + text + "\"";
}

}  // namespace

std::string FormatAmount(Currency value, int minDecimals, const NumberMarks& marks) {
  std::string plain = value.ToString();
  const bool negative = !plain.empty() && plain.front() == '-';
  if (negative) plain.erase(0, 1);
  const auto point = plain.find('.');
  std::string whole = plain.substr(0, point);
  std::string fraction = point == std::string::npos ? "" : plain.substr(point + 1);
  if (fraction.size() < static_cast<std::size_t>(minDecimals)) {
    fraction.append(static_cast<std::size_t>(minDecimals) - fraction.size(), '0');
  }
  for (std::size_t at = whole.size(); at > kThousandsGroup; at -= kThousandsGroup) {
    whole.insert(at - kThousandsGroup, marks.group);
  }
  std::string text = negative ? "-" + whole : whole;
  return fraction.empty() ? text : text + marks.decimal + fraction;
}

Currency ParseAmount(const std::string& text, const std::string& what, const NumberMarks& marks) {
  // "quantity "1,5" is not a number": the cell and what was typed, then why.
  const auto about = [&](const std::string& why) { return what + " " + Quoted(text) + " " + why; };
  const std::string_view trimmed = Trim(text);
  if (const auto exponent = ExponentForm(trimmed)) {
    try {
      return Currency::FromNumber(*exponent);
    } catch (const pelkedit::PelkError&) {
      Fail(about("is too large"));
    }
  }
  // The plain decimal form Currency reads: group marks checked and dropped, the decimal mark
  // made a point.
  std::string plain;
  std::string_view rest = trimmed;
  if (!rest.empty() && (rest.front() == '-' || rest.front() == '+')) {
    plain += rest.front();
    rest.remove_prefix(1);
  }
  std::size_t digitsInGroup = 0;
  bool grouped = false;
  bool decimals = false;
  bool ambiguous = false;
  // The first group of a grouped number holds one to three digits, the others exactly three;
  // anything else reads two ways.
  const auto groupClosed = [&] {
    const bool fits = grouped ? digitsInGroup == kThousandsGroup
                              : digitsInGroup >= 1 && digitsInGroup <= kThousandsGroup;
    ambiguous = ambiguous || !fits;
  };
  while (!rest.empty()) {
    if (IsDigit(rest.front())) {
      plain += rest.front();
      ++digitsInGroup;
      rest.remove_prefix(1);
    } else if (!decimals && rest.starts_with(marks.decimal)) {
      if (grouped) groupClosed();
      plain += '.';
      decimals = true;
      rest.remove_prefix(marks.decimal.size());
    } else if (const std::size_t mark = GroupMarkAt(rest, marks); mark > 0 && !decimals) {
      groupClosed();
      grouped = true;
      digitsInGroup = 0;
      rest.remove_prefix(mark);
    } else {
      Fail(about("is not a number"));
    }
  }
  if (grouped && !decimals) groupClosed();
  if (ambiguous) {
    Fail(about("cannot be read: here " + Quoted(marks.decimal) + " marks the decimals and " +
               Quoted(marks.group) + " groups thousands"));
  }
  try {
    return Currency::Parse(plain);
  } catch (const pelkedit::PelkError& error) {
    if (error.Number() == pelkedit::errnum::kOverflow) Fail(about("is too large"));
    Fail(about("is not a number"));
  }
}

}  // namespace pelkor
