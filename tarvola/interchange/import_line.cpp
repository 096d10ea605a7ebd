#include "tarvola/interchange/import_line.h"

#include <optional>

#include "tarvola/interchange/amount_text.h"
#include "tarvola/runtime/errors.h"
#include "tarvola/runtime/text_forms.h"
#include "tarvola/store/store_texts.h"

namespace tarvola::interchange {

namespace {

constexpr char separator = ';';

void appendText(std::string& packed, Column column, std::string_view text) {
  if (text.find(separator) != std::string_view::npos)
    fail(ErrorNumber::InvalidProcedureCall, store::separatorInFieldText(fileColumns[index(column)].title));
  packed += text;
}

/// A code 0 says the first option, any other the second. A deposit whose amount is written "0" says neither, so that
/// its code is lost: the export writes code 1 for it.
std::string_view optionPair(const ImportLine& line, Column option) {
  const Column amount = fileColumns[index(option) + 1].column;
  if (line.raw(amount) == "0") return "0;0";
  return line.saysOption(option, 0) ? "1;0" : "0;1";
}

void appendElement(std::string& packed, const Element& element, const ImportForm& form, const ImportLine& line,
                   double seq) {
  switch (element.packing) {
    case Packing::Text:
    case Packing::Date:
    case Packing::Rate:
    case Packing::Number:
    case Packing::Option:
      appendText(packed, element.column, line.text(element.column));
      return;
    case Packing::Whole:
      appendCStr(packed, line.whole(element.column));
      return;
    case Packing::OptionPair:
      packed += optionPair(line, element.column);
      return;
    case Packing::GrossTotal:
      appendCStr(packed, sumOf(line, form.gross));
      return;
    case Packing::Seq:
      appendCStr(packed, seq);
      return;
  }
}

}  // namespace

std::string_view ImportLine::raw(Column column) const {
  if (index(column) >= columns_.size()) fail(ErrorNumber::SubscriptOutOfRange);
  return columns_[index(column)];
}

std::string_view ImportLine::text(Column column) const { return Trim(raw(column)); }

double ImportLine::number(Column column) const { return amountOf(text(column)); }

double ImportLine::whole(Column column) const { return Int(number(column)); }

bool ImportLine::saysOption(Column column, double value) const {
  const std::optional<double> said = tryNumber(text(column));
  return said && *said == value;
}

double sumOf(const ImportLine& line, std::span<const Column> amounts) {
  double sum = 0;
  for (const Column amount : amounts) sum += line.whole(amount);
  return sum;
}

double sumOf(const ImportLine& line, std::span<const Addend> addends) {
  double sum = 0;
  for (const Addend& addend : addends)
    if (!addend.option || line.saysOption(*addend.option, addend.ifOptionIs)) sum += line.whole(addend.amount);
  return sum;
}

ListedAmounts listedAmounts(const ImportForm& form, const ImportLine& line) {
  if (form.listedByAmount && line.number(*form.listedByAmount) == 0) return {};
  return {.gross = sumOf(line, form.gross), .tax = sumOf(line, form.tax)};
}

std::string packedForm(const ImportForm& form, const ImportLine& line, std::string_view head, double seq) {
  std::string packed;
  packed.reserve(head.size() + 400);
  packed += head;
  for (const Element& element : form.packed) {
    packed += separator;
    appendElement(packed, element, form, line, seq);
  }
  return withoutLineBreaks(std::move(packed));
}

int flagOfPayee(const ImportLine& line) {
  const std::string_view npwp = line.text(PayeeNpwp);
  if (npwp.empty()) return 0;
  return Left(npwp, 9) == "000000000" ? 2 : 1;
}

}  // namespace tarvola::interchange
