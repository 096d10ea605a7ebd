#include <algorithm>
#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "tarvola/mainreturn/CF113204.h"
#include "tarvola/mainreturn/return_lines.h"
#include "tarvola/mainreturn/tax_rates.h"
#include "tarvola/runtime/text_forms.h"
#include "tarvola/runtime/variant_math.h"
#include "tarvola/store/failure_rule.h"
#include "tarvola/store/field_access.h"
#include "tarvola/store/form_codes.h"
#include "tarvola/store/statement.h"

namespace tarvola {
namespace {

using store::Statement;
using store::text;

/// The items of a default rate: one, or several of construction services whose average counts.
Statement defaultRateSelection(std::int16_t article, std::string_view item, std::string_view kdForm) {
  const bool isConstruction = kdForm == store::F113316.kdForm;
  const bool isWork = isConstruction && item == "B14";
  const bool isConsultancy = isConstruction && item == "B44";
  Statement selection(isWork || isConsultancy
                          ? store::FixedText("SELECT avg(TARIF_JML_BRUTO) as TARIF_JML_BRUTO_ FROM SETTING_TARIF_PPH ")
                          : store::FixedText("SELECT TARIF_JML_BRUTO as TARIF_JML_BRUTO_ FROM SETTING_TARIF_PPH "));
  selection << "WHERE PASAL = " << std::int32_t{article} << " ";
  if (isWork) {
    selection << "AND ITEM_PENGHASILAN in (" << text(item) << ",'B24','B34') ";
  } else if (isConsultancy) {
    selection << "AND ITEM_PENGHASILAN in (" << text(item) << ",'B54') ";
  } else {
    selection << "AND ITEM_PENGHASILAN = " << text(item) << " ";
  }
  return selection << "AND KODE_FORM = " << text(kdForm) << " ";
}

// --- the rates of a new return ------------------------------------------------------------------------------

/// An item of the settings and the rate fields that take its rate.
struct DefaultRate {
  std::string_view item;
  std::string_view kdForm;
  std::array<std::string_view, 2> fields;
  /// A field that becomes 0 at the same time, "" for none.
  std::string_view clearedField = {};
};

constexpr std::array defaultRates = {
    // The rate of giro has no item of its own. It is 0 until a slip gives it an average.
    DefaultRate{.item = "WP DN", .kdForm = "F113310", .fields = {"B1a14", "B1a24"}, .clearedField = "B1C4"},
    DefaultRate{.item = "WP LN", .kdForm = "F113310", .fields = {"B1B4"}},
    DefaultRate{.item = "B14", .kdForm = "F113311", .fields = {"B2a4"}},
    DefaultRate{.item = "B24", .kdForm = "F113311", .fields = {"B2b4"}},
    DefaultRate{.item = "Tarif", .kdForm = "F113317", .fields = {"B34"}},
    DefaultRate{.item = "B14", .kdForm = "F113309", .fields = {"B44"}},
    // Rent has one rate, whoever pays the tax.
    DefaultRate{.item = "Tarif", .kdForm = "F113312", .fields = {"B5a4", "B5b4"}},
    DefaultRate{.item = "Tarif", .kdForm = "F113319", .fields = {"B84"}},
    DefaultRate{.item = "Tarif", .kdForm = "F113320", .fields = {"B94"}},
    DefaultRate{.item = "Tarif", .kdForm = "F113321", .fields = {"B104"}},
};

/// Rates of construction services: the average of several items, for the first field and all that follow it.
struct AveragedRate {
  std::span<const std::string_view> items;
  std::string_view field;
  std::span<const std::string_view> sameRate;
};

constexpr std::array<std::string_view, 2> consultancyItems = {"B44", "B54"};
constexpr std::array<std::string_view, 3> workItems = {"B14", "B24", "B34"};
constexpr std::array<std::string_view, 3> consultancyFields = {"B6a24", "B6c14", "B6c24"};
constexpr std::array<std::string_view, 1> workFields = {"B6b24"};
constexpr std::array averagedRates = {
    AveragedRate{.items = consultancyItems, .field = "B6a14", .sameRate = consultancyFields},
    AveragedRate{.items = workItems, .field = "B6b14", .sameRate = workFields},
};
/// For each averaged rate, how many rows have been added to its field.
using RowCounts = std::array<std::int32_t, averagedRates.size()>;

/// Sets the fields of an item that has a rate of its own. False if the item is none of these.
bool setDefaultRate(const RecordsetPtr& form, std::string_view item, std::string_view kdForm, const Variant& rate) {
  for (const DefaultRate& known : defaultRates) {
    if (known.item != item || known.kdForm != kdForm) continue;
    for (const std::string_view field : known.fields)
      if (!field.empty()) store::setField(form, field, rate);
    if (!known.clearedField.empty()) store::setField(form, known.clearedField, 0.0);
    return true;
  }
  return false;
}

/// Adds the rate of an item of construction services to its field. The sum goes on from what the field held before.
void addAveragedRate(const RecordsetPtr& form, std::string_view item, const Variant& rate, RowCounts& counts) {
  for (std::size_t index = 0; index < averagedRates.size(); ++index) {
    const AveragedRate& averaged = averagedRates[index];
    if (std::find(averaged.items.begin(), averaged.items.end(), item) == averaged.items.end()) continue;
    ++counts[index];
    store::setField(form, averaged.field, add(store::fieldValue(form, averaged.field), rate));
  }
}

void applySettingsRow(const RecordsetPtr& form, const RecordsetPtr& settings, RowCounts& counts) {
  const std::string item = store::fieldTextOr(settings, "ITEM_PENGHASILAN", "");
  const std::string kdForm = store::fieldTextOr(settings, "KODE_FORM", "");
  const Variant rate = store::fieldValue(settings, "TARIF_JML_BRUTO");
  if (setDefaultRate(form, item, kdForm, rate)) return;
  if (kdForm == store::F113316.kdForm) addAveragedRate(form, item, rate, counts);
}

/// Divides the sum of a rate by its rows, to two decimals. No row at all is a division by zero.
void finishAveragedRate(const RecordsetPtr& form, const AveragedRate& averaged, std::int32_t rowCount) {
  const Variant average = divide(store::fieldValue(form, averaged.field), rowCount);
  store::setField(form, averaged.field, CDbl(Format(average, "0.00")));
  for (const std::string_view field : averaged.sameRate)
    store::setField(form, field, store::fieldValue(form, averaged.field));
}

}  // namespace

double CF113204::pGetDefaultTaxRate(std::int16_t iKdPasal, std::string_view strKdPhsl, std::string_view strKdForm) {
  double ratePercent = 0;
  guarded([&] {
    const RecordsetPtr settings = store_.execute(defaultRateSelection(iKdPasal, strKdPhsl, strKdForm));
    // An average over no rows is a row that holds Null, which fails and leaves 0.
    if (!store::isEmptyResult(settings)) ratePercent = store::fieldNumber(settings, "TARIF_JML_BRUTO_");
  });
  return ratePercent;
}

double CF113204::pHit_TarifRataan(std::string_view sNPWP, std::string_view skdform, std::string_view sJnsDok,
                                  std::int16_t iMsPjk, std::int16_t iThPjk, std::int16_t iCorr,
                                  std::string_view sJnsPjk, std::string_view sPil) {
  double ratePercent = 0;
  guarded([&] {
    const mainreturn::AverageKey key{.npwp = sNPWP,
                                     .kdForm = skdform,
                                     .jenisDokumen = sJnsDok,
                                     .period = {.msPajak = iMsPjk, .thPajak = iThPjk, .kdPembetulanKe = iCorr},
                                     .kdJenisPajak = sJnsPjk};
    ratePercent = mainreturn::averageRate(mainreturn::readTotals(store_, key), sPil);
  });
  return ratePercent;
}

void CF113204::getTaxRate() {
  guarded([&] {
    const RecordsetPtr settings =
        store_.execute("SELECT * FROM SETTING_TARIF_PPH WHERE PASAL = 4 ORDER BY ITEM_PENGHASILAN ASC");
    RowCounts counts{};
    if (settings->get_RecordCount() <= 0) {
      for (const mainreturn::ReturnLine& line : mainreturn::returnLines) store::setField(form_, line.rate, 0.0);
    } else {
      settings->MoveFirst();
      // Transfers of land and buildings have no default rate.
      store::setField(form_, "B74", 0.0);
      for (; !settings->get_EOF(); settings->MoveNext()) applySettingsRow(form_, settings, counts);
    }
    for (std::size_t index = 0; index < averagedRates.size(); ++index)
      finishAveragedRate(form_, averagedRates[index], counts[index]);
  });
}

}  // namespace tarvola
