#include <array>
#include <string>
#include <utility>

#include "tarvola/mainreturn/CF113204.h"
#include "tarvola/mainreturn/blank_return.h"
#include "tarvola/store/document_key.h"
#include "tarvola/store/failure_rule.h"
#include "tarvola/store/field_access.h"
#include "tarvola/store/form_codes.h"
#include "tarvola/store/statement.h"

namespace tarvola {
namespace {

using store::bare;
using store::FormCodes;
using store::Statement;
using store::text;

/// One of the six documents that a return has before its first slip.
struct HeaderDocument {
  FormCodes form;
  /// What the packed text says behind the six leading fields; the main form has a text of its own.
  std::string_view amounts;
  /// Whether a document that exists is replaced; otherwise it stays as it is.
  bool replaces = true;
  /// Whether the new row has the tax kind that the caller names; otherwise "113" whatever the caller names.
  bool takesCallersTaxKind = false;
};

// In the order in which they are made, since a failure leaves those before it.
constexpr std::array headerDocuments = {
    HeaderDocument{.form = store::F113204, .amounts = "", .replaces = false, .takesCallersTaxKind = true},
    HeaderDocument{.form = store::D113210,
                   .amounts = ";0;0;0;0;0;0;0;0;0;0;0;0;0;0;0",
                   .replaces = false,
                   .takesCallersTaxKind = true},
    HeaderDocument{.form = store::DSewaTnhBgn, .amounts = ";0;0"},
    HeaderDocument{.form = store::DJasaKonstruksi, .amounts = ";0;0"},
    HeaderDocument{.form = store::D113206, .amounts = ";0;0;0;0"},
    HeaderDocument{.form = store::DAlihTnhBgn, .amounts = ";0;0"},
};

/// Makes one header document. `sought` is the key that is looked for, of the caller's tax kind.
void makeHeader(const store::StoreObject& store, const HeaderDocument& document, const store::DocumentKey& sought,
                const std::string& packedHead, std::string_view dateText) {
  const RecordsetPtr existing = store.open(store::selectOwnDocument(document.form.table, sought));
  if (!store::isEmptyResult(existing)) {
    if (!document.replaces) return;
    // Only the first row goes; a second one of the same key would stay.
    existing->Delete(adAffectCurrent);
  }
  store::DocumentKey made = sought;
  made.kdForm = document.form.kdForm;
  if (!document.takesCallersTaxKind) made.kdJenisPajak = store::taxKind;
  const bool isMainForm = document.form.kind == store::FormKind::MainReturn;
  const std::string packed = packedHead + (isMainForm ? mainreturn::blankReturn() : std::string(document.amounts));
  store.execute(store::insertDocument(document.form.table, made, packed, dateText));
}

}  // namespace

// --- the object -----------------------------------------------------------------------------------------

CF113204::CF113204() = default;

/// Raw row, named fields, converter, connection: each is let go before what it rests on.
CF113204::~CF113204() {
  header_.set(nullptr);
  form_.reset();
  store_.release();
}

RecordsetPtr CF113204::rs4_2Hdr() const { return header_.get(); }
void CF113204::rs4_2Hdr(RecordsetPtr rows) { header_.set(std::move(rows)); }
RecordsetPtr CF113204::rs4_2Form() const { return form_; }
void CF113204::rs4_2Form(RecordsetPtr rows) { form_ = std::move(rows); }

RecordsetPtr CF113204::dataMember(std::string_view name) const {
  RecordsetPtr member;
  guarded([&] {
    if (name == "Primary") member = header_.get();
    if (name == "Secondary") member = store::chapter(header_.get(), "d2126Details1");
    if (name == "Ternary") member = store::chapter(header_.get(), "d2126Details2");
  });
  return member;
}

// --- the record -----------------------------------------------------------------------------------------

void CF113204::pCreateF113204Hdr(std::string_view sNPWP, std::string_view snmForm, std::string_view sJnsDok,
                                 std::int16_t iMsPjk, std::int16_t iThPjk, std::int16_t iCorrSeq,
                                 std::string_view /*sNoBukti*/, std::string_view sJnsPjk, std::string_view sNmWP,
                                 std::string_view sAlamat, std::string_view dTgl_Rekam) {
  guarded([&] {
    const store::Period period{.msPajak = iMsPjk, .thPajak = iThPjk, .kdPembetulanKe = iCorrSeq};
    const std::string packedHead = store::packedHead(
        {.npwp = std::string(sNPWP), .name = std::string(sNmWP), .address = std::string(sAlamat)}, period);
    for (const HeaderDocument& document : headerDocuments) {
      // The main form is looked for under the caller's codes, the five others under their own.
      const bool isMainForm = document.form.kind == store::FormKind::MainReturn;
      const store::DocumentKey sought{.npwp = sNPWP,
                                      .kdForm = isMainForm ? snmForm : document.form.kdForm,
                                      .jenisDokumen = isMainForm ? sJnsDok : document.form.jenisDokumen,
                                      .period = period,
                                      .kdJenisPajak = sJnsPjk};
      makeHeader(store_, document, sought, packedHead, dTgl_Rekam);
    }
  });
}

/// A new recordset in rs4_2Hdr, put there before its text is put together: a text that fails leaves a closed one, and
/// no later save can write the named fields over the row of the load before.
Recordset& CF113204::newHeader() {
  header_.set(Recordset::create());
  return *header_.get();
}

void CF113204::loadNamedFields() {
  form_ = Recordset::create();
  form_ = store_.expand(store::F113204.kdForm, header_.get());
}

void CF113204::pGetF113204(std::string_view /*sNPWP*/, std::string_view /*snmForm*/, std::string_view sJnsDok,
                           std::int16_t iMsPjk, std::int16_t iThPjk, std::int16_t iCorrSeq,
                           std::string_view /*sNoBukti*/, std::string_view sJnsPjk) {
  guarded([&] {
    const store::DocumentKey key{.npwp = {},
                                 .kdForm = store::F113204.kdForm,
                                 .jenisDokumen = sJnsDok,
                                 .period = {.msPajak = iMsPjk, .thPajak = iThPjk, .kdPembetulanKe = iCorrSeq},
                                 .kdJenisPajak = sJnsPjk};
    Recordset& header = newHeader();
    store_.openInto(header, store::selectDocument(store::F113204.table, key));
    loadNamedFields();
    header.MoveFirst();
  });
}

void CF113204::pGetBukti(std::string_view /*sNPWP*/, std::string_view NoBukti, std::string_view Pembetulan) {
  guarded([&] {
    Recordset& header = newHeader();
    store_.openInto(header, Statement("SELECT * FROM DS_FORM_INDUK WHERE (KD_FORM = 'F113204' AND NOBUKTI = ")
                                << text(NoBukti) << " AND KD_PEMBETULAN_KE = " << bare(Pembetulan) << ")");
    loadNamedFields();
    if (!header.get_BOF()) header.MoveFirst();
  });
}

void CF113204::pUpdate() {
  guarded([&] {
    store::setField(header_.get(), "DAT_FORM", store_.pack(form_));
    store::saveAndRequery(header_.get());
  });
}

void CF113204::pDelete(std::string_view snmForm, std::int16_t iMsPjk, std::int16_t iThPjk, std::int16_t iCorrSeq) {
  guarded([&] {
    const RecordsetPtr rows = Recordset::create();
    rows->Open(Statement("DELETE * FROM DAT_FORM WHERE ((NmForm=")
                   << bare(snmForm) << ") AND (MsPjk=" << std::int32_t{iMsPjk}
                   << ") AND (ThPjk=" << std::int32_t{iThPjk} << ") AND (CorrSEQ=" << std::int32_t{iCorrSeq} << ") )",
               store_.connection(), adOpenStatic, adLockOptimistic, adCmdUnspecified);
  });
}

}  // namespace tarvola
