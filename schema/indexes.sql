-- The indexes of a store. Each one makes every insert of its table dearer, so there is none that does not keep some
-- frequent statement from walking a period, a year or the whole table.

-- Every statement about one return, one form of it, or one document. The totals stand in it so that the average rates,
-- which each save of a slip asks for, are summed from the index alone.
CREATE INDEX DS_FORM_INDUK_PERIOD ON DS_FORM_INDUK (
  TH_PAJAK, MS_PAJAK, KD_PEMBETULAN_KE, KD_FORM, NOBUKTI, JENIS_DOKUMEN, KD_JENIS_PAJAK, NPWP,
  Total_Bruto, Total_PPh, Total_Bruto1, Total_PPh1, Total_Bruto2, Total_PPh2,
  Total_Bruto3, Total_PPh3, Total_Bruto4, Total_PPh4
);
-- The numbers of a year in their order, for the next number and for the question whether one is free; with the year
-- left out (see the statistics) also the slip of a number whose period is not known.
CREATE INDEX DS_FORM_INDUK_NUMBER ON DS_FORM_INDUK (TH_PAJAK, KD_PEMBETULAN_KE, NOBUKTI, KD_FORM);

-- The items of a list, and the last SEQ in it.
CREATE INDEX DS_FORM_LAMPIRAN_LIST ON DS_FORM_LAMPIRAN (
  TH_PAJAK, MS_PAJAK, KD_PEMBETULAN_KE, KD_FORM, COLLNO, SEQ
);
-- The item of a slip. All columns of the question stand in it, so that it is preferred to the index above.
CREATE INDEX DS_FORM_LAMPIRAN_NUMBER ON DS_FORM_LAMPIRAN (
  NOBUKTI, TH_PAJAK, MS_PAJAK, KD_PEMBETULAN_KE, KD_FORM, COLLNO
);

CREATE INDEX DAT_SSP_PPh22_PERIOD ON DAT_SSP_PPh22 (TH_PAJAK, MS_PAJAK, KD_PEMBETULAN_KE, KD_FORM, NOBUKTI);
CREATE INDEX LAMPIRAN_SSP_PPh22_LIST ON LAMPIRAN_SSP_PPh22 (
  TH_PAJAK, MS_PAJAK, KD_PEMBETULAN_KE, KD_FORM, COLLNO, SEQ
);

-- The payees of one slip.
CREATE INDEX D113210_NUMBER ON D113210 (TH_PAJAK, MS_PAJAK, KD_PEMBETULAN_KE, NOBUKTI);
-- Count and sums of a kind, from the index alone.
CREATE INDEX D113210_KIND ON D113210 (TH_PAJAK, MS_PAJAK, KD_PEMBETULAN_KE, JENIS, NPWP, BRUTO, PPH);

CREATE INDEX DATSSP_PERIOD ON DATSSP (ThPjk, MsPjk, KodePasal);
CREATE INDEX datPBKPPhMasa_PERIOD ON datPBKPPhMasa (ThPjkPBK, MsPjkPBK);
-- One payment and one transfer, which an import looks for before it adds one. As many columns of the question stand in
-- them that they are preferred to the indexes of the period.
CREATE INDEX DATSSP_NUMBER ON DATSSP (NTPP, ThPjk, MsPjk, KodePasal);
CREATE INDEX datPBKPPhMasa_NUMBER ON datPBKPPhMasa (NoBuktiPBK, ThPjkPBK, MsPjkPBK, PASAL);
CREATE INDEX PARTNER_INFO_NPWP ON PARTNER_INFO (NPWP_PARTNER);
CREATE INDEX DS_REF_JENIS_PAJAK_KIND ON DS_REF_JENIS_PAJAK (KD_JENIS_PAJAK, KD_DOK_TRV);

-- Statistics: rows in all, then rows that share the first column, the first two, and so on. They are those of a large
-- store from the first day, so that a statement takes the same way at ten slips and at a million. The few years
-- that they tell of let a slip be found by its number although the index begins with the year.
ANALYZE sqlite_master;
INSERT INTO sqlite_stat1 (tbl, idx, stat) VALUES
  ('DS_FORM_INDUK', 'DS_FORM_INDUK_PERIOD', '1000000 200000 20000 10000 1000 1 1 1 1 1 1 1 1 1 1 1 1 1 1'),
  ('DS_FORM_INDUK', 'DS_FORM_INDUK_NUMBER', '1000000 200000 100000 2 1');
