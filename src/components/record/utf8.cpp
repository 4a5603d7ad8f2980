#include "record/utf8.h"

#include <cstdint>

namespace pelkor::detail {
namespace {

constexpr unsigned char kContinuationMask = 0xC0;
constexpr unsigned char kContinuationTag = 0x80;

bool IsContinuation(unsigned char byte) {
  return (byte & kContinuationMask) == kContinuationTag;
}

// Valid ranges of the second byte after a lead byte (RFC 3629, table 3-7 of Unicode).
struct LeadRule {
  unsigned char leadMin;
  unsigned char leadMax;
  int length;
  unsigned char secondMin;
  unsigned char secondMax;
};

constexpr LeadRule kRules[] = {
    {0xC2, 0xDF, 2, 0x80, 0xBF}, {0xE0, 0xE0, 3, 0xA0, 0xBF}, {0xE1, 0xEC, 3, 0x80, 0xBF},
    {0xED, 0xED, 3, 0x80, 0x9F}, {0xEE, 0xEF, 3, 0x80, 0xBF}, {0xF0, 0xF0, 4, 0x90, 0xBF},
    {0xF1, 0xF3, 4, 0x80, 0xBF}, {0xF4, 0xF4, 4, 0x80, 0x8F},
};

const LeadRule* RuleFor(unsigned char lead) {
  for (const auto& rule : kRules) {
    if (lead >= rule.leadMin && lead <= rule.leadMax) return &rule;
  }
  return nullptr;
}

}  // namespace

bool IsValidUtf8(std::string_view text) {
  constexpr unsigned char kAsciiLimit = 0x80;
  std::size_t pos = 0;
  while (pos < text.size()) {
    const auto lead = static_cast<unsigned char>(text[pos]);
    if (lead < kAsciiLimit) {
      ++pos;
      continue;
    }
    const LeadRule* rule = RuleFor(lead);
    if (rule == nullptr) return false;
    const auto length = static_cast<std::size_t>(rule->length);
    if (length > text.size() - pos) return false;
    const auto second = static_cast<unsigned char>(text[pos + 1]);
    if (second < rule->secondMin || second > rule->secondMax) return false;
    for (std::size_t i = 2; i < length; ++i) {
      if (!IsContinuation(static_cast<unsigned char>(text[pos + i]))) return false;
    }
    pos += length;
  }
  return true;
}

}  // namespace pelkor::detail
