#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "tarvola/ado/constants.h"
#include "tarvola/runtime/variant.h"

namespace tarvola {

namespace ado {
class Session;
}

class Connection;
using ConnectionPtr = std::shared_ptr<Connection>;

/// A connection to a store.
///
/// Each Connection stands for itself. Beneath, the connections that one thread opens on the same text share one native
/// handle and its prepared statements for as long as one of them lives; nobody can see that but by the speed.
/// An object is used by the thread that made it.
class Connection : public std::enable_shared_from_this<Connection> {
 public:
  static ConnectionPtr create();
  ~Connection();

  std::int32_t get_CursorLocation() const noexcept;
  void put_CursorLocation(std::int32_t location);

  /// Opens "PROVIDER=MSDataShape;Data PROVIDER=MSDASQL;DSN=...;UID=...;PWD=...;". A DSN that is a file path (it holds a
  /// "/" or a backslash, or ends in .db, .sqlite or .tarvola) is an embedded store and must exist; any other is an ODBC
  /// data source. User and password, where given, go before those in the text. Fails with the driver's text if the
  /// store cannot be opened; the connection stays closed. Open already: error 3705.
  void Open(std::string_view connectionText, std::string_view user = "", std::string_view password = "",
            std::int32_t options = adCmdUnspecified);

  /// Runs a statement. A SELECT or SHAPE gives a read-only snapshot, which keeps the connection alive; any other
  /// statement a closed recordset. Error 3704 if the connection is not open.
  RecordsetPtr Execute(std::string_view statement, std::int32_t* recordsAffected = nullptr,
                       std::int32_t options = adCmdUnspecified);

  /// Its recordsets are closed with it. Error 3704 if it is not open.
  void Close();
  std::int32_t get_State() const noexcept;

  /// What runs the statements; error 3709 if the connection is not open. For the recordset layer.
  const std::shared_ptr<ado::Session>& session() const;
  /// Which opening of the connection is in force, 0 while it is closed. By it a recordset sees that its connection was
  /// closed behind it, which closes the recordset too.
  std::uint32_t opening() const noexcept { return session_ ? openings_ : 0; }

 private:
  Connection() = default;
  std::shared_ptr<ado::Session> session_;
  /// Counted on by each Close.
  std::uint32_t openings_ = 1;
  std::int32_t cursorLocation_ = 2;
};

}  // namespace tarvola
