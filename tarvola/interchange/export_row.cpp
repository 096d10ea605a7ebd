#include "tarvola/interchange/export_row.h"

#include "tarvola/runtime/text_forms.h"
#include "tarvola/store/named_field_rows.h"

namespace tarvola::interchange {

namespace {

constexpr char separator = ';';

std::string joinedTitles() {
  std::string line;
  for (const ColumnInfo& column : fileColumns) {
    if (!line.empty()) line += separator;
    line += column.title;
  }
  return line;
}

/// Cuts blanks from what was appended behind `start`.
void trimFrom(std::string& line, std::size_t start) {
  const std::string_view appended = std::string_view(line).substr(start);
  if (appended.empty() || (appended.front() != ' ' && appended.back() != ' ')) return;
  const std::string_view trimmed = Trim(appended);
  const auto leading = static_cast<std::size_t>(trimmed.data() - appended.data());
  line.erase(start + leading + trimmed.size());
  line.erase(start, leading);
}

/// The fields of one record. Whether they are those of a packed text is asked once for the record.
class FieldTexts {
 public:
  explicit FieldTexts(const Recordset& named)
      : named_(named), packed_(store::NamedFieldRows::behind(named)), row_(named.currentRow()) {}

  void append(std::string& line, std::size_t place) const {
    if (packed_ != nullptr)
      packed_->appendFieldText(line, row_, place);
    else
      store::appendFieldText(line, named_, place);
  }
  [[nodiscard]] bool isOne(std::size_t place) const {
    std::string text;
    append(text, place);
    return text == "1";
  }
  /// The place of a field that was not found among the columns: there is none, and the failure says so.
  [[nodiscard]] std::size_t missing(std::string_view field) const { return named_.column(field); }

 private:
  const Recordset& named_;
  const store::NamedFieldRows* packed_;
  std::size_t row_;
};

void appendField(std::string& line, Source source, std::size_t place, const FieldTexts& fields) {
  if (source == Source::InvertedOption) {
    line += fields.isOne(place) ? '0' : '1';
    return;
  }
  const std::size_t start = line.size();
  fields.append(line, place);
  if (source == Source::Field) trimFrom(line, start);
}

}  // namespace

const std::string& exportHeader() {
  static const std::string header = joinedTitles();
  return header;
}

const std::string& ExportRowBuilder::WholeText::of(std::string_view asked) {
  if (whole.empty() || text != asked) {
    whole = CStr(std::int32_t{CInt(Variant(asked))});
    text = asked;
  }
  return whole;
}

void ExportRowBuilder::appendHead(std::string& line, const ExportRowHead& head) {
  line += head.kdForm;
  line += separator;
  line += month_.of(head.month);
  line += separator;
  line += year_.of(head.year);
  line += separator;
  appendCStr(line, head.correction);
  line += separator;
}

void ExportRowBuilder::append(std::string& line, const ExportForm& form, const ExportRowHead& head,
                              const Recordset& named) {
  appendHead(line, head);
  const Places& places = placesOf(form, named);
  const FieldTexts fields(named);
  for (std::size_t i = index(PayeeNpwp); i < columnCount; ++i) {
    const auto& [source, field] = form.columns[i];
    if (source == Source::Zero) {
      line += '0';
    } else if (source != Source::Nothing) {
      const std::size_t place = places.field[i];
      appendField(line, source, place == missing ? fields.missing(field) : place, fields);
    }
    if (i + 1 < columnCount) line += separator;
  }
}

/// A field that the record does not have is noted as missing: its failure belongs to the column where the line needs
/// it.
const ExportRowBuilder::Places& ExportRowBuilder::placesOf(const ExportForm& form, const Recordset& named) {
  Places& places = places_[static_cast<std::size_t>(&form - exportForms.data())];
  const ado::ColumnsPtr& columns = named.rows()->sharedColumns();
  if (places.columns == columns) return places;
  for (std::size_t i = 0; i < columnCount; ++i)
    places.field[i] = columns->find(form.columns[i].field).value_or(missing);
  places.columns = columns;
  return places;
}

}  // namespace tarvola::interchange
