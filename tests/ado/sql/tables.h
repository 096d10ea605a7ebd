#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tarvola/ado/sql/compile.h"
#include "tarvola/runtime/text_forms.h"

namespace tarvola::ado::sql {

/// The tables that the tests of the dialect know, as a store would name them.
class TestTables final : public Catalog {
 public:
  [[nodiscard]] const Table* find(std::string_view name) const override {
    for (const Table& table : all())
      if (equalsIgnoreCase(table.name, name)) return &table;
    return nullptr;
  }

  static const std::vector<Table>& all() {
    using enum ColumnType;
    static const std::vector<Table> tables{
        {"DS_FORM_INDUK",
         {{"NPWP", Text},
          {"KD_FORM", Text},
          {"JENIS_DOKUMEN", Text},
          {"MS_PAJAK", Integer},
          {"TH_PAJAK", Integer},
          {"KD_PEMBETULAN_KE", Integer},
          {"NOBUKTI", Text},
          {"KD_JENIS_PAJAK", Text},
          {"DAT_FORM", LongText},
          {"TGL_REKAM", Date},
          {"TGL_UBAH", Date},
          {"NIP", Text},
          {"FlagNPWP", Integer},
          {"Total_Bruto", Double},
          {"Total_PPh", Double},
          {"Total_Bruto1", Double}}},
        {"DS_FORM_LAMPIRAN",
         {{"KD_FORM", Text},
          {"MS_PAJAK", Integer},
          {"TH_PAJAK", Integer},
          {"KD_PEMBETULAN_KE", Integer},
          {"COLLNO", Integer},
          {"SEQ", Double},
          {"NOBUKTI", Text},
          {"DAT_FORM", LongText}}},
        {"DAT_SSP_PPh22",
         {{"NPWP", Text},
          {"KD_FORM", Text},
          {"JENIS_DOKUMEN", Text},
          {"MS_PAJAK", Integer},
          {"TH_PAJAK", Integer},
          {"KD_PEMBETULAN_KE", Integer},
          {"NOBUKTI", Text},
          {"KD_JENIS_PAJAK", Text},
          {"DAT_FORM", LongText},
          {"TGL_REKAM", Date},
          {"TGL_UBAH", Date},
          {"NIP", Text}}},
        {"LAMPIRAN_SSP_PPh22",
         {{"KD_FORM", Text},
          {"MS_PAJAK", Integer},
          {"TH_PAJAK", Integer},
          {"KD_PEMBETULAN_KE", Integer},
          {"COLLNO", Integer},
          {"SEQ", Double},
          {"NOBUKTI", Text},
          {"DAT_FORM", LongText}}},
        {"D113210",
         {{"NPWP", Text},
          {"NMWP", Text},
          {"ALM", Text},
          {"MS_PAJAK", Integer},
          {"TH_PAJAK", Integer},
          {"KD_PEMBETULAN_KE", Integer},
          {"TGL_POTONG", Date},
          {"NOBUKTI", Text},
          {"JENIS", Text},
          {"TEMPAT", Text},
          {"BRUTO", Double},
          {"TARIF", Double},
          {"PPH", Double},
          {"ATR1", Text},
          {"ATR2", Text}}},
        {"DATSSP",
         {{"TableKey", Long},
          {"KodePasal", Integer},
          {"NPWP", Text},
          {"MsPjk", Integer},
          {"ThPjk", Integer},
          {"KdPmbtln", Integer},
          {"KdMAP", Text},
          {"KdJnsStr", Text},
          {"TglSSP", Date},
          {"NTPP", Text},
          {"JmlByr", Double},
          {"Catatan", Text},
          {"NoSK", Text}}},
        {"datPBKPPhMasa",
         {{"NPWPTertuju", Text},
          {"PASAL", Integer},
          {"MsPjkPBK", Integer},
          {"ThPjkPBK", Integer},
          {"NoBuktiPBK", Text},
          {"TanggalBerlaku", Date},
          {"JumlahPBK", Double}}},
        {"SETTING_NOBUKTI_PPH", {{"PASAL", Integer}, {"NO_URUT", Long}, {"FORMAT_STRING", Text}}},
        {"SETTING_TARIF_PPH",
         {{"PASAL", Integer}, {"KODE_FORM", Text}, {"ITEM_PENGHASILAN", Text}, {"TARIF_JML_BRUTO", Double}}},
        {"BURSA", {{"BURSA", Text}, {"ID", Integer}}},
        {"JENIS_KOMODITI", {{"KODE_KOMODITI", Text}, {"NAMA_KOMODITI", Text}, {"PASAL", Integer}, {"TARIF", Double}}},
        {"PARTNER_INFO",
         {{"NPWP_PARTNER", Text},
          {"NAMA_WP_PARTNER", Text},
          {"ALAMAT_PARTNER", Text},
          {"KODE_POS_PARTNER", Text},
          {"TELEPON_PARTNER", Text}}},
        {"PROFILE",
         {{"NPWP", Text},
          {"NAMA_WP_PARTNER", Text},
          {"ALAMAT_WP_PARTNER", Text},
          {"NAMA_WP_PROFILE", Text},
          {"Alamat", Text}}},
        {"DS_REF_JENIS_PAJAK", {{"KD_JENIS_PAJAK", Text}, {"KD_DOK_TRV", Text}, {"URAIAN", Text}}},
        {"DAT_FORM", {{"NmForm", Text}, {"MsPjk", Integer}, {"ThPjk", Integer}, {"CorrSEQ", Integer}}},
        // A table of every type, for what the dialect does with each.
        {"Kinds",
         {{"T", Text},
          {"L", LongText},
          {"I", Integer},
          {"N", Long},
          {"D", Double},
          {"B", Boolean},
          {"W", Date},
          {"X", Any}}},
        {"Other Table", {{"T", Text}, {"Second Column", Integer}}},
    };
    return tables;
  }
};

}  // namespace tarvola::ado::sql
