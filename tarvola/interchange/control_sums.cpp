#include "tarvola/interchange/control_sums.h"

#include <array>
#include <string>
#include <vector>

#include "tarvola/runtime/errors.h"
#include "tarvola/runtime/text_forms.h"
#include "tarvola/store/form_codes.h"
#include "tarvola/store/form_layouts.h"

namespace tarvola::interchange {

namespace {

// The gross amounts of the forms that have several; the interest slip's rows by kind and place come first.
constexpr auto lotteryGross = std::to_array<std::string_view>({"B13", "B23", "B33", "B43", "B53", "B63"});
constexpr auto interestGross =
    std::to_array<std::string_view>({"B1A3", "B1B3", "B1C3", "B23", "B33", "B43", "B53", "B63"});
constexpr auto exchangeGross = std::to_array<std::string_view>({"B13", "B23"});
constexpr auto constructionGross = std::to_array<std::string_view>({"B13", "B23", "B33", "B43", "B53"});
constexpr auto selfPaidGross = std::to_array<std::string_view>({"JmlBruto1", "JmlBruto2", "JmlBruto3"});
constexpr std::span<const std::string_view> noSum{};

constexpr auto forms = std::to_array<ReportForm>({
    {.kdForm = store::F113309.kdForm, .summedFields = lotteryGross},
    {.kdForm = store::F113310.kdForm, .summedFields = interestGross},
    {.kdForm = store::F113311.kdForm, .summedFields = exchangeGross},
    {.kdForm = store::F113312.kdForm, .summedFields = noSum},
    {.kdForm = store::FSewaTnhBgn.kdForm, .summedFields = noSum, .keepsLineBreaks = true},
    {.kdForm = store::F113316.kdForm, .summedFields = constructionGross},
    {.kdForm = store::FJasaKonstruksi.kdForm, .summedFields = selfPaidGross},
    {.kdForm = store::F113317.kdForm, .summedFields = noSum},
    {.kdForm = store::F113319.kdForm, .summedFields = noSum},
    {.kdForm = store::F113320.kdForm, .summedFields = noSum},
    {.kdForm = store::F113321.kdForm, .summedFields = noSum},
    {.kdForm = store::FAlihTnhBgn.kdForm, .summedFields = noSum, .keepsLineBreaks = true},
    {.kdForm = store::D113210.kdForm, .summedFields = noSum, .keepsLineBreaks = true, .isClosing = true},
});

using Elements = std::vector<std::size_t>;

Elements elementsOf(const ReportForm& form) {
  Elements elements;
  for (const std::string_view field : form.summedFields)
    elements.push_back(store::findLayout(form.kdForm)->position(field).value());
  return elements;
}

}  // namespace

std::span<const ReportForm> reportForms() noexcept { return forms; }

const ReportForm* findReportForm(std::string_view kdForm) noexcept {
  for (const ReportForm& form : forms)
    if (form.kdForm == kdForm) return &form;
  return nullptr;
}

std::span<const std::size_t> summedElements(const ReportForm& form) {
  static const auto all = [] {
    std::array<Elements, forms.size()> table;
    for (std::size_t i = 0; i < forms.size(); ++i) table[i] = elementsOf(forms[i]);
    return table;
  }();
  return all[static_cast<std::size_t>(&form - forms.data())];
}

double controlSum(std::span<const std::size_t> elements, const store::PackedText& fields, std::size_t firstField) {
  double sum = 0;
  for (const std::size_t element : elements) {
    if (firstField + element >= fields.count()) fail(ErrorNumber::SubscriptOutOfRange);
    sum += CDbl(fields[firstField + element]);
  }
  return sum;
}

}  // namespace tarvola::interchange
