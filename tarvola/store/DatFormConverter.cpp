#include "tarvola/store/DatFormConverter.h"

#include "tarvola/runtime/errors.h"
#include "tarvola/store/form_layouts.h"
#include "tarvola/store/named_field_rows.h"
#include "tarvola/store/store_texts.h"

namespace tarvola {

void DatFormConverter::pSetCon(std::string_view, std::string_view, std::string_view) {}

RecordsetPtr DatFormConverter::ExpandDatForm(std::string_view formCode, const RecordsetPtr& rows) {
  if (!rows) fail(ErrorNumber::ObjectVariableNotSet);
  const store::FormLayout* layout = store::findLayout(formCode);
  if (layout == nullptr) fail(ErrorNumber::InvalidProcedureCall, store::unknownFormText(formCode));
  return Recordset::over(
      store::NamedFieldRows::expand(*layout, rows->rows(), rows->visibleRows(), rows->column("DAT_FORM")));
}

std::string DatFormConverter::PackDatForm(const RecordsetPtr& rs4_2Form) {
  if (!rs4_2Form) fail(ErrorNumber::ObjectVariableNotSet);
  const store::NamedFieldRows* fields = store::NamedFieldRows::behind(*rs4_2Form);
  if (fields == nullptr) fail(ErrorNumber::InvalidProcedureCall, store::noNamedFieldsText());
  return fields->pack(rs4_2Form->currentRow());
}

}  // namespace tarvola
