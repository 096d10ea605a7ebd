#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "tarvola/mainreturn/CF113204.h"
#include "tarvola/runtime/clock.h"
#include "tarvola/runtime/errors.h"
#include "tarvola/runtime/regional_settings.h"
#include "tarvola/runtime/text_forms.h"
#include "tarvola/selfpaid/CPPhAlihTnhBgn.h"
#include "tarvola/selfpaid/CPPhJasaKonstruksi.h"
#include "tarvola/selfpaid/CPPhSewaTanahBangunan.h"
#include "tarvola/store/field_access.h"
#include "tests/lists/open_store.h"

namespace tarvola::test {

using Text = std::string_view;

inline constexpr Text filerNpwp = "013121660091000";
inline constexpr Text filerName = "PT Contoh Sejahtera";
inline constexpr Text filerAddress = "Jl. Merdeka No. 1";
/// How every packed text of January begins.
inline constexpr Text packedStart = "013121660091000;PT Contoh Sejahtera;Jl. Merdeka No. 1;1;2009;0;";

inline const std::string noCurrentRecord(errorText(ErrorNumber::NoCurrentRecord));
inline const std::string typeMismatch(errorText(ErrorNumber::TypeMismatch));
inline const std::string invalidUseOfNull(errorText(ErrorNumber::InvalidUseOfNull));
inline const std::string objectVariableNotSet(errorText(ErrorNumber::ObjectVariableNotSet));

/// A store whose January 2009 has a return, on 7 February 2009.
class SelfPaidStore : public OpenStore {
 public:
  SelfPaidStore() {
    setToday(Date::fromYmd(2009, 2, 7));
    createReturn(january);
  }
  ~SelfPaidStore() { setToday(std::nullopt); }

  void createReturn(const store::Period& period) const {
    CF113204 mainReturn;
    mainReturn.pCreateF113204Hdr(filerNpwp, "F113204", "01", period.msPajak, period.thPajak, period.kdPembetulanKe, "-",
                                 "113", filerName, filerAddress, "07/02/2009");
  }
  /// Fields of a stored return, that of January if no other is named, with ";" between them.
  [[nodiscard]] std::string ofReturn(const std::vector<Text>& fields, const store::Period& period = january) const {
    CF113204 mainReturn;
    mainReturn.pGetF113204("", "", "01", period.msPajak, period.thPajak, period.kdPembetulanKe, "", "113");
    std::string text;
    for (const Text field : fields)
      text += (text.empty() ? "" : ";") + store::fieldTextOr(mainReturn.rs4_2Form(), field, "-null-");
    return text;
  }
  /// "NOBUKTI|DAT_FORM" of all forms of a code.
  [[nodiscard]] std::vector<std::string> forms(Text kdForm) const {
    return rows("SELECT NOBUKTI, DAT_FORM FROM DAT_SSP_PPh22 WHERE KD_FORM = '" + std::string(kdForm) +
                "' ORDER BY NOBUKTI, DAT_FORM");
  }
  /// "SEQ|NOBUKTI" of all rows of a list.
  [[nodiscard]] std::vector<std::string> listed(Text kdForm) const {
    return rows("SELECT SEQ, NOBUKTI FROM LAMPIRAN_SSP_PPh22 WHERE KD_FORM = '" + std::string(kdForm) +
                "' ORDER BY SEQ, NOBUKTI");
  }
  /// "gross;tax" of the header of a list, "none" or "several" if there is not exactly one.
  [[nodiscard]] std::string listSums(Text kdForm) const {
    const std::string packed = row("SELECT DAT_FORM FROM DAT_SSP_PPh22 WHERE KD_FORM = '" + std::string(kdForm) + "'");
    const std::size_t head = packed.find(";0;");
    return head == std::string::npos ? packed : packed.substr(head + 3);
  }
};

// --- what the three kinds of form are called, written down here a second time ---------------------------------

template <class Form>
struct Kind;
template <>
struct Kind<CPPhSewaTanahBangunan> {
  static constexpr Text form = "FSewaTnhBgn";
  static constexpr Text document = "12";
  static constexpr Text list = "DSewaTnhBgn";
  static constexpr Text listDocument = "11";
  static std::vector<Text> line() { return {"B5b3", "B5b4", "B5b5"}; }
  static constexpr Text defaultRate = "10";
  /// What stands between the head and the date, and behind the first tax.
  static constexpr Text beforeDate = ";";
  static constexpr Text behindTax = "";
};
template <>
struct Kind<CPPhAlihTnhBgn> {
  static constexpr Text form = "FAlihTnhBgn";
  static constexpr Text document = "19";
  static constexpr Text list = "DAlihTnhBgn";
  static constexpr Text listDocument = "18";
  static std::vector<Text> line() { return {"B73", "B74", "B75"}; }
  static constexpr Text defaultRate = "0";
  static constexpr Text beforeDate = "";
  static constexpr Text behindTax = "";
};
template <>
struct Kind<CPPhJasaKonstruksi> {
  static constexpr Text form = "FJasaKonstruksi";
  static constexpr Text document = "14";
  static constexpr Text list = "DJasaKonstruksi";
  static constexpr Text listDocument = "13";
  static std::vector<Text> line() { return {"B6a23", "B6a24", "B6a25"}; }
  /// The average of the items B44 (4) and B54 (6).
  static constexpr Text defaultRate = "5";
  static constexpr Text beforeDate = "";
  static constexpr Text behindTax = ";0;0;0;0";
};

// --- the road of a form ----------------------------------------------------------------------------------------

inline const Date paidOn = Date::fromYmd(2009, 2, 5);

inline void create(CPPhSewaTanahBangunan& form, Text number, Text name = filerName, Text npwp = filerNpwp) {
  form.pCreateHdr(npwp, "FSewaTnhBgn", "12", 1, 2009, 0, number, "113", name, filerAddress, paidOn);
}
inline void create(CPPhAlihTnhBgn& form, Text number, Text name = filerName, Text npwp = filerNpwp) {
  form.pCreateHdr(npwp, "FAlihTnhBgn", "19", 1, 2009, 0, number, "113", name, filerAddress, paidOn);
}
inline void create(CPPhJasaKonstruksi& form, Text number, Text name = filerName, Text npwp = filerNpwp) {
  form.pCreateHdr(npwp, "FJasaKonstruksi", "14", 1, 2009, 0, number, "113", name, filerAddress, "05/02/2009");
}

template <class Form>
void load(Form& form, Text number, double seq) {
  form.pGet(filerNpwp, Kind<Form>::form, Kind<Form>::document, 1, 2009, 0, number, "113", filerName, filerAddress,
            paidOn, seq);
}

/// The date of payment as pCreateHdr of the form takes it.
template <class Form>
auto dateArgument() {
  if constexpr (std::is_same_v<Form, CPPhJasaKonstruksi>) {
    return Text("05/02/2009");
  } else {
    return paidOn;
  }
}

/// Writes the first pair of amounts, rupiah.
inline void put(CPPhSewaTanahBangunan& form, double gross, double tax) {
  form.ajmlBruto(gross);
  form.aPPH(tax);
}
inline void put(CPPhAlihTnhBgn& form, double gross, double tax) {
  form.ajmlBruto(gross);
  form.aPPH(tax);
}
inline void put(CPPhJasaKonstruksi& form, double gross, double tax) {
  form.ajmlBruto1(gross);
  form.aPPH1(tax);
}

/// Starts a new form: an empty row, load, old values, status, SEQ.
template <class Form>
void begin(Form& form, Text number, double seq) {
  create(form, number);
  load(form, number, 0);
  form.pAssignOldValues();
  form.pAssignStatus(true, false, false);
  form.aSEQ(seq);
}

/// Loads a form for an edit: old values, status.
template <class Form>
void beginEdit(Form& form, Text number, double seq) {
  load(form, number, seq);
  form.pAssignOldValues();
  form.pAssignStatus(false, true, false);
}

template <class Form>
void save(Form& form) {
  form.pHitPjk(1);
  form.pUpdate();
}

template <class Form>
void add(Text number, double seq, double gross, double tax) {
  Form form;
  begin(form, number, seq);
  put(form, gross, tax);
  save(form);
}

/// Adds a form to a payment that has one already: that one is loaded, and no old values are kept.
template <class Form>
void addBeside(Text number, double existingSeq, double seq, double gross, double tax) {
  Form form;
  load(form, number, existingSeq);
  form.pAssignStatus(true, false, false);
  form.aSEQ(seq);
  put(form, gross, tax);
  save(form);
}

template <class Form>
void remove(Text number, double seq) {
  Form form;
  form.pDeleteForm(filerNpwp, Kind<Form>::form, Kind<Form>::document, 1, 2009, 0, number, "113", seq);
}

/// The packed text of a saved form of one pair, whole rupiah, without location.
template <class Form>
std::string packed(Text number, Text seq, Text gross, Text tax) {
  std::string text(packedStart);
  text.append(Kind<Form>::beforeDate).append("05/02/2009;").append(number).append(";").append(seq).append(";");
  text.append(gross).append(";").append(tax).append(Kind<Form>::behindTax);
  if (!Kind<Form>::behindTax.empty()) text.append(";").append(tax).append(";").append(gross);
  return text;
}

// --- tests that hold for all three ----------------------------------------------------------------------------

template <class Form>
class SelfPaidForms : public testing::Test {
 protected:
  [[nodiscard]] std::vector<std::string> forms() const { return store.forms(Kind<Form>::form); }
  [[nodiscard]] std::vector<std::string> listed() const { return store.listed(Kind<Form>::list); }
  [[nodiscard]] std::string listSums() const { return store.listSums(Kind<Form>::list); }
  /// "gross;rate;tax" of the line of the return that the first pair moves.
  [[nodiscard]] std::string line() const { return store.ofReturn(Kind<Form>::line()); }

  SelfPaidStore store;
  CapturedMessages messages;
};
using AllForms = testing::Types<CPPhSewaTanahBangunan, CPPhAlihTnhBgn, CPPhJasaKonstruksi>;
struct FormNames {
  template <class Form>
  static std::string GetName(int) {
    return std::string(Kind<Form>::form);
  }
};

}  // namespace tarvola::test
