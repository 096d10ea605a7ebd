#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "tarvola/ado/recordset.h"
#include "tarvola/interchange/base64.h"
#include "tarvola/interchange/block_reader.h"
#include "tarvola/interchange/enciphering.h"
#include "tarvola/interchange/hashed_data.h"
#include "tarvola/interchange/plain_stage.h"
#include "tarvola/store/store_object.h"

namespace tarvola::interchange {

/// Which return is reported, and what only the caller knows of it.
struct ReportOrder {
  std::string_view month;
  std::string_view year;
  std::int16_t correction = 0;
  std::string_view fileName;
  std::uint8_t status = 0;
  std::string_view npwp;
  double dJmlNKLB = 0;
  /// The correction whose payments are reported.
  std::string_view paymentsCorrection;
  std::string_view secretSource;
  std::string_view updateDate;
};

/// Writes the reporting file in its three stages, all under the one name: plain lines; their length and the compressed
/// lines; that enciphered. A stage that fails leaves the file as far as it came.
class ReportWriter {
 public:
  explicit ReportWriter(store::StoreObject& store) : store_(store) {}

  /// Reads a file of a stage before it is replaced.
  BlockReader reader;
  /// Salt and initial vector. A test sets known ones.
  RandomSource random = fillFromSystem;
  /// What makes the password of a secret.
  std::function<std::string(std::string_view secretSource)> password = passwordOf;

  /// Without a main return of the period a message says so, and an existing file stays as it is. Success shows a
  /// message too. A failure leaves as RunTimeError.
  void write(const ReportOrder& order);
  /// Hands out the plain lines of the report, without their line ends. Payment lines that fail show a message, and the
  /// others follow.
  void buildLines(const ReportOrder& order, const LineSink& sink);

 private:
  void buildLines(const ReportOrder& order, const RecordsetPtr& header, const LineSink& sink);
  void buildProfile(const ReportOrder& order, const LineSink& sink);
  std::string buildDocuments(const ReportOrder& order, const RecordsetPtr& header, const LineSink& sink);
  std::string compressed(const std::string& path, PlainStage& plain);
  void compress(const std::string& path, PlainStage& plain);
  void encipherFile(const std::string& path, std::string_view secretSource);

  std::string funcHashData(std::string_view sData) noexcept;
  void pWriteSSPPBK(std::string_view sNPWP, std::int16_t iPasal, std::string_view sMsPjk, std::string_view sThPjk,
                    const LineSink& sink, std::string_view sCorr) noexcept;
  void buildPayments(std::int16_t article, std::int16_t month, std::int16_t year, std::int16_t correction,
                     const RecordsetPtr& codes, const LineSink& sink);
  void buildCompensations(std::int16_t article, std::int16_t month, std::int16_t year, const LineSink& sink);

  store::StoreObject& store_;
};

}  // namespace tarvola::interchange
