#include "tarvola/cli/selfpaid_handle.h"

#include "tarvola/selfpaid/CPPhAlihTnhBgn.h"
#include "tarvola/selfpaid/CPPhJasaKonstruksi.h"
#include "tarvola/selfpaid/CPPhSewaTanahBangunan.h"
#include "tarvola/tarvola.h"

namespace tarvola::cli {

namespace {

/// A field and the property that writes it.
template <class Form>
struct Setter {
  std::string_view field;
  void (*put)(Form&, const Variant&);
};

template <class Form>
struct Kind;

/// Rent and transfer have the same properties.
template <class Form>
struct OnePairKind {
  static constexpr Setter<Form> setters[] = {
      {"Lokasi", [](Form& form, const Variant& value) { form.aLokasi(value); }},
      {"JMLBRUTO", [](Form& form, const Variant& value) { form.ajmlBruto(CDbl(value)); }},
      {"PPH", [](Form& form, const Variant& value) { form.aPPH(CDbl(value)); }}};
  static Date date(std::string_view text) { return DateValue(text); }
};

template <>
struct Kind<CPPhSewaTanahBangunan> : OnePairKind<CPPhSewaTanahBangunan> {
  using List = CDPPhSewaTanahBangunan;
};
template <>
struct Kind<CPPhAlihTnhBgn> : OnePairKind<CPPhAlihTnhBgn> {
  using List = CDPPhAlihTnhBgn;
};
template <>
struct Kind<CPPhJasaKonstruksi> {
  using Form = CPPhJasaKonstruksi;
  using List = CDPPhJasaKonstruksi;
  static constexpr Setter<Form> setters[] = {
      {"JmlBruto1", [](Form& form, const Variant& value) { form.ajmlBruto1(CDbl(value)); }},
      {"PPH1", [](Form& form, const Variant& value) { form.aPPH1(CDbl(value)); }},
      {"JmlBruto2", [](Form& form, const Variant& value) { form.ajmlBruto2(CDbl(value)); }},
      {"PPH2", [](Form& form, const Variant& value) { form.aPPH2(CDbl(value)); }},
      {"JmlBruto3", [](Form& form, const Variant& value) { form.ajmlBruto3(CDbl(value)); }},
      {"PPH3", [](Form& form, const Variant& value) { form.aPPH3(CDbl(value)); }}};
  static std::string_view date(std::string_view text) { return text; }
};

template <class Form>
class HandleOf final : public SelfPaidEditor::Handle {
 public:
  explicit HandleOf(const SelfPaidForm& kind) : kind_(kind) {}

  selfpaid::SelfPaidFrame& frame() override { return form_; }

  void create(const Filer& filer, const Period& period, std::string_view ntpn, std::string_view date) override {
    form_.pCreateHdr(filer.npwp, kind_.codes.kdForm, kind_.codes.jenisDokumen, period.month, period.year,
                     period.correction, ntpn, store::taxKind, filer.name, filer.address, Kind<Form>::date(date));
  }

  void put(std::string_view field, const Variant& value) override {
    for (const auto& setter : Kind<Form>::setters)
      if (setter.field == field) return setter.put(form_, value);
    if (field == "keterangan") form_.aKeterangan(value);
  }

  void removeListRow(const Period& period, std::string_view ntpn, double seq) override {
    typename Kind<Form>::List().pDeleteD113203Coll(kind_.list.kdForm, period.month, period.year, period.correction,
                                                   ntpn, 0, seq);
  }

 private:
  const SelfPaidForm& kind_;
  Form form_;
};

}  // namespace

std::unique_ptr<SelfPaidEditor::Handle> makeHandle(const SelfPaidForm& form) {
  if (form.codes.kdForm == store::FSewaTnhBgn.kdForm) return std::make_unique<HandleOf<CPPhSewaTanahBangunan>>(form);
  if (form.codes.kdForm == store::FAlihTnhBgn.kdForm) return std::make_unique<HandleOf<CPPhAlihTnhBgn>>(form);
  return std::make_unique<HandleOf<CPPhJasaKonstruksi>>(form);
}

}  // namespace tarvola::cli
