#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "tarvola/ado/recordset.h"

namespace tarvola {

/// Writes every withholding slip and every self-paid form of a period into one text file, the slip export file.
///
/// The file is text in the ANSI code page with CR LF line ends: one header line of 51 titles, then one line for each
/// slip or form, its 51 columns separated by ";". Nothing is quoted or escaped, so a ";" inside a name shifts the
/// columns behind it. CImporBP takes the lines back. Neither side changes what it reads.
///
/// Every operation shows a failure as a message box and ends normally. An object serves the thread that made it.
class CEksporBP {
 public:
  /// Opens its connection if the thread has settings already; without them it waits for pSetCon.
  CEksporBP();
  ~CEksporBP();
  CEksporBP(const CEksporBP&) = delete;
  CEksporBP& operator=(const CEksporBP&) = delete;

  /// Stores the settings for the thread and opens this object's connection with them.
  void pSetCon(std::string_view sDSN, std::string_view sUID, std::string_view sPWD);

  /// Writes the file of one period (month and year as plain numbers in text, correction 0 for the first filing).
  ///
  /// The rows of every NPWP in the store are taken: sNPWP and strJenisWP are accepted and not looked at. An existing
  /// file is replaced, but only once the period is known to hold something; an empty period shows a message and makes
  /// no file. At the end a message tells the number of rows. An article other than 4 selects nothing, which the store
  /// refuses. A failure half way leaves the file as far as it was written, without the message of success.
  void pEksporPPh(std::string_view sNPWP, std::int16_t iKodePasal, std::string_view sMsPjk, std::string_view sThPjk,
                  std::int16_t iKdPembetulan, std::string_view strFileName, std::string_view strJenisWP);

  // Each builds the line of one form, without its line end, from the named fields of the first record of rsTemp.
  // strKdForm becomes the first column as it is handed over. A field that rsTemp does not have, and an rsTemp without a
  // record, show a message and give the line as far as it was built.
  std::string pBuildDataF113309(std::string_view strKdForm, const RecordsetPtr& rsTemp, std::string_view sMsPjk,
                                std::string_view sThPjk, std::int16_t iKdPembetulan);
  std::string pBuildDataF113310(std::string_view strKdForm, const RecordsetPtr& rsTemp, std::string_view sMsPjk,
                                std::string_view sThPjk, std::int16_t iKdPembetulan);
  std::string pBuildDataF113311(std::string_view strKdForm, const RecordsetPtr& rsTemp, std::string_view sMsPjk,
                                std::string_view sThPjk, std::int16_t iKdPembetulan);
  std::string pBuildDataF113312(std::string_view strKdForm, const RecordsetPtr& rsTemp, std::string_view sMsPjk,
                                std::string_view sThPjk, std::int16_t iKdPembetulan);
  std::string pBuildDataF113316(std::string_view strKdForm, const RecordsetPtr& rsTemp, std::string_view sMsPjk,
                                std::string_view sThPjk, std::int16_t iKdPembetulan);
  std::string pBuildDataF113317(std::string_view strKdForm, const RecordsetPtr& rsTemp, std::string_view sMsPjk,
                                std::string_view sThPjk, std::int16_t iKdPembetulan);
  std::string pBuildDataF113319(std::string_view strKdForm, const RecordsetPtr& rsTemp, std::string_view sMsPjk,
                                std::string_view sThPjk, std::int16_t iKdPembetulan);
  std::string pBuildDataF113320(std::string_view strKdForm, const RecordsetPtr& rsTemp, std::string_view sMsPjk,
                                std::string_view sThPjk, std::int16_t iKdPembetulan);
  std::string pBuildDataF113321(std::string_view strKdForm, const RecordsetPtr& rsTemp, std::string_view sMsPjk,
                                std::string_view sThPjk, std::int16_t iKdPembetulan);
  std::string pBuildDataFSewaTnhBgn(std::string_view strKdForm, const RecordsetPtr& rsTemp, std::string_view sMsPjk,
                                    std::string_view sThPjk, std::int16_t iKdPembetulan);
  std::string pBuildDataFAlihTnhBgn(std::string_view strKdForm, const RecordsetPtr& rsTemp, std::string_view sMsPjk,
                                    std::string_view sThPjk, std::int16_t iKdPembetulan);
  std::string pBuildDataFJasaKonstruksi(std::string_view strKdForm, const RecordsetPtr& rsTemp, std::string_view sMsPjk,
                                        std::string_view sThPjk, std::int16_t iKdPembetulan);

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace tarvola
