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

struct FormCase {
  const char* form;
  const char* document;
  void (*create)(const Texts&);
  void (*load)(const Texts&);
  void (*remove)(const Texts&);
};

const Date someDay = Date::fromYmd(2009, 1, 5);

const std::vector<FormCase> formCases = {
    {"F113310", "03",
     [](const Texts& t) {
       CF113310().pCreateF113310Hdr(t.filer, t.form, t.document, 1, 2009, 0, t.slipNumber, t.taxKind, t.name, t.address,
                                    t.date, 1);
     },
     [](const Texts& t) {
       CF113310().pGetF113310(t.filer, t.form, t.document, 1, 2009, 0, t.slipNumber, t.taxKind, t.name, t.address,
                              someDay);
     },
     [](const Texts& t) {
       CF113310().pDeleteF113310(t.filer, t.form, t.document, 1, 2009, 0, t.slipNumber, t.taxKind);
     }},
    {"F113311", "04",
     [](const Texts& t) {
       CF113311().pCreateF113311Hdr(t.filer, t.form, t.document, 1, 2009, 0, t.slipNumber, t.taxKind, "x'y;z", t.name,
                                    t.address, someDay);
     },
     [](const Texts& t) {
       CF113311().pGetF113311(t.filer, t.form, t.document, 1, 2009, 0, t.slipNumber, t.taxKind, t.name, t.address,
                              someDay);
     },
     [](const Texts& t) {
       CF113311().pDeleteF113311(t.filer, t.form, t.document, 1, 2009, 0, t.slipNumber, t.taxKind, "x'y;z");
     }},
    {"F113312", "05",
     [](const Texts& t) {
       CF113312().pCreateF113312Hdr(t.filer, t.form, t.document, 1, 2009, 0, t.slipNumber, t.taxKind, 1, t.name,
                                    t.address, someDay);
     },
     [](const Texts& t) {
       CF113312().pGetF113312(t.filer, t.form, t.document, 1, 2009, 0, t.slipNumber, t.taxKind, t.name, t.address,
                              someDay);
     },
     [](const Texts& t) {
       CF113312().pDeleteF113312(t.filer, t.form, t.document, 1, 2009, 0, t.slipNumber, t.taxKind);
     }},
    {"F113316", "06",
     [](const Texts& t) {
       CF113316().pCreateF113316Hdr(t.filer, t.form, t.document, 1, 2009, 0, t.slipNumber, t.taxKind, 1, t.name,
                                    t.address, t.date);
     },
     [](const Texts& t) {
       CF113316().pGetF113316(t.filer, t.form, t.document, 1, 2009, 0, t.slipNumber, t.taxKind, t.name, t.address,
                              someDay);
     },
     [](const Texts& t) {
       CF113316().pDeleteF113316(t.filer, t.form, t.document, 1, 2009, 0, t.slipNumber, t.taxKind);
     }},
    {"F113317", "07",
     [](const Texts& t) {
       CF113317().pCreateF113317Hdr(t.filer, t.form, t.document, 1, 2009, 0, t.slipNumber, t.taxKind, "x'y;z", t.name,
                                    t.address, t.date);
     },
     [](const Texts& t) {
       CF113317().pGetF113317(t.filer, t.form, t.document, 1, 2009, 0, t.slipNumber, t.taxKind, t.name, t.address,
                              someDay);
     },
     [](const Texts& t) {
       CF113317().pDeleteF113317(t.filer, t.form, t.document, 1, 2009, 0, t.slipNumber, t.taxKind);
     }},
    {"F113319", "15",
     [](const Texts& t) {
       CF113319().pCreateF113319Hdr(t.filer, t.form, t.document, 1, 2009, 0, t.slipNumber, t.taxKind, t.name, t.address,
                                    t.date);
     },
     [](const Texts& t) {
       CF113319().pGetF113319(t.filer, t.form, t.document, 1, 2009, 0, t.slipNumber, t.taxKind, t.name, t.address,
                              someDay);
     },
     [](const Texts& t) {
       CF113319().pDeleteF113319(t.filer, t.form, t.document, 1, 2009, 0, t.slipNumber, t.taxKind);
     }},
    {"F113320", "16",
     [](const Texts& t) {
       CF113320().pCreateF113320Hdr(t.filer, t.form, t.document, 1, 2009, 0, t.slipNumber, t.taxKind, t.name, t.address,
                                    t.date);
     },
     [](const Texts& t) {
       CF113320().pGetF113320(t.filer, t.form, t.document, 1, 2009, 0, t.slipNumber, t.taxKind, t.name, t.address,
                              someDay);
     },
     [](const Texts& t) {
       CF113320().pDeleteF113320(t.filer, t.form, t.document, 1, 2009, 0, t.slipNumber, t.taxKind);
     }},
    {"F113321", "17",
     [](const Texts& t) {
       CF113321().pCreateF113321Hdr(t.filer, t.form, t.document, 1, 2009, 0, t.slipNumber, t.taxKind, t.name, t.address,
                                    t.date);
     },
     [](const Texts& t) {
       CF113321().pGetF113321(t.filer, t.form, t.document, 1, 2009, 0, t.slipNumber, t.taxKind, t.name, t.address,
                              someDay);
     },
     [](const Texts& t) {
       CF113321().pDeleteF113321(t.filer, t.form, t.document, 1, 2009, 0, t.slipNumber, t.taxKind);
     }}};

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
  template <class Call>
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
