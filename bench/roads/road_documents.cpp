#include "bench/roads/road_documents.h"

#include <fmt/format.h>
#include <filesystem>
#include <functional>
#include <memory>

#include "bench/roads/bare_store.h"
#include "bench/roads/month_maker.h"
#include "bench/roads/statement_trace.h"
#include "tarvola/slips/make_slip.h"
#include "tarvola/tarvola.h"

namespace tarvola::bench {

namespace {

constexpr store::Period period{benchMonth, benchYear, 0};

// --- what is measured -------------------------------------------------------------------------------------

/// A form, its work on the n-th of its measured documents, by phase.
struct DocumentForm {
  std::string name;
  std::function<void(int)> add;
  std::function<void(int)> edit;
  std::function<void(int)> remove;
};

std::string slipNumber(int n) { return fmt::format("{:06}/PPH4", 900000 + n); }

void fillAndSave(slips::SlipFrame& slip, std::string_view grossField, double gross) {
  slip.put(grossField, gross);
  slip.pHitPjk(1);
  slip.pUpdate();
}

DocumentForm slipForm(std::string form, std::string grossField) {
  const auto add = [form, grossField](int n) {
    const auto slip = slips::makeSlip(form);
    slip->createSlip({filerNpwp, "PT Contoh Sejahtera", "Jl. Contoh No. 1 Jakarta"}, period, slipNumber(n),
                     Date::fromYmd(2009, 1, 9));
    slip->loadSlip(period, slipNumber(n));
    slip->put("NoBukti", slipNumber(n));
    slip->pAssignOldValues();
    slip->pAssignStatus(true, false, false);
    slip->getTaxRate();
    slip->put("NPWPLT", "034336149057000");
    slip->put("NMWPLT", "Fitri Lubis");
    slip->put("ALMLT", "Jl. Gatot Subroto No. 209 RT 05/02 Bandung");
    if (form == "F113316") {
      slip->put("Opt4", std::int16_t{0});
      slip->put("Opt5", std::int16_t{0});
    }
    fillAndSave(*slip, grossField, 1000000);
  };
  const auto edit = [form, grossField](int n) {
    const auto slip = slips::makeSlip(form);
    slip->loadSlip(period, slipNumber(n));
    slip->pAssignOldValues();
    slip->pAssignStatus(false, true, false);
    fillAndSave(*slip, grossField, 2000000 + n);
  };
  const auto remove = [form](int n) { slips::makeSlip(form)->removeSlip(filerNpwp, period, slipNumber(n)); };
  return {form, add, edit, remove};
}

template <class Form>
void setGross(Form& form, double gross) {
  if constexpr (requires { form.ajmlBruto(gross); })
    form.ajmlBruto(gross);
  else
    form.ajmlBruto1(gross);
}

template <class Form>
DocumentForm selfPaidForm(std::string code, std::string document) {
  const auto payment = [](int n) { return fmt::format("{:016}", 9000000 + n); };
  const auto save = [=](int n, double sequence, bool isNew, double gross) {
    Form form;
    form.pGet(filerNpwp, code, document, benchMonth, benchYear, 0, payment(n), "113", "", "", Date(), sequence);
    form.pAssignOldValues();
    form.pAssignStatus(isNew, !isNew, false);
    setGross(form, gross);
    form.pHitPjk(1);
    form.pUpdate();
  };
  const auto add = [=](int n) {
    Form form;
    if constexpr (requires { form.pCreateHdr("", "", "", 0, 0, 0, "", "", "", "", Date()); })
      form.pCreateHdr(filerNpwp, code, document, benchMonth, benchYear, 0, payment(n), "113", "PT Contoh", "Jl.",
                      Date::fromYmd(2009, 1, 9));
    else
      form.pCreateHdr(filerNpwp, code, document, benchMonth, benchYear, 0, payment(n), "113", "PT Contoh", "Jl.",
                      "09/01/2009");
    save(n, 0, true, 1000000);
  };
  const auto edit = [=](int n) { save(n, 0, false, 2000000 + n); };
  const auto remove = [=](int n) {
    Form().pDeleteForm(filerNpwp, code, document, benchMonth, benchYear, 0, payment(n), "113", 0);
  };
  return {code, add, edit, remove};
}

std::vector<DocumentForm> allDocumentForms() {
  return {slipForm("F113309", "B13"),
          slipForm("F113310", "B1A3"),
          slipForm("F113311", "B13"),
          slipForm("F113312", "JMLBRUTO"),
          slipForm("F113316", "B13"),
          slipForm("F113317", "j2"),
          slipForm("F113319", "JMLBRUTO"),
          slipForm("F113320", "JMLBRUTO"),
          slipForm("F113321", "JMLBRUTO"),
          selfPaidForm<CPPhSewaTanahBangunan>("FSewaTnhBgn", "12"),
          selfPaidForm<CPPhJasaKonstruksi>("FJasaKonstruksi", "14"),
          selfPaidForm<CPPhAlihTnhBgn>("FAlihTnhBgn", "19")};
}

// --- how it is measured -----------------------------------------------------------------------------------

/// Three copies of one store, on which the same is done: by the library with its statements noted, by the library with
/// the clock running, and by the noted statements alone.
class Copies {
 public:
  explicit Copies(const BenchStore& original)
      : noted_(original.file("noted.tarvola")),
        timed_(original.file("timed.tarvola")),
        bare_(original.file("bare.tarvola")) {
    for (const std::string& path : {noted_, timed_, bare_})
      std::filesystem::copy_file(original.path(), path, std::filesystem::copy_options::overwrite_existing);
  }

  Measurement measure(const std::string& road, int count, const std::function<void(int)>& work) const {
    const Noted noted = note(count, work);
    Measurement result{.road = road, .operations = count};
    result.ours = timeLibrary(count, work);
    result.floor = timeStatements(noted);
    return result;
  }

 private:
  /// The first document of a road warms up and is not measured: the library then reads each shape of a statement once,
  /// and the bare handle has its pages.
  struct Noted {
    std::vector<NotedStatement> warmUp;
    std::vector<NotedStatement> measured;
  };

  [[nodiscard]] Noted note(int count, const std::function<void(int)>& work) const {
    StatementTrace trace;
    connectTo(noted_);
    const CGeneralClass keptOpen;
    trace.take();
    Noted noted;
    work(0);
    noted.warmUp = trace.take();
    for (int n = 1; n <= count; ++n) work(n);
    noted.measured = trace.take();
    return noted;
  }

  [[nodiscard]] double timeLibrary(int count, const std::function<void(int)>& work) const {
    connectTo(timed_);
    const CGeneralClass keptOpen;
    work(0);
    return seconds([&] {
      for (int n = 1; n <= count; ++n) work(n);
    });
  }

  [[nodiscard]] double timeStatements(const Noted& noted) const {
    BareStore store(bare_);
    for (const NotedStatement& statement : noted.warmUp) store.prepare(statement.withValues).run();
    std::vector<BareStatement> prepared;
    prepared.reserve(noted.measured.size());
    for (const NotedStatement& statement : noted.measured) prepared.push_back(store.prepare(statement.withValues));
    return seconds([&] {
      for (BareStatement& statement : prepared) statement.run();
    });
  }

  std::string noted_, timed_, bare_;
};

}  // namespace

std::vector<Measurement> measureDocuments(std::int64_t documents) {
  constexpr int count = 40;
  constexpr int runs = 3;
  const BenchStore store;
  fill(store, makeMonth(documents));
  std::vector<Measurement> all;
  for (const DocumentForm& form : allDocumentForms()) {
    std::vector<std::vector<Measurement>> measured(3);
    for (int run = 0; run < runs; ++run) {
      const Copies copies(store);
      measured[0].push_back(copies.measure("add " + form.name, count, form.add));
      measured[1].push_back(copies.measure("edit " + form.name, count, form.edit));
      measured[2].push_back(copies.measure("delete " + form.name, count, form.remove));
    }
    for (const std::vector<Measurement>& road : measured) all.push_back(medianOf(road));
  }
  for (Measurement& each : all) each.slips = documents;
  return all;
}

}  // namespace tarvola::bench
