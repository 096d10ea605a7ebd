#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "tarvola/store/form_codes.h"

namespace tarvola::store {

/// One of the five returns that share a store, each for another article of the tax law. The library computes the
/// third; of the others it knows what their directory and their removal need.
struct ReturnKind {
  /// KD_JENIS_PAJAK of its documents.
  std::string_view kdJenisPajak;
  std::string_view mainForm;
  /// The article, by which payments are found.
  std::int16_t article = 0;
  /// Whether the documents of kind "117", which two returns share, belong to it as well.
  bool hasSharedDocuments = false;
  /// Fields in the packed text of a main form of the newer layout; 0 where every main form counts as new.
  std::size_t newLayoutFieldCount = 0;
  /// Its lists with items in DS_FORM_LAMPIRAN.
  std::array<std::string_view, 3> lists;
  /// Its lists with items in LAMPIRAN_SSP_PPh22; none where it has no self-paid forms.
  std::array<std::string_view, 3> selfPaidLists = {};
  /// Whether its self-paid forms are removed by the filer's number too.
  bool findsSelfPaidFormsByFiler = false;

  [[nodiscard]] constexpr bool hasSelfPaidForms() const noexcept { return !selfPaidLists.front().empty(); }
};

/// KD_JENIS_PAJAK of the documents that belong to two returns at once.
inline constexpr std::string_view sharedKind = "117";

inline constexpr std::array returnKinds = {
    ReturnKind{
        .kdJenisPajak = "111", .mainForm = "F113201", .article = 21, .hasSharedDocuments = true, .lists = {"D113201"}},
    ReturnKind{.kdJenisPajak = "112",
               .mainForm = "F113202",
               .article = 22,
               .lists = {"D113204"},
               .selfPaidLists = {"D113202", "D113203", "DImporDbyrSdr"},
               .findsSelfPaidFormsByFiler = true},
    ReturnKind{.kdJenisPajak = taxKind,
               .mainForm = F113204.kdForm,
               .article = taxArticle,
               .newLayoutFieldCount = 107,
               .lists = {"D113206", "D113207", "D113208"},
               .selfPaidLists = {"DSewaTnhBgn", "DJasaKonstruksi", "DAlihTnhBgn"}},
    ReturnKind{.kdJenisPajak = "114",
               .mainForm = "F113203",
               .article = 23,
               .hasSharedDocuments = true,
               .newLayoutFieldCount = 115,
               .lists = {"D113205"}},
    ReturnKind{.kdJenisPajak = "118",
               .mainForm = "F113205",
               .article = 15,
               .lists = {"D113209", "DWklDagang"},
               .selfPaidLists = {"DImblnPelPenLN", "DWklDagang"}},
};

/// The return of a tax kind, nullptr for another kind, "117" too.
constexpr const ReturnKind* findReturnKind(std::string_view kdJenisPajak) noexcept {
  for (const ReturnKind& kind : returnKinds)
    if (kind.kdJenisPajak == kdJenisPajak) return &kind;
  return nullptr;
}

/// The return of a main form, nullptr for another form.
constexpr const ReturnKind* findReturnOfMainForm(std::string_view mainForm) noexcept {
  for (const ReturnKind& kind : returnKinds)
    if (kind.mainForm == mainForm) return &kind;
  return nullptr;
}

/// The forms on which the slips of an article are written.
struct SlipFormsOfArticle {
  std::int16_t article = 0;
  std::array<std::string_view, 9> forms;
};

inline constexpr std::array slipFormsOfArticles = {
    SlipFormsOfArticle{
        .article = 4,
        .forms = {"F113309", "F113310", "F113311", "F113312", "F113316", "F113317", "F113319", "F113320", "F113321"}},
    SlipFormsOfArticle{.article = 15, .forms = {"F113313", "F113314", "F113315", "PPh24"}},
    SlipFormsOfArticle{.article = 21, .forms = {"F113301", "F113302", "F113308_A"}},
    SlipFormsOfArticle{.article = 22, .forms = {"F113303", "F113304", "F113305"}},
    SlipFormsOfArticle{.article = 23, .forms = {"F113306", "F113307", "F113308"}},
};

}  // namespace tarvola::store
