#include "tarvola/ado/connection.h"

#include <string>

#include "tarvola/ado/engine/connection_text.h"
#include "tarvola/ado/engine/session.h"
#include "tarvola/ado/recordset.h"
#include "tarvola/ado/shape.h"
#include "tarvola/runtime/errors.h"

namespace tarvola {
namespace {

/// The text with user and password in front, where the first of a keyword counts.
std::string withCredentials(std::string_view text, std::string_view user, std::string_view password) {
  std::string result;
  if (!user.empty()) result += "UID=" + ado::engine::quotedValue(user) + ";";
  if (!password.empty()) result += "PWD=" + ado::engine::quotedValue(password) + ";";
  return result += text;
}

}  // namespace

ConnectionPtr Connection::create() { return ConnectionPtr(new Connection()); }

Connection::~Connection() = default;

std::int32_t Connection::get_CursorLocation() const noexcept { return cursorLocation_; }
void Connection::put_CursorLocation(std::int32_t location) { cursorLocation_ = location; }

void Connection::Open(std::string_view connectionText, std::string_view user, std::string_view password,
                      std::int32_t /*options*/) {
  if (session_) fail(ErrorNumber::ObjectOpen);
  const bool hasCredentials = !user.empty() || !password.empty();
  session_ = hasCredentials ? ado::Session::open(withCredentials(connectionText, user, password))
                            : ado::Session::open(connectionText);
}

RecordsetPtr Connection::Execute(std::string_view statement, std::int32_t* recordsAffected, std::int32_t options) {
  if (!session_) fail(ErrorNumber::ObjectClosed);
  if (ado::isShapeCommand(statement)) {
    RecordsetPtr shaped = Recordset::create();
    shaped->Open(statement, shared_from_this(), adOpenStatic, adLockReadOnly, options);
    return shaped;
  }
  ado::StatementResult result = session_->run(statement);
  if (recordsAffected != nullptr) *recordsAffected = static_cast<std::int32_t>(result.recordsAffected);
  if (!result.rows) return Recordset::create();
  return Recordset::snapshot(std::move(result.rows), shared_from_this());
}

void Connection::Close() {
  if (!session_) fail(ErrorNumber::ObjectClosed);
  session_.reset();
  ++openings_;
}

std::int32_t Connection::get_State() const noexcept { return session_ ? adStateOpen : adStateClosed; }

const std::shared_ptr<ado::Session>& Connection::session() const {
  if (!session_) fail(ErrorNumber::ConnectionUnusable);
  return session_;
}

}  // namespace tarvola
