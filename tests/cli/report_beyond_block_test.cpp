// A return of more lines than a reporting file can hold. The file is taken up in blocks of 327,680,000 bytes, each of
// which replaces the one before; the tool must not pass what is left for a report.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <stdlib.h>

#include <filesystem>

#include "tarvola/tarvola.h"
#include "tests/cli/tool.h"
#include "tests/support/temp_folder.h"

namespace tarvola::test {
namespace {

TEST(ReportBeyondABlock, IsToldAndLeavesNoFile) {
  const TempFolder folder;
  const std::string store = folder.path("s.tarvola");
  setenv("TARVOLA_SECRET", "rahasia", 1);
  EXPECT_EQ(runTool({"store", "create", store, "--npwp", "013121660091000", "--name", "PT", "--address", "Jl."}).code,
            0);
  EXPECT_EQ(runTool({"return", "create", "-p", "01/2009", "-s", store}).code, 0);
  {
    CGeneralClass general;
    general.pSetCon(store, "", "");
    // 34 slips of 10,000,000 bytes: one block, and 12,320,000 bytes and the other lines in a second.
    general.pGetRecordDbase(
        (store::Statement(
             "INSERT INTO DS_FORM_INDUK (NPWP,KD_FORM,JENIS_DOKUMEN,MS_PAJAK,TH_PAJAK,KD_PEMBETULAN_KE,NOBUKTI,"
             "KD_JENIS_PAJAK,DAT_FORM) VALUES ('013121660091000','F113321','17',1,2009,0,'000001/PPH4','113',")
         << store::text("013121660091000;PT;Jl.;1;2009;0;01/01/2009;000001/PPH4;086556479946000;" +
                        std::string(10'000'000, 'x') + ";Jl. 2;1000;10;100")
         << ")")
            .str());
    for (int i = 1; i < 34; ++i)
      general.pGetRecordDbase(
          "INSERT INTO DS_FORM_INDUK (NPWP,KD_FORM,JENIS_DOKUMEN,MS_PAJAK,TH_PAJAK,KD_PEMBETULAN_KE,NOBUKTI,"
          "KD_JENIS_PAJAK,DAT_FORM) SELECT NPWP,KD_FORM,JENIS_DOKUMEN,MS_PAJAK,TH_PAJAK,KD_PEMBETULAN_KE,'" +
          std::to_string(i) + "',KD_JENIS_PAJAK,DAT_FORM FROM DS_FORM_INDUK WHERE NOBUKTI = '000001/PPH4'");
  }
  const Outcome outcome = runTool({"report", "write", folder.path("report"), "-p", "01/2009", "-s", store});
  unsetenv("TARVOLA_SECRET");
  EXPECT_EQ(outcome.code, 1);
  EXPECT_THAT(outcome.text,
              testing::HasSubstr("a report takes no more than 327.680.000, and of more than that holds the "
                                 "last part alone.\nNo file was kept."));
  std::size_t files = 0;
  for (const auto& entry : std::filesystem::directory_iterator(folder.path())) {
    EXPECT_TRUE(entry.path().filename().string().starts_with("s.tarvola")) << entry.path();
    ++files;
  }
  EXPECT_GE(files, 1U);
}

}  // namespace
}  // namespace tarvola::test
