// Contacts from vCard files (2.1, 3.0, 4.0), read a logical line at a time: memory holds the
// card being read and the contacts found, never a copy of every line.
#include "data/contact_import.h"

#include <algorithm>
#include <cctype>
#include <optional>
#include <set>

#include "data/data_error.h"

namespace pelkor {

std::string Trimmed(const std::string& text) {
  const auto first = text.find_first_not_of(" \t\r\n");
  if (first == std::string::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t\r\n") - first + 1);
}

namespace {

constexpr int kHexBase = 16;
// The parts of a structured value that are read: N's family and given name, ORG's name and
// ADR's seven; whatever follows stays in the last part, unread.
constexpr std::size_t kNameParts = 2;
constexpr std::size_t kOrganizationParts = 1;
constexpr std::size_t kAddressParts = 7;

std::string Upper(std::string_view text) {
  std::string upper(text);
  std::transform(upper.begin(), upper.end(), upper.begin(),
                 [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
  return upper;
}

// The first `count` parts of `value` split on `separator`, honouring backslash escapes (which
// are kept for Unescape).
std::vector<std::string> SplitEscaped(const std::string& value, char separator, std::size_t count) {
  std::vector<std::string> parts(1);
  for (std::size_t i = 0; i < value.size(); ++i) {
    if (value[i] == '\\' && i + 1 < value.size()) {
      parts.back().append(value, i, 2);
      ++i;
    } else if (value[i] == separator) {
      if (parts.size() == count) break;
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

// One logical line of a card: its first physical line, name and value, and whether the value
// is quoted-printable (looked up once, not at every continuation line).
struct Property {
  int line = 0;
  std::string name;
  std::string value;
  bool quotedPrintable = false;
};

Property StartProperty(int number, std::string_view line) {
  Property property;
  property.line = number;
  const auto colon = line.find(':');
  const std::string_view head = line.substr(0, colon);
  property.value = colon == std::string_view::npos ? "" : std::string(line.substr(colon + 1));
  const auto semicolon = head.find(';');
  std::string name = Upper(head.substr(0, semicolon));
  if (const auto dot = name.find('.'); dot != std::string::npos) name.erase(0, dot + 1);
  property.name = colon == std::string_view::npos ? "" : name;
  property.quotedPrintable =
      semicolon != std::string_view::npos &&
      Upper(head.substr(semicolon + 1)).find("QUOTED-PRINTABLE") != std::string::npos;
  return property;
}

std::string ValueOf(const Property& property) {
  return property.quotedPrintable ? DecodeQuotedPrintable(property.value) : property.value;
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

// "Ann Lee" as first and last name when a card has no structured name.
void NameFromFormatted(Contact& contact, const std::string& formatted) {
  const auto space = formatted.rfind(' ');
  contact.first = space == std::string::npos ? "" : formatted.substr(0, space);
  contact.last = space == std::string::npos ? formatted : formatted.substr(space + 1);
}

// Takes a card's logical lines one by one.
class CardReader {
 public:
  void Take(const Property& property) {
    // Only BEGIN and END need their value compared; other values may be megabytes long.
    const bool marker = property.name == "BEGIN" || property.name == "END";
    const std::string value = marker ? Upper(Trimmed(property.value)) : std::string();
    if (property.name == "BEGIN" && value == "VCARD") {
      if (card_) result_.Skip(started_, "a contact without END:VCARD");
      card_ = Contact{};
      started_ = property.line;
      formatted_.clear();
    } else if (property.name == "END" && value == "VCARD" && card_) {
      Finish();
    } else if (!card_) {
      result_.Skip(property.line, "text outside BEGIN:VCARD and END:VCARD");
    } else if (property.name.empty()) {
      result_.Skip(property.line, "a line that is not NAME:VALUE");
    } else {
      TakeField(property);
    }
  }

  ContactImport End() {
    if (card_) result_.Skip(started_, "a contact without END:VCARD");
    return std::move(result_);
  }

 private:
  void Finish() {
    if (card_->first.empty() && card_->last.empty()) NameFromFormatted(*card_, formatted_);
    if (card_->first.empty() && card_->last.empty()) {
      result_.Skip(started_, "a contact without a name");
    } else {
      result_.contacts.push_back(std::move(*card_));
    }
    card_.reset();
  }

  void TakeField(const Property& property) {
    static const std::set<std::string> kRead = {"N", "FN", "ORG", "TEL", "EMAIL", "ADR"};
    if (kRead.count(property.name) == 0) return;
    Contact& contact = *card_;
    const std::string value = ValueOf(property);
    if (property.name == "N") {
      const auto parts = SplitEscaped(value, ';', kNameParts + 1);
      contact.last = Trimmed(Unescape(parts[0]));
      if (parts.size() > 1) contact.first = Trimmed(Unescape(parts[1]));
    } else if (property.name == "FN") {
      formatted_ = Trimmed(Unescape(value));
    } else if (property.name == "ORG" && contact.company.empty()) {
      contact.company = Trimmed(Unescape(SplitEscaped(value, ';', kOrganizationParts + 1)[0]));
    } else if (property.name == "TEL" && contact.phone.empty()) {
      contact.phone = Trimmed(Unescape(value));
    } else if (property.name == "EMAIL" && contact.email.empty()) {
      contact.email = Trimmed(Unescape(value));
    } else if (property.name == "ADR" && contact.address.empty()) {
      auto parts = SplitEscaped(value, ';', kAddressParts + 1);
      parts.resize(std::min(parts.size(), kAddressParts));
      contact.address = JoinAddress(parts);
    }
  }

  ContactImport result_;
  std::optional<Contact> card_;
  int started_ = 0;
  std::string formatted_;
};

}  // namespace

ContactImport ReadVCards(std::string_view text) {
  text = WithoutMark(text);
  RequireContactText(text);
  CardReader reader;
  // Continuation lines (a leading blank, or after a quoted-printable soft break) are added to
  // the logical line before it, which is handed on when the next one starts.
  std::optional<Property> pending;
  bool softBreak = false;
  ForEachLine(text, [&](int number, std::string_view line) {
    if (line.ends_with('\n')) line.remove_suffix(1);
    if (line.ends_with('\r')) line.remove_suffix(1);
    const bool folded = !line.empty() && (line[0] == ' ' || line[0] == '\t');
    if ((folded || softBreak) && pending) {
      pending->value += folded ? line.substr(1) : line;
    } else if (!line.empty()) {
      if (pending) reader.Take(*pending);
      pending = StartProperty(number, line);
    }
    softBreak = pending && pending->quotedPrintable && !pending->value.empty() &&
                pending->value.back() == '=';
    if (softBreak) pending->value.pop_back();
  });
  if (pending) reader.Take(*pending);
  return reader.End();
}

ContactImport ReadContactFile(const std::string& path) {
  const std::string content = ReadContactText(path);
  const std::string_view body = WithoutMark(content);
  const auto first = body.find_first_not_of(" \t\r\n");
  constexpr std::string_view kBegin = "BEGIN:VCARD";
  const bool vCard =
      first != std::string_view::npos && Upper(body.substr(first, kBegin.size())) == kBegin;
  return vCard ? ReadVCards(content) : ReadCsvContacts(content);
}

}  // namespace pelkor
