#pragma once

#include <string>

#include <pqxx/except>

#include "data/data_error.h"

namespace pelkor::data_detail {

// Why a connection to the server failed or broke, in words a user can act on.
std::string ConnectionReason(const pqxx::broken_connection& error);
// Why a statement failed, from its SQLSTATE.
std::string StatementReason(const pqxx::sql_error& error);
// libpq's text about a connection to `uri` with every secret of the address taken out: libpq
// quotes the malformed part of an address (a password among them) or the whole address.
std::string WithoutSecrets(const std::string& text, const std::string& uri);

// Runs `body`; a server failure inside it becomes error 5 saying what failed and why.
template <typename Body>
auto WithServerErrors(const std::string& action, Body&& body) -> decltype(body()) {
  try {
    return body();
  } catch (const pqxx::broken_connection& error) {
    RaiseActionError(action, ConnectionReason(error));
  } catch (const pqxx::sql_error& error) {
    RaiseActionError(action, StatementReason(error));
  } catch (const pqxx::in_doubt_error&) {
    RaiseActionError(action,
                     "the connection to the server was lost while the change was being "
                     "committed, so it may or may not have been written. Open the IBO again to "
                     "see what is stored");
  } catch (const pqxx::failure& error) {
    RaiseActionError(action, "the server connection reported an error (" +
                                 std::string(error.what()) + "). Try again");
  }
}

}  // namespace pelkor::data_detail
