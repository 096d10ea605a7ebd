#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "tarvola/ado/connection.h"
#include "tarvola/ado/recordset.h"
#include "tarvola/store/DatFormConverter.h"

namespace tarvola::store {

/// How a class words the failure of its own start-up in the message box.
enum class StartUpWording : std::uint8_t {
  /// The failure's description and nothing else.
  Description,
  /// Number, ": ", "Class_Initialize Sub: ", description: the slip classes.
  NumberAndOrigin,
};

/// Whether a class expands and packs rows.
enum class StartUpConverter : std::uint8_t { Owned, None };

/// A new connection, client side, opened with the connection text of the thread. Fails as Connection::Open does; the
/// connection that `made` then holds is closed.
void openOwnConnection(ConnectionPtr& made);

/// Asks StoreObject to wait: with no connection text on the thread it opens nothing and shows nothing.
struct WaitsForSettings {};

/// What every class object owns from its creation to its end: a connection of its own and, where it has one, the
/// converter.
///
/// The connection text is read once, at creation. If the store cannot be opened the message shows at once and the
/// object lives on: its connection is closed and it has no converter, so that every operation fails by the failure rule
/// and none crashes. Creating one before pSetCon is such a case.
class StoreObject {
 public:
  explicit StoreObject(StartUpWording wording = StartUpWording::Description,
                       StartUpConverter converter = StartUpConverter::Owned) noexcept;
  /// For the classes that may be created before pSetCon and open their connection then by startUp.
  explicit StoreObject(WaitsForSettings, StartUpConverter converter = StartUpConverter::Owned) noexcept;
  ~StoreObject();
  StoreObject(StoreObject&&) noexcept;
  StoreObject& operator=(StoreObject&&) noexcept;

  /// Opens a new connection with the thread's settings of this moment; a failure shows and leaves the object without
  /// one.
  void startUp() noexcept;

  /// The object's own connection; error 91 if it has none. It may be closed.
  [[nodiscard]] const ConnectionPtr& connection() const;
  /// The object's own converter; error 91 if its start-up failed.
  [[nodiscard]] DatFormConverter& converter() const;

  /// A new recordset with the rows of a text, client side, static, optimistic: the way every class opens rows that it
  /// writes to.
  [[nodiscard]] RecordsetPtr open(std::string_view statement) const;
  /// The same with a recordset that its owner holds already: a text that fails leaves it closed.
  void openInto(Recordset& rows, std::string_view statement) const;
  /// Runs a text through the connection: a read-only snapshot of a SELECT, a closed recordset of anything else.
  RecordsetPtr execute(std::string_view statement) const;

  /// Hands the thread's settings to the converter and expands rows into named fields.
  [[nodiscard]] RecordsetPtr expand(std::string_view formCode, const RecordsetPtr& rows) const;
  /// The packed text of the current record of named fields.
  [[nodiscard]] std::string pack(const RecordsetPtr& namedFields) const;

  /// Drops converter and connection, in that order.
  void release() noexcept;

 private:
  StartUpWording wording_ = StartUpWording::Description;
  StartUpConverter wantedConverter_ = StartUpConverter::Owned;
  ConnectionPtr connection_;
  std::unique_ptr<DatFormConverter> converter_;
};

/// No row at all: BOF is asked first, then EOF. Error 91 for no recordset.
[[nodiscard]] bool isEmptyResult(const RecordsetPtr& rows);
/// Sends what is pending to the store and reads the rows anew: the end of every save.
void saveAndRequery(const RecordsetPtr& rows);

}  // namespace tarvola::store
