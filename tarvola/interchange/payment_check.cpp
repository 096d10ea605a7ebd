#include "tarvola/interchange/payment_check.h"

#include <algorithm>
#include <array>
#include <optional>

#include "tarvola/interchange/import_texts.h"
#include "tarvola/interchange/payment_codes.h"
#include "tarvola/interchange/payment_files.h"
#include "tarvola/interchange/payment_records.h"
#include "tarvola/interchange/payment_texts.h"
#include "tarvola/interchange/value_check.h"
#include "tarvola/runtime/text_forms.h"

namespace tarvola::interchange {

namespace {

using namespace payment_columns;
using Columns = std::span<const std::string>;

constexpr std::size_t paymentColumnCount = 9;
constexpr std::size_t transferColumnCount = 6;

/// "SSP4", "PBK4".
std::string kindOf(std::string_view word) { return std::string(word) + CStr(std::int32_t{store::taxArticle}); }

// --- values ----------------------------------------------------------------------------------------------

std::string faultOfAmount(std::string_view value) {
  if (std::string fault = faultOfNumber(value); !fault.empty()) return fault;
  const double rupiah = CDbl(value);
  if (rupiah != Int(rupiah)) return decimalsText(value);
  return rupiah < 0 ? belowZeroText(value) : std::string();
}

/// The three numbers of a day, or nothing.
std::optional<std::array<int, 3>> numbersOf(std::string_view text, char separator) {
  std::array<int, 3> numbers{};
  for (std::size_t i = 0; i < numbers.size(); ++i) {
    const std::size_t end = i + 1 < numbers.size() ? text.find(separator) : text.size();
    if (end == 0 || end > 4 || text.substr(0, end).find_first_not_of("0123456789") != std::string_view::npos)
      return std::nullopt;
    for (const char digit : text.substr(0, end)) numbers[i] = 10 * numbers[i] + (digit - '0');
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return numbers;
}

/// Whether a text says a day in the order of the file, 31/01/2009, or as 2009-01-31. Others may be read too, but not
/// as they were meant: 31/02/09 is read as the ninth of February 1931.
bool saysDay(std::string_view text) {
  const std::optional<Date> date = tryDate(text);
  if (!date) return false;
  const std::array read = {date->year(), date->month(), date->day()};
  if (const auto day = numbersOf(text, '-'); day && *day == read) return true;
  for (const char separator : {'/', '-'})
    if (const auto day = numbersOf(text, separator); day && std::equal(day->begin(), day->end(), read.rbegin()))
      return true;
  return false;
}

std::string faultOfDay(std::string_view value) { return saysDay(value) ? std::string() : noDayText(value); }

std::string faultOfPaymentNumber(std::string_view value) {
  return value.empty() ? noPaymentNumberText(noPaymentNumber) : faultOfText(value);
}

std::string faultOfTransferNumber(std::string_view value) {
  return value.empty() ? noTransferNumberText() : faultOfText(value);
}

template <std::size_t Count>
std::string faultOfCode(const std::array<PaymentCode, Count>& codes, std::string_view value) {
  if (findPaymentCode(codes, value) != nullptr) return {};
  std::string all;
  for (const PaymentCode& code : codes) all.append(all.empty() ? "" : ", ").append(code.code);
  return noOptionText(value, all);
}

std::string faultOfAccount(std::string_view value) { return faultOfCode(paymentAccounts, value); }
std::string faultOfKind(std::string_view value) { return faultOfCode(paymentKinds, value); }

// --- lines -----------------------------------------------------------------------------------------------

/// A column, by the short form of its title, and what may be wrong in it.
struct CheckedColumn {
  std::size_t column;
  std::string_view title;
  std::string (*fault)(std::string_view value);
};

constexpr CheckedColumn checkedPaymentColumns[] = {{NTPP, "NTPP", faultOfPaymentNumber},
                                                   {TglSSP, "Tanggal Setor SSP", faultOfDay},
                                                   {JmlByr, "Jumlah SSP", faultOfAmount},
                                                   {KdMAP, "Kode MAP SSP", faultOfAccount},
                                                   {KdJnsStr, "Kode Jenis Setoran (KJS) SSP", faultOfKind}};
constexpr CheckedColumn checkedTransferColumns[] = {{NoBuktiPBK, "Nomor Bukti PBK", faultOfTransferNumber},
                                                    {TanggalBerlaku, "Tanggal Berlaku PBK", faultOfDay},
                                                    {JumlahPBK, "Jumlah PBK", faultOfAmount}};

std::string faultOfColumns(Columns columns, std::span<const CheckedColumn> checked) {
  for (const CheckedColumn& each : checked)
    if (const std::string fault = each.fault(columns[each.column]); !fault.empty())
      return inTitledColumnText(each.title, fault);
  return {};
}

bool saysNumber(std::string_view text, std::int16_t wanted) {
  const std::optional<double> number = tryNumber(text);
  return number && *number == wanted;
}

std::string faultOfSsp(Columns columns, const store::Period& wanted) {
  if (columns.size() != paymentColumnCount) return paymentColumnCountText(columns.size(), "9");
  if (!saysNumber(columns[MsPjk], wanted.msPajak) || !saysNumber(columns[ThPjk], wanted.thPajak) ||
      !saysNumber(columns[KdPmbtln], wanted.kdPembetulanKe))
    return otherPeriodText(columns[MsPjk], columns[ThPjk], columns[KdPmbtln], wanted);
  return faultOfColumns(columns, checkedPaymentColumns);
}

std::string faultOfPbk(Columns columns, const store::Period& wanted) {
  if (columns.size() == paymentColumnCount) return notEmptyColumnsText();
  if (columns.size() != transferColumnCount) return paymentColumnCountText(columns.size(), "6 or 9");
  if (!saysNumber(columns[MsPjkPBK], wanted.msPajak) || !saysNumber(columns[ThPjkPBK], wanted.thPajak))
    return otherMonthText(columns[MsPjkPBK], columns[ThPjkPBK], wanted);
  return faultOfColumns(columns, checkedTransferColumns);
}

/// A transfer among payments has an empty correction in front of its number and two empty codes behind its amount. One
/// of six columns that a reject file filled up has its number in the place of the correction, and nothing behind its
/// amount. What is neither stays.
void takeOutEmptyColumns(std::vector<std::string>& columns) {
  constexpr std::size_t correction = KdPmbtln;
  if (columns.size() != paymentColumnCount || !columns[KdMAP].empty() || !columns[KdJnsStr].empty()) return;
  if (columns[correction].empty())
    columns.erase(columns.begin() + correction);
  else if (!columns[transferColumnCount].empty())
    return;
  columns.resize(transferColumnCount);
}

bool isHeader(std::string_view first) {
  constexpr std::string_view beginningOfTitles = "Kode Pasal Untuk ";
  return equalsIgnoreCase(Left(first, beginningOfTitles.size()), beginningOfTitles);
}

bool isDataLine(std::string_view first) {
  const std::string_view word = Left(first, paymentWord.size());
  return equalsIgnoreCase(word, paymentWord) || equalsIgnoreCase(word, transferWord);
}

}  // namespace

const ExchangeLayout paymentFileLayout{.columnCount = paymentColumnCount,
                                       .header = [] { return std::string(headerOfBoth); },
                                       .isHeader = isHeader,
                                       .isDataLine = isDataLine,
                                       .foreignFileText = notAPaymentFileText};

std::vector<std::string> paymentColumns(std::span<const std::string_view> cells) {
  std::vector<std::string> columns;
  for (const std::string_view column : cells) columns.emplace_back(Trim(column));
  if (!columns.empty() && columns.front() == kindOf(transferWord)) takeOutEmptyColumns(columns);
  return columns;
}

std::string faultOfPayment(Columns columns, const store::Period& wanted) {
  if (columns.size() == 1) return noSeparatorText();
  const std::string_view kind = columns.empty() ? std::string_view() : columns.front();
  if (kind == kindOf(paymentWord)) return faultOfSsp(columns, wanted);
  if (kind == kindOf(transferWord)) return faultOfPbk(columns, wanted);
  return otherRecordText(kind, kindOf(paymentWord), kindOf(transferWord));
}

}  // namespace tarvola::interchange
