#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace tarvola::store {

/// The table that a form's rows lie in.
enum class FormTable : std::uint8_t {
  Induk,  ///< DS_FORM_INDUK: main return, slips, headers of the lists of slips
  Ssp,    ///< DAT_SSP_PPh22: self-paid forms and the headers of their lists
};

/// What kind of document a form is.
enum class FormKind : std::uint8_t { MainReturn, Slip, SlipList, SelfPaidForm, SelfPaidList };

/// The codes that identify a document of the return.
struct FormCodes {
  std::string_view kdForm;
  std::string_view jenisDokumen;
  FormTable table = FormTable::Induk;
  FormKind kind = FormKind::Slip;
};

/// KD_JENIS_PAJAK of the return that this library computes, PPh Pasal 4 ayat (2), and the article's number.
inline constexpr std::string_view taxKind = "113";
inline constexpr std::int16_t taxArticle = 4;
/// NOBUKTI of a document that has no slip number of its own: the main form, list headers.
inline constexpr std::string_view headerNumber = "-";

inline constexpr FormCodes F113204{.kdForm = "F113204", .jenisDokumen = "01", .kind = FormKind::MainReturn};
inline constexpr FormCodes F113309{.kdForm = "F113309", .jenisDokumen = "02"};
inline constexpr FormCodes F113310{.kdForm = "F113310", .jenisDokumen = "03"};
inline constexpr FormCodes F113311{.kdForm = "F113311", .jenisDokumen = "04"};
inline constexpr FormCodes F113312{.kdForm = "F113312", .jenisDokumen = "05"};
inline constexpr FormCodes F113316{.kdForm = "F113316", .jenisDokumen = "06"};
inline constexpr FormCodes F113317{.kdForm = "F113317", .jenisDokumen = "07"};
inline constexpr FormCodes D113206{.kdForm = "D113206", .jenisDokumen = "08", .kind = FormKind::SlipList};
inline constexpr FormCodes DSewaTnhBgn{
    .kdForm = "DSewaTnhBgn", .jenisDokumen = "11", .table = FormTable::Ssp, .kind = FormKind::SelfPaidList};
inline constexpr FormCodes FSewaTnhBgn{
    .kdForm = "FSewaTnhBgn", .jenisDokumen = "12", .table = FormTable::Ssp, .kind = FormKind::SelfPaidForm};
inline constexpr FormCodes DJasaKonstruksi{
    .kdForm = "DJasaKonstruksi", .jenisDokumen = "13", .table = FormTable::Ssp, .kind = FormKind::SelfPaidList};
inline constexpr FormCodes FJasaKonstruksi{
    .kdForm = "FJasaKonstruksi", .jenisDokumen = "14", .table = FormTable::Ssp, .kind = FormKind::SelfPaidForm};
inline constexpr FormCodes F113319{.kdForm = "F113319", .jenisDokumen = "15"};
inline constexpr FormCodes F113320{.kdForm = "F113320", .jenisDokumen = "16"};
inline constexpr FormCodes F113321{.kdForm = "F113321", .jenisDokumen = "17"};
inline constexpr FormCodes DAlihTnhBgn{
    .kdForm = "DAlihTnhBgn", .jenisDokumen = "18", .table = FormTable::Ssp, .kind = FormKind::SelfPaidList};
inline constexpr FormCodes FAlihTnhBgn{
    .kdForm = "FAlihTnhBgn", .jenisDokumen = "19", .table = FormTable::Ssp, .kind = FormKind::SelfPaidForm};
inline constexpr FormCodes D113210{.kdForm = "D113210", .jenisDokumen = "20", .kind = FormKind::SlipList};

/// All forms of the return in the order of their document codes.
inline constexpr std::array allForms = {F113204, F113309, F113310,     F113311,     F113312,         F113316,
                                        F113317, D113206, DSewaTnhBgn, FSewaTnhBgn, DJasaKonstruksi, FJasaKonstruksi,
                                        F113319, F113320, F113321,     DAlihTnhBgn, FAlihTnhBgn,     D113210};

/// The codes of a form by its exact code, nullptr for an unknown one.
constexpr const FormCodes* findForm(std::string_view kdForm) noexcept {
  for (const FormCodes& form : allForms)
    if (form.kdForm == kdForm) return &form;
  return nullptr;
}

}  // namespace tarvola::store
