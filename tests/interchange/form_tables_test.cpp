// The tables of export and import against the layouts of the forms: three descriptions of one thing.

#include <gtest/gtest.h>

#include <algorithm>

#include "tarvola/interchange/export_columns.h"
#include "tarvola/interchange/import_forms.h"
#include "tarvola/store/form_layouts.h"

namespace tarvola::interchange {
namespace {

constexpr std::size_t headFields = 6;

std::string_view fieldAt(const store::FormLayout& layout, std::size_t position) {
  return layout.positions[position].fields.front().name;
}

/// The first column that the export writes a field into.
std::optional<Column> columnOf(const ExportForm& form, std::string_view field) {
  for (const ColumnInfo& column : fileColumns)
    if (form.columns[index(column.column)].field == field) return column.column;
  return std::nullopt;
}

TEST(FormTables, ExportAndImportKnowTheSameForms) {
  ASSERT_EQ(exportForms.size(), importForms.size());
  for (const ExportForm& form : exportForms) {
    const ImportForm* import = findImportForm(form.codes.kdForm);
    ASSERT_NE(import, nullptr) << form.codes.kdForm;
    EXPECT_EQ(import->codes.jenisDokumen, form.codes.jenisDokumen);
  }
}

TEST(FormTables, TheExportNamesOnlyFieldsOfTheLayout) {
  for (const ExportForm& form : exportForms)
    for (const ColumnSource& source : form.columns) {
      if (source.field.empty()) continue;
      EXPECT_TRUE(store::findLayout(form.codes.kdForm)->position(source.field))
          << form.codes.kdForm << " " << source.field;
    }
}

/// An option pair fills two positions, every other element one.
std::size_t positionsFilled(const ImportForm& form) {
  std::size_t count = headFields;
  for (const Element& element : form.packed) count += element.packing == Packing::OptionPair ? 2 : 1;
  return count;
}

TEST(FormTables, TheImportFillsEveryPositionOfTheLayout) {
  for (const ImportForm& form : importForms)
    EXPECT_EQ(positionsFilled(form), store::findLayout(form.codes.kdForm)->positions.size()) << form.codes.kdForm;
}

TEST(FormTables, TheImportPutsEachColumnWhereTheExportTakesItFrom) {
  for (const ImportForm& form : importForms) {
    const ExportForm& exported = *findExportForm(form.codes.kdForm);
    const store::FormLayout& layout = *store::findLayout(form.codes.kdForm);
    std::size_t position = headFields;
    for (const Element& element : form.packed) {
      const std::string_view field = fieldAt(layout, position);
      if (element.packing == Packing::GrossTotal) {
        EXPECT_EQ(field, "JMLPHSL") << form.codes.kdForm;
      } else if (element.packing == Packing::Seq) {
        EXPECT_EQ(field, "SEQ") << form.codes.kdForm;
      } else {
        EXPECT_EQ(columnOf(exported, field), element.column) << form.codes.kdForm << " " << field;
      }
      position += element.packing == Packing::OptionPair ? 2 : 1;
    }
  }
}

TEST(FormTables, EveryColumnThatALineMustHaveIsWithinItsForm) {
  for (const ImportForm& form : importForms)
    for (const Element& element : form.packed)
      EXPECT_LT(index(element.column), form.columnsNeeded) << form.codes.kdForm;
}

}  // namespace
}  // namespace tarvola::interchange
