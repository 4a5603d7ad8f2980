#include "data/contact_import.h"

#include <algorithm>
#include <cctype>
#include <fstream>
#include <optional>
#include <sstream>

#include "data/data_error.h"

namespace pelkor {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr int kHexBase = 16;

}  // namespace

std::string_view WithoutMark(std::string_view text) {
  if (text.substr(0, kByteOrderMark.size()) == kByteOrderMark)
    text.remove_prefix(kByteOrderMark.size());
  return text;
}

std::string Trimmed(const std::string& text) {
  const auto first = text.find_first_not_of(" \t\r\n");
  if (first == std::string::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t\r\n") - first + 1);
}

namespace {

std::string Upper(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(),
                 [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
  return text;
}

// Splits on `separator`, honouring backslash escapes (which are kept for Unescape).
std::vector<std::string> SplitEscaped(const std::string& value, char separator) {
  std::vector<std::string> parts(1);
  for (std::size_t i = 0; i < value.size(); ++i) {
    if (value[i] == '\\' && i + 1 < value.size()) {
      parts.back() += value.substr(i, 2);
      ++i;
    } else if (value[i] == separator) {
      parts.emplace_back();
    } else {
      parts.back() += value[i];
    }
  }
  return parts;
}

std::string Unescape(const std::string& value) {
  std::string text;
  for (std::size_t i = 0; i < value.size(); ++i) {
    if (value[i] != '\\' || i + 1 == value.size()) {
      text += value[i];
      continue;
    }
    const char next = value[++i];
    text += (next == 'n' || next == 'N') ? '\n' : next;
  }
  return text;
}

std::string DecodeQuotedPrintable(const std::string& value) {
  std::string text;
  for (std::size_t i = 0; i < value.size(); ++i) {
    const bool escaped = value[i] == '=' && i + 2 < value.size() &&
                         std::isxdigit(static_cast<unsigned char>(value[i + 1])) != 0 &&
                         std::isxdigit(static_cast<unsigned char>(value[i + 2])) != 0;
    if (escaped) {
      text += static_cast<char>(std::stoi(value.substr(i + 1, 2), nullptr, kHexBase));
      i += 2;
    } else {
      text += value[i];
    }
  }
  return text;
}

// One logical line of a card: its first physical line, name, parameters and value.
struct Property {
  int line = 0;
  std::string name;
  std::string params;
  std::string value;
};

std::vector<std::pair<int, std::string>> PhysicalLines(std::string_view text) {
  std::vector<std::pair<int, std::string>> lines;
  std::istringstream in{std::string(text)};
  int number = 0;
  for (std::string line; std::getline(in, line);) {
    ++number;
    if (!line.empty() && line.back() == '\r') line.pop_back();
    lines.emplace_back(number, line);
  }
  return lines;
}

// Unfolds continuation lines (a leading blank, or a quoted-printable soft break) and splits
// each logical line into its parts.
std::vector<Property> Properties(std::string_view text) {
  std::vector<Property> properties;
  bool softBreak = false;
  for (const auto& [number, line] : PhysicalLines(text)) {
    const bool folded = !line.empty() && (line[0] == ' ' || line[0] == '\t');
    if ((folded || softBreak) && !properties.empty()) {
      properties.back().value += folded ? line.substr(1) : line;
    } else if (!line.empty()) {
      Property property{number, "", "", ""};
      const auto colon = line.find(':');
      const std::string head = line.substr(0, colon);
      property.value = colon == std::string::npos ? "" : line.substr(colon + 1);
      const auto semicolon = head.find(';');
      std::string name = Upper(head.substr(0, semicolon));
      if (const auto dot = name.find('.'); dot != std::string::npos) name = name.substr(dot + 1);
      property.name = colon == std::string::npos ? "" : name;
      property.params = semicolon == std::string::npos ? "" : Upper(head.substr(semicolon + 1));
      properties.push_back(property);
    }
    const Property* last = properties.empty() ? nullptr : &properties.back();
    softBreak = last != nullptr && last->params.find("QUOTED-PRINTABLE") != std::string::npos &&
                !last->value.empty() && last->value.back() == '=';
    if (softBreak) properties.back().value.pop_back();
  }
  return properties;
}

std::string ValueOf(const Property& property) {
  if (property.params.find("QUOTED-PRINTABLE") != std::string::npos) {
    return DecodeQuotedPrintable(property.value);
  }
  return property.value;
}

std::string JoinAddress(const std::vector<std::string>& parts) {
  // PO box; extended; street; locality; region; postal code; country.
  std::string text;
  const auto add = [&text](const std::string& part, const char* separator) {
    const std::string clean = Trimmed(Unescape(part));
    if (clean.empty()) return;
    if (!text.empty()) text += separator;
    text += clean;
  };
  constexpr std::size_t kStreet = 2;
  for (std::size_t i = 0; i < parts.size(); ++i) {
    add(parts[i], i <= kStreet || i == kStreet + 1 ? ", " : " ");
  }
  return text;
}

void TakeProperty(Contact& contact, const Property& property, std::string& formatted) {
  const std::string value = ValueOf(property);
  if (property.name == "N") {
    const auto parts = SplitEscaped(value, ';');
    contact.last = Trimmed(Unescape(parts[0]));
    if (parts.size() > 1) contact.first = Trimmed(Unescape(parts[1]));
  } else if (property.name == "FN") {
    formatted = Trimmed(Unescape(value));
  } else if (property.name == "ORG" && contact.company.empty()) {
    contact.company = Trimmed(Unescape(SplitEscaped(value, ';')[0]));
  } else if (property.name == "TEL" && contact.phone.empty()) {
    contact.phone = Trimmed(Unescape(value));
  } else if (property.name == "EMAIL" && contact.email.empty()) {
    contact.email = Trimmed(Unescape(value));
  } else if (property.name == "ADR" && contact.address.empty()) {
    contact.address = JoinAddress(SplitEscaped(value, ';'));
  }
}

// "Ann Lee" as first and last name when a card has no structured name.
void NameFromFormatted(Contact& contact, const std::string& formatted) {
  const auto space = formatted.rfind(' ');
  contact.first = space == std::string::npos ? "" : formatted.substr(0, space);
  contact.last = space == std::string::npos ? formatted : formatted.substr(space + 1);
}

}  // namespace

ContactImport ReadVCards(std::string_view text) {
  ContactImport result;
  std::optional<Contact> card;
  int started = 0;
  std::string formatted;
  for (const Property& property : Properties(WithoutMark(text))) {
    const std::string value = Upper(Trimmed(property.value));
    if (property.name == "BEGIN" && value == "VCARD") {
      if (card) result.skipped.push_back({started, "a contact without END:VCARD"});
      card = Contact{};
      started = property.line;
      formatted.clear();
    } else if (property.name == "END" && value == "VCARD" && card) {
      if (card->first.empty() && card->last.empty()) NameFromFormatted(*card, formatted);
      if (card->first.empty() && card->last.empty()) {
        result.skipped.push_back({started, "a contact without a name"});
      } else {
        result.contacts.push_back(*card);
      }
      card.reset();
    } else if (!card) {
      result.skipped.push_back({property.line, "text outside BEGIN:VCARD and END:VCARD"});
    } else if (property.name.empty()) {
      result.skipped.push_back({property.line, "a line that is not NAME:VALUE"});
    } else {
      TakeProperty(*card, property, formatted);
    }
  }
  if (card) result.skipped.push_back({started, "a contact without END:VCARD"});
  return result;
}

ContactImport ReadContactFile(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  if (!in) data_detail::RaiseDataError("Cannot read the contacts file '" + path + "'.");
  std::stringstream text;
  text << in.rdbuf();
  const std::string content = text.str();
  const std::string_view body = WithoutMark(content);
  const auto first = body.find_first_not_of(" \t\r\n");
  if (first != std::string_view::npos &&
      Upper(std::string(body.substr(first, 11))) == "BEGIN:VCARD") {
    return ReadVCards(content);
  }
  return ReadCsvContacts(content);
}

}  // namespace pelkor
