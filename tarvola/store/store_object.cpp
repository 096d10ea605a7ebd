#include "tarvola/store/store_object.h"

#include "tarvola/runtime/errors.h"
#include "tarvola/runtime/message_box.h"
#include "tarvola/store/failure_rule.h"
#include "tarvola/store/module_state.h"

namespace tarvola::store {
namespace {

/// Shows the failure that is being handled in the wording of the class. Only inside a catch block.
void showStartUpFailure(StartUpWording wording) noexcept {
  if (wording == StartUpWording::Description) return showCurrentFailure();
  try {
    throw;
  } catch (const RunTimeError& error) {
    showMessage(
        {.text = std::to_string(error.number()) + ": Class_Initialize Sub: " + error.description(), .title = {}});
  } catch (...) {
    showCurrentFailure();
  }
}

}  // namespace

void openOwnConnection(ConnectionPtr& made) {
  made = Connection::create();
  made->put_CursorLocation(adUseClient);
  made->Open(moduleState().sConnString, "", "", adCmdUnspecified);
}

StoreObject::StoreObject(StartUpWording wording, StartUpConverter converter) noexcept
    : wording_(wording), wantedConverter_(converter) {
  startUp();
}

StoreObject::StoreObject(WaitsForSettings, StartUpConverter converter) noexcept : wantedConverter_(converter) {
  if (!moduleState().sConnString.empty()) startUp();
}

void StoreObject::startUp() noexcept {
  try {
    release();
    openOwnConnection(connection_);
    if (wantedConverter_ == StartUpConverter::Owned) converter_ = std::make_unique<DatFormConverter>();
  } catch (...) {
    showStartUpFailure(wording_);
  }
}

StoreObject::~StoreObject() { release(); }
StoreObject::StoreObject(StoreObject&&) noexcept = default;
StoreObject& StoreObject::operator=(StoreObject&&) noexcept = default;

const ConnectionPtr& StoreObject::connection() const {
  if (!connection_) fail(ErrorNumber::ObjectVariableNotSet);
  return connection_;
}

DatFormConverter& StoreObject::converter() const {
  if (!converter_) fail(ErrorNumber::ObjectVariableNotSet);
  return *converter_;
}

RecordsetPtr StoreObject::open(std::string_view statement) const {
  RecordsetPtr rows = Recordset::create();
  openInto(*rows, statement);
  return rows;
}

void StoreObject::openInto(Recordset& rows, std::string_view statement) const {
  rows.put_CursorLocation(adUseClient);
  rows.Open(statement, connection(), adOpenStatic, adLockOptimistic, adCmdText);
}

RecordsetPtr StoreObject::execute(std::string_view statement) const {
  return connection()->Execute(statement, nullptr, adCmdUnspecified);
}

RecordsetPtr StoreObject::expand(std::string_view formCode, const RecordsetPtr& rows) const {
  const ModuleState& state = moduleState();
  converter().pSetCon(state.sDSN, state.sUID, state.sPWD);
  return converter().ExpandDatForm(formCode, rows);
}

std::string StoreObject::pack(const RecordsetPtr& namedFields) const { return converter().PackDatForm(namedFields); }

void StoreObject::release() noexcept {
  converter_.reset();
  connection_.reset();
}

bool isEmptyResult(const RecordsetPtr& rows) {
  if (!rows) fail(ErrorNumber::ObjectVariableNotSet);
  return rows->get_BOF() && rows->get_EOF();
}

void saveAndRequery(const RecordsetPtr& rows) {
  if (!rows) fail(ErrorNumber::ObjectVariableNotSet);
  rows->UpdateBatch(adAffectAll);
  rows->Requery(adCmdUnspecified);
}

}  // namespace tarvola::store
