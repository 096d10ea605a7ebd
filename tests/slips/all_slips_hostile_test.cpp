#include <functional>

#include "tarvola/slips/CF113310.h"
#include "tarvola/slips/CF113311.h"
#include "tarvola/slips/CF113312.h"
#include "tarvola/slips/CF113316.h"
#include "tarvola/slips/CF113317.h"
#include "tarvola/slips/CF113319.h"
#include "tarvola/slips/CF113320.h"
#include "tarvola/slips/CF113321.h"
#include "tarvola/slips/make_slip.h"
#include "tests/slips/slip_store.h"

namespace tarvola::test {
namespace {

using Text = std::string_view;

/// The texts of a slip's own operations: the key's four, then filer, name, address and date.
struct Texts {
  Text form;
  Text document;
  Text slipNumber = "000001/PPH4";
  Text taxKind = "113";
  Text filer = filerNpwp;
  Text name = "n";
  Text address = "a";
  Text date = "05/01/2009";
};

const Date someDay = Date::fromYmd(2009, 1, 5);
/// An argument that no operation reads.
constexpr Text unread = "x'y;z";

void createStub(CF113309& s, const Texts& t) {
  s.pCreateF113309Hdr(t.filer, t.form, t.document, 1, 2009, 0, t.slipNumber, t.taxKind, t.name, t.address, t.date);
}
void createStub(CF113310& s, const Texts& t) {
  s.pCreateF113310Hdr(t.filer, t.form, t.document, 1, 2009, 0, t.slipNumber, t.taxKind, t.name, t.address, t.date, 1);
}
void createStub(CF113311& s, const Texts& t) {
  s.pCreateF113311Hdr(t.filer, t.form, t.document, 1, 2009, 0, t.slipNumber, t.taxKind, unread, t.name, t.address,
                      someDay);
}
void createStub(CF113312& s, const Texts& t) {
  s.pCreateF113312Hdr(t.filer, t.form, t.document, 1, 2009, 0, t.slipNumber, t.taxKind, 1, t.name, t.address, someDay);
}
void createStub(CF113316& s, const Texts& t) {
  s.pCreateF113316Hdr(t.filer, t.form, t.document, 1, 2009, 0, t.slipNumber, t.taxKind, 1, t.name, t.address, t.date);
}
void createStub(CF113317& s, const Texts& t) {
  s.pCreateF113317Hdr(t.filer, t.form, t.document, 1, 2009, 0, t.slipNumber, t.taxKind, unread, t.name, t.address,
                      t.date);
}
void createStub(CF113319& s, const Texts& t) {
  s.pCreateF113319Hdr(t.filer, t.form, t.document, 1, 2009, 0, t.slipNumber, t.taxKind, t.name, t.address, t.date);
}
void createStub(CF113320& s, const Texts& t) {
  s.pCreateF113320Hdr(t.filer, t.form, t.document, 1, 2009, 0, t.slipNumber, t.taxKind, t.name, t.address, t.date);
}
void createStub(CF113321& s, const Texts& t) {
  s.pCreateF113321Hdr(t.filer, t.form, t.document, 1, 2009, 0, t.slipNumber, t.taxKind, t.name, t.address, t.date);
}

/// One call of a form's own operations, on a new object.
using Call = std::function<void(const Texts&)>;
struct FormCase {
  const char* form;
  const char* document;
  Call create;
  Call load;
  Call remove;
};

void PrintTo(const FormCase& form, std::ostream* out) { *out << form.form; }

template <class Slip, class Delete>
FormCase formCase(const char* form, const char* document, slips::LoadOperation Slip::*load, const Delete& remove) {
  return {.form = form,
          .document = document,
          .create =
              [](const Texts& t) {
                Slip slip;
                createStub(slip, t);
              },
          .load =
              [load](const Texts& t) {
                Slip slip;
                (slip.*load)(t.filer, t.form, t.document, 1, 2009, 0, t.slipNumber, t.taxKind, t.name, t.address,
                             someDay);
              },
          .remove =
              [remove](const Texts& t) {
                Slip slip;
                remove(slip, t);
              }};
}
template <class Slip>
FormCase formCase(const char* form, const char* document, slips::LoadOperation Slip::*load,
                  slips::DeleteOperation Slip::*remove) {
  return formCase(form, document, load, [remove](Slip& slip, const Texts& t) {
    (slip.*remove)(t.filer, t.form, t.document, 1, 2009, 0, t.slipNumber, t.taxKind);
  });
}

const std::vector<FormCase> formCases = {formCase("F113309", "02", &CF113309::pGetF113309, &CF113309::pDeleteF113309),
                                         formCase("F113310", "03", &CF113310::pGetF113310, &CF113310::pDeleteF113310),
                                         formCase("F113311", "04", &CF113311::pGetF113311,
                                                  [](CF113311& s, const Texts& t) {
                                                    s.pDeleteF113311(t.filer, t.form, t.document, 1, 2009, 0,
                                                                     t.slipNumber, t.taxKind, unread);
                                                  }),
                                         formCase("F113312", "05", &CF113312::pGetF113312, &CF113312::pDeleteF113312),
                                         formCase("F113316", "06", &CF113316::pGetF113316, &CF113316::pDeleteF113316),
                                         formCase("F113317", "07", &CF113317::pGetF113317, &CF113317::pDeleteF113317),
                                         formCase("F113319", "15", &CF113319::pGetF113319, &CF113319::pDeleteF113319),
                                         formCase("F113320", "16", &CF113320::pGetF113320, &CF113320::pDeleteF113320),
                                         formCase("F113321", "17", &CF113321::pGetF113321, &CF113321::pDeleteF113321)};

class FormHostileTexts : public testing::TestWithParam<FormCase> {
 protected:
  static Texts texts() { return {.form = GetParam().form, .document = GetParam().document}; }
  /// A stored slip, which the hostile texts are to leave alone.
  void addSlipOfForm() const {
    const auto slip = slips::makeSlip(GetParam().form);
    startSlip(*slip, "000001/PPH4");
    if (slip->kdForm() == "F113316") slip->put("Opt5", std::int16_t{0});
    save(*slip);
  }
  void expectRefused(const Call& call, Text Texts::*place, Text hostile) {
    Texts given = texts();
    given.*place = hostile;
    messages.clear();
    const auto before = store.dump();
    call(given);
    EXPECT_EQ(messages.texts().size(), 1U) << hostile;
    EXPECT_EQ(store.dump(), before) << hostile;
  }

  SlipStore store;
  CapturedMessages messages;
};

INSTANTIATE_TEST_SUITE_P(EveryForm, FormHostileTexts, testing::ValuesIn(formCases),
                         [](const auto& test) { return std::string(test.param.form); });

const std::vector<Text> hostileTexts = {"x'y", "' OR '1'='1", "'; DELETE * FROM DS_FORM_INDUK; --"};

TEST_P(FormHostileTexts, FailTheirStatementAndChangeNothing) {
  addSlipOfForm();
  for (const Text hostile : hostileTexts) {
    for (const auto place : {&Texts::form, &Texts::document, &Texts::slipNumber, &Texts::taxKind, &Texts::filer})
      expectRefused(GetParam().create, place, hostile);
    for (const auto place : {&Texts::form, &Texts::document, &Texts::slipNumber, &Texts::taxKind})
      expectRefused(GetParam().load, place, hostile);
    expectRefused(GetParam().remove, &Texts::slipNumber, hostile);
  }
}

// The filer of a new stub stands in its packed text: an apostrophe fails the insertion, a separator the text.
TEST_P(FormHostileTexts, FailTheirStub) {
  for (const Text hostile : {Text("x'y"), Text("a;b")})
    for (const auto place : {&Texts::filer, &Texts::name, &Texts::address})
      expectRefused(GetParam().create, place, hostile);
}

TEST_P(FormHostileTexts, MakeLoadAndDeleteTheirSlip) {
  GetParam().create(texts());
  const std::string ofForm = "SELECT NOBUKTI FROM DS_FORM_INDUK WHERE KD_FORM = '" + std::string(GetParam().form) + "'";
  EXPECT_EQ(store.row(ofForm), "000001/PPH4");
  const auto before = store.dump();
  GetParam().create(texts());
  GetParam().load(texts());
  EXPECT_EQ(store.dump(), before);
  EXPECT_TRUE(messages.empty());
  GetParam().remove(texts());
  EXPECT_EQ(store.row(ofForm), "none");
}

// The list row goes before the slip's own row: where that one cannot be looked for, the delete ends between the two,
// and neither the sums of the list nor the return have moved.
TEST_P(FormHostileTexts, EndADeleteBehindTheListRow) {
  addSlipOfForm();
  for (const auto place : {&Texts::form, &Texts::document, &Texts::taxKind}) {
    Texts given = texts();
    given.*place = "x'y";
    messages.clear();
    const std::string sums = store.listSums() + " " + store.ofReturn({"C3"});
    GetParam().remove(given);
    EXPECT_EQ(messages.texts().size(), 1U);
    EXPECT_TRUE(store.listed().empty());
    EXPECT_EQ(store.listSums() + " " + store.ofReturn({"C3"}), sums);
  }
  EXPECT_EQ(store.rows("SELECT NOBUKTI FROM DS_FORM_INDUK WHERE NOBUKTI = '000001/PPH4'").size(), 1U);
}

// A separator in any text stops a save before the store is touched.
TEST_P(FormHostileTexts, StopASaveBeforeTheStoreIsTouched) {
  addSlipOfForm();
  const auto before = store.dump();
  const auto probe = slips::makeSlip(GetParam().form);
  for (const slips::SlipField& field : probe->writableFields()) {
    if (field.kind != slips::FieldKind::Text && field.kind != slips::FieldKind::Date) continue;
    messages.clear();
    const auto slip = slips::makeSlip(GetParam().form);
    startEdit(*slip, "000001/PPH4");
    slip->put(field.name, "a;b");
    save(*slip);
    EXPECT_EQ(messages.texts().size(), 1U) << field.name;
    EXPECT_EQ(store.dump(), before) << field.name;
  }
}

}  // namespace
}  // namespace tarvola::test
