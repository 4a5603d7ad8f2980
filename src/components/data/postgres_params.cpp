#include "data/postgres_params.h"

#include <charconv>

namespace pelkor::data_detail {
namespace {

// Every parameter goes as text and the server reads it as the type its place asks for; a
// record's bytes as bytea's hex form.
std::string ParamText(const SqlValue& value) {
  return std::visit(
      [](const auto& v) -> std::string {
        using T = std::decay_t<decltype(v)>;
        if constexpr (std::is_same_v<T, const pelkedit::Blob*>) {
          static constexpr char kHex[] = "0123456789abcdef";
          std::string text = "\\x";
          text.reserve(2 + v->size() * 2);
          for (const std::uint8_t byte : *v) {
            text.push_back(kHex[byte >> 4]);
            text.push_back(kHex[byte & 0xF]);
          }
          return text;
        } else if constexpr (std::is_same_v<T, std::string>) {
          return v;
        } else {
          char digits[32];
          const auto end = std::to_chars(digits, digits + sizeof digits, v).ptr;
          return std::string(digits, end);
        }
      },
      value);
}

// The statement with the server's $1, $2, ... for the store's `?` marks.
std::string Numbered(const std::string& sql) {
  std::string out;
  int next = 1;
  for (const char c : sql) {
    if (c == '?') {
      out += "$" + std::to_string(next++);
    } else {
      out.push_back(c);
    }
  }
  return out;
}

}  // namespace

pqxx::result RunWith(pqxx::transaction_base& work, const std::string& sql,
                     const std::vector<SqlValue>& params) {
  std::vector<std::string> texts;
  texts.reserve(params.size());
  for (const SqlValue& value : params) texts.push_back(ParamText(value));
  return work.exec_params(Numbered(sql), pqxx::prepare::make_dynamic_params(texts));
}

}  // namespace pelkor::data_detail
