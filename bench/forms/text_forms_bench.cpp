// The conversions and readers that every imported line passes through dozens of times.

#include <benchmark/benchmark.h>

#include "tarvola/ado/sql/compile.h"
#include "tarvola/runtime/code_page.h"
#include "tarvola/runtime/text_forms.h"

namespace {

using namespace tarvola;

constexpr std::string_view statement =
    "SELECT * FROM DS_FORM_INDUK WHERE NPWP = '024573180013000' AND KD_FORM = 'F113309' AND JENIS_DOKUMEN = '02' AND "
    "MS_PAJAK "
    "= 1 AND TH_PAJAK = 2009 AND KD_PEMBETULAN_KE = 0 AND NOBUKTI = '000001/PPH4' AND KD_JENIS_PAJAK = '113'";

void wholeNumberToText(benchmark::State& state) {
  std::string out;
  for (auto _ : state) {
    out.clear();
    appendCStr(out, 114162000.0);
    benchmark::DoNotOptimize(out.data());
  }
}
BENCHMARK(wholeNumberToText);

void fractionToText(benchmark::State& state) {
  for (auto _ : state) benchmark::DoNotOptimize(CStr(12.3456));
}
BENCHMARK(fractionToText);

void textToNumber(benchmark::State& state) {
  for (auto _ : state) benchmark::DoNotOptimize(CDbl(std::string_view("114162000")));
}
BENCHMARK(textToNumber);

void ansiToUtf8(benchmark::State& state) {
  for (auto _ : state) benchmark::DoNotOptimize(fromAnsi("Jl. Gatot Subroto No. 209 RT 05/02 Bandung"));
}
BENCHMARK(ansiToUtf8);

void shapeOfStatement(benchmark::State& state) {
  ado::sql::Shape shape;
  for (auto _ : state) {
    ado::sql::readShape(statement, shape);
    benchmark::DoNotOptimize(shape.key.data());
  }
}
BENCHMARK(shapeOfStatement);

}  // namespace
