#include "tests/mainreturn/return_fixture.h"

#include "tarvola/runtime/clock.h"
#include "tarvola/runtime/text_forms.h"
#include "tarvola/store/field_access.h"
#include "tarvola/store/form_codes.h"
#include "tarvola/store/form_layouts.h"
#include "tarvola/store/module_state.h"

namespace tarvola::test {
namespace {

std::vector<std::string> cut(const std::string& packed) {
  std::vector<std::string> fields(1);
  for (const char c : packed) {
    if (c == ';') {
      fields.emplace_back();
    } else {
      fields.back() += c;
    }
  }
  return fields;
}

std::string joined(const std::vector<std::string>& fields) {
  std::string packed = fields.front();
  for (std::size_t index = 1; index < fields.size(); ++index) packed += ";" + fields[index];
  return packed;
}

std::size_t positionOf(const store::FormLayout& layout, std::string_view field) {
  return layout.position(field).value();
}

std::string packedTextOf(const Document& document) {
  if (document.packedText) return *document.packedText;
  const store::FormLayout& layout = *store::findLayout(document.form);
  std::vector<std::string> fields = {
      "013121660091000", "PT Contoh Sejahtera", "Jl. Merdeka No. 1", "3", "2009", std::to_string(document.correction)};
  for (std::size_t position = fields.size(); position < layout.positions.size(); ++position) {
    const store::FieldType type = layout.positions[position].fields.front().type;
    const bool isNumber = type == store::FieldType::Integer || type == store::FieldType::Double;
    fields.emplace_back(isNumber ? "0" : "");
  }
  for (const auto& [field, text] : document.fields) fields.at(positionOf(layout, field)) = text;
  return joined(fields);
}

}  // namespace

ReturnTest::ReturnTest() : connection_(store_.connect()) {
  setModuleConnection(store_.path(), "", "");
  setToday(Date::fromYmd(2009, 4, 15));
}

ReturnTest::~ReturnTest() {
  moduleState() = {};
  setToday(std::nullopt);
}

void ReturnTest::makeReturn(std::int16_t correction) {
  CF113204 mainReturn;
  mainReturn.pCreateF113204Hdr("013121660091000", "F113204", "01", 3, 2009, correction, "-", "113",
                               "PT Contoh Sejahtera", "Jl. Merdeka No. 1", "10/04/2009");
  ASSERT_THAT(messages_.texts(), ::testing::IsEmpty());
}

void ReturnTest::load(CF113204& mainReturn, std::int16_t correction) {
  mainReturn.pGetF113204("013121660091000", "F113204", "01", 3, 2009, correction, "-", "113");
}

RecordsetPtr ReturnTest::recount(CF113204& mainReturn) {
  load(mainReturn);
  mainReturn.pUpdF113204(3, 2009, 0);
  return mainReturn.rs4_2Form();
}

void ReturnTest::addDocument(const Document& document) {
  const store::FormCodes& codes = *store::findForm(document.form);
  const bool isSlip = codes.table == store::FormTable::Induk;
  std::string columns;
  std::string values;
  for (const auto& [column, text] : document.totals) {
    columns += "," + column;
    values += "," + text;
  }
  run("INSERT INTO " + std::string(isSlip ? "DS_FORM_INDUK" : "DAT_SSP_PPh22") +
      " (NPWP,KD_FORM,JENIS_DOKUMEN,MS_PAJAK,TH_PAJAK,KD_PEMBETULAN_KE,NOBUKTI,KD_JENIS_PAJAK,DAT_FORM" + columns +
      ") VALUES ('013121660091000','" + std::string(codes.kdForm) + "','" + std::string(codes.jenisDokumen) +
      "',3,2009," + std::to_string(document.correction) + ",'" + document.number + "','113','" +
      packedTextOf(document) + "'" + values + ")");
}

std::vector<std::string> ReturnTest::column(const std::string& statement) {
  std::vector<std::string> texts;
  for (const RecordsetPtr rows = query(statement); !rows->get_EOF(); rows->MoveNext()) {
    const Variant value = rows->get_Collect(std::int32_t{0});
    texts.push_back(value.isNull() ? "(null)" : CStr(value));
  }
  return texts;
}

std::string ReturnTest::packedText(std::string_view form, int correction) {
  const store::FormCodes& codes = *store::findForm(form);
  const std::string table = codes.table == store::FormTable::Induk ? "DS_FORM_INDUK" : "DAT_SSP_PPh22";
  return column("SELECT DAT_FORM FROM " + table + " WHERE KD_FORM = '" + std::string(form) +
                "' AND NOBUKTI = '-' AND KD_PEMBETULAN_KE = " + std::to_string(correction))
      .at(0);
}

void ReturnTest::putPosition(std::string_view field, std::string_view text) {
  std::vector<std::string> fields = cut(packedText("F113204"));
  fields.at(positionOf(*store::findLayout("F113204"), field)) = text;
  run("UPDATE DS_FORM_INDUK SET DAT_FORM = '" + joined(fields) + "' WHERE KD_FORM = 'F113204'");
}

double ReturnTest::number(CF113204& mainReturn, std::string_view field) {
  return store::fieldNumber(mainReturn.rs4_2Form(), field);
}

Variant ReturnTest::value(CF113204& mainReturn, std::string_view field) {
  return store::fieldValue(mainReturn.rs4_2Form(), field);
}

void ReturnTest::put(CF113204& mainReturn, std::string_view field, const Variant& value) {
  store::setField(mainReturn.rs4_2Form(), field, value);
}

}  // namespace tarvola::test
