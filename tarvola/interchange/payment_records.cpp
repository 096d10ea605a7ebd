#include "tarvola/interchange/payment_records.h"

namespace tarvola::interchange {

namespace {

using namespace payment_columns;
using store::bare;
using store::number;
using store::Statement;
using store::text;

/// So many empty texts, with a comma before each.
void appendEmptyTexts(Statement& values, int count) {
  for (int i = 0; i < count; ++i) values << ",''";
}

}  // namespace

Statement dateValue(std::string_view date) { return Statement("DateValue(") << text(date) << ")"; }

Statement selectPayment(const PaymentLine& line, const store::Period& period) {
  return Statement("SELECT * FROM DATSSP WHERE KODEPASAL = ")
         << std::int32_t{line.article()} << " AND MsPjk = " << std::int32_t{period.msPajak}
         << " AND ThPjk = " << std::int32_t{period.thPajak} << " AND KdPmbtln = " << std::int32_t{period.kdPembetulanKe}
         << " AND KdMAP = " << text(line.text(KdMAP)) << " AND NTPP = " << text(line.text(NTPP))
         << " AND KdJnsStr = " << text(line.text(KdJnsStr)) << " AND TglSSP = " << dateValue(line.text(TglSSP))
         << " ORDER BY TGLSSP DESC";
}

Statement insertPayment(const PaymentLine& line, const store::Period& period, std::string_view npwp, double tableKey) {
  return Statement(
             "INSERT INTO DATSSP(TableKey,KodePasal,NPWP,MsPjk,ThPjk,KdPmbtln,  "
             "KdMAP,KdJnsStr,TglSSP,NTPP,JmlByr,Catatan,NoSK) VALUES (")
         << number(tableKey) << ", " << std::int32_t{line.article()} << ", " << text(npwp) << ", "
         << std::int32_t{period.msPajak} << " ," << std::int32_t{period.thPajak} << ","
         << std::int32_t{period.kdPembetulanKe} << "," << text(line.text(KdMAP)) << ", " << text(line.text(KdJnsStr))
         << "," << dateValue(line.text(TglSSP)) << ", " << text(line.text(NTPP)) << ", "
         << number(line.wholeRupiah(JmlByr)) << ",'','')";
}

Statement selectTransfer(const PaymentLine& line, std::string_view npwp) {
  return Statement("SELECT * FROM datPBKPPhMasa WHERE NPWPTertuju = ")
         << text(npwp) << " AND PASAL = " << std::int32_t{line.article()}
         << " AND NoBuktiPBK = " << text(line.text(NoBuktiPBK)) << " AND MsPjkPBK = " << bare(line.text(MsPjkPBK))
         << " AND ThPjkPBK = " << bare(line.text(ThPjkPBK));
}

Statement insertTransfer(const PaymentLine& line, const store::FilerHeader& filer) {
  const std::string month = line.text(MsPjkPBK);
  const std::string year = line.text(ThPjkPBK);
  const Statement date = dateValue(line.text(TanggalBerlaku));
  Statement insert("INSERT INTO datPBKPPhMasa VALUES (");
  insert << std::int32_t{line.article()} << "," << text(line.text(NoBuktiPBK)) << "," << bare(month) << ","
         << bare(year) << ",1";
  appendEmptyTexts(insert, 2);
  insert << "," << date;
  appendEmptyTexts(insert, 5);
  insert << "," << bare(month) << "," << bare(year);
  appendEmptyTexts(insert, 5);
  insert << "," << text(filer.name) << "," << text(filer.address) << "," << text(filer.npwp);
  appendEmptyTexts(insert, 2);
  insert << "," << bare(month) << "," << bare(year);
  appendEmptyTexts(insert, 5);
  insert << "," << date << "," << number(line.wholeRupiah(JumlahPBK));
  appendEmptyTexts(insert, 1);
  insert << "," << date;
  appendEmptyTexts(insert, 2);
  return insert << ")";
}

}  // namespace tarvola::interchange
