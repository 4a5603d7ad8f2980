#include "data/data_error.h"

#include <algorithm>
#include <array>

#include "data/ibo_store.h"
#include "values/error.h"

namespace pelkor::data_detail {
namespace {

constexpr std::array kServerSchemes = {"postgresql://", "postgres://"};

}  // namespace

// The scheme of a server URI, or empty.
std::string SchemeOf(const std::string& name) {
  for (const std::string scheme : kServerSchemes) {
    if (name.rfind(scheme, 0) == 0) return scheme;
  }
  return {};
}

namespace {

// The URI without the password of its user part ("user:secret@host" -> "user@host"), so that
// messages and logs never show it.
std::string WithoutPassword(const std::string& uri) {
  const std::string scheme = SchemeOf(uri);
  const std::size_t authority = scheme.size();
  const std::size_t end = uri.find_first_of("/?", authority);
  const std::size_t at = uri.rfind('@', end == std::string::npos ? uri.size() : end);
  std::string shown = uri;
  if (at != std::string::npos && at >= authority) {
    const std::size_t colon = uri.find(':', authority);
    if (colon != std::string::npos && colon < at) shown = uri.substr(0, colon) + uri.substr(at);
  }
  // A password may also come as a parameter: "?host=db&password=secret".
  const std::size_t query = shown.find('?');
  if (query == std::string::npos) return shown;
  std::string kept = shown.substr(0, query);
  char separator = '?';
  std::size_t start = query + 1;
  while (start <= shown.size()) {
    const std::size_t amp = std::min(shown.find('&', start), shown.size());
    const std::string parameter = shown.substr(start, amp - start);
    if (!parameter.empty() && parameter.rfind("password=", 0) != 0) {
      kept += separator + parameter;
      separator = '&';
    }
    start = amp + 1;
  }
  return kept;
}

}  // namespace

bool IsServerName(const std::string& name) {
  return !SchemeOf(name).empty();
}

std::string DescribeLocation(const std::string& name) {
  if (name == kMemoryPath) return "the in-memory database";
  return "'" + (!SchemeOf(name).empty() ? WithoutPassword(name) : name) + "'";
}

void RaiseDataError(const std::string& description) {
  pelkedit::Raise(pelkedit::errnum::kInvalidProcedureCall, kDataErrorSource, description);
}

void RaiseActionError(const std::string& action, const std::string& reason) {
  RaiseDataError(action + ": " + reason + ".");
}

}  // namespace pelkor::data_detail

namespace pelkor {

bool IsServerName(const std::string& name) {
  return !data_detail::SchemeOf(name).empty();
}

}  // namespace pelkor
