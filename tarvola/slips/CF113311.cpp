#include "tarvola/slips/CF113311.h"

#include "tarvola/runtime/text_forms.h"
#include "tarvola/store/failure_rule.h"
#include "tarvola/store/field_access.h"

namespace tarvola {

using store::Statement;
using store::text;

void CF113311::pCreateF113311Hdr(std::string_view sNPWP, std::string_view snmForm, std::string_view sJnsDok,
                                 std::int16_t iMsPjk, std::int16_t iThPjk, std::int16_t iCorrSeq,
                                 std::string_view sNoBukti, std::string_view sJnsPjk, std::string_view /*sUserName*/,
                                 std::string_view sNmWP, std::string_view sAlamat, Date dTgl_Setor) {
  createStub({.key = keyOf(sNPWP, snmForm, sJnsDok, iMsPjk, iThPjk, iCorrSeq, sNoBukti, sJnsPjk),
              .filerName = sNmWP,
              .filerAddress = sAlamat,
              .dateText = CStr(dTgl_Setor)});
}

void CF113311::pDeleteF113311(std::string_view sNPWP, std::string_view snmForm, std::string_view sJnsDok,
                              std::int16_t iMsPjk, std::int16_t iThPjk, std::int16_t iCorrSeq,
                              std::string_view sNoBukti, std::string_view sJnsPjk, std::string_view /*strBursa*/) {
  deleteSlip(keyOf(sNPWP, snmForm, sJnsDok, iMsPjk, iThPjk, iCorrSeq, sNoBukti, sJnsPjk));
}

void CF113311::pGetBukti(std::string_view /*sNPWP*/, std::string_view NoBukti, std::string_view Pembetulan) {
  guarded([&] {
    openRows(Statement("SELECT * FROM DS_FORM_INDUK WHERE ( KD_FORM = 'F113311' AND NOBUKTI = ")
             << text(NoBukti) << " AND KD_PEMBETULAN_KE = " << store::bare(Pembetulan) << ")");
    if (!storeRow()->get_BOF()) storeRow()->MoveFirst();
  });
}

// --- the exchanges ---------------------------------------------------------------------------------------

RecordsetPtr CF113311::getBursa() {
  RecordsetPtr names;
  guarded([&] { names = storeObject().open("SELECT BURSA FROM BURSA ORDER BY ID ASC"); });
  return names;
}

bool CF113311::checkBursa(std::string_view sNamaBursa) {
  bool isNew = false;
  guarded([&] {
    const RecordsetPtr found =
        storeObject().open(Statement("SELECT BURSA FROM BURSA WHERE BURSA = ") << text(sNamaBursa));
    isNew = found->get_RecordCount() != 1;
  });
  return isNew;
}

void CF113311::addBursa(std::string_view sNamaBursa) {
  guarded([&] {
    const RecordsetPtr last = storeObject().execute("SELECT MAX(ID) AS iMaxIDBursa FROM BURSA ");
    // Over an empty table the maximum is Null, which is no Integer: the table must hold a name from the start.
    const std::int16_t lastId = store::fieldInteger(last, "iMaxIDBursa");
    const std::int16_t id = CInt(lastId + 1.0);
    storeObject().execute(Statement("INSERT INTO BURSA VALUES (")
                          << text(sNamaBursa) << " , " << std::int32_t{id} << ")");
  });
}

std::int16_t CF113311::pGetIndexBursa(std::string_view sNamaBursa) {
  std::int16_t id = 0;
  guarded([&] {
    id = store::fieldInteger(
        storeObject().execute(Statement("SELECT ID FROM BURSA WHERE BURSA = ") << text(sNamaBursa)), "ID");
  });
  return id;
}

}  // namespace tarvola
