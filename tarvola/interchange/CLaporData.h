#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

namespace tarvola {

/// Writes the reporting file of a return: profile, main return, slips, self-paid forms, payments and closing list as
/// text lines, the text compressed, the whole enciphered under a password. Nothing in the store changes.
///
/// The connection settings must have been given to pSetCon of another class on this thread before. An object serves the
/// thread that made it.
class CLaporData {
 public:
  /// Opens its connection. A failure shows at once, and the object lives on without one.
  CLaporData();
  ~CLaporData();
  CLaporData(const CLaporData&) = delete;
  CLaporData& operator=(const CLaporData&) = delete;

  /// Writes the report of a period (month and year as plain numbers in text, correction 0 for the first filing) to a
  /// file, which is replaced. Success shows a message. Without a main return of the period a message says so, and an
  /// existing file stays.
  ///
  /// The rows of every NPWP in the store are taken; sNPWP is accepted and not looked at. btStatusTRV and dJmlNKLB
  /// (rupiah) go into the line of the main return, sTglUpd into that of the profile. sCorr is the correction whose
  /// payments are reported; it may differ from iKdPembetulan. The password is made from the first 32 characters of
  /// sSec4Hash.
  ///
  /// A failure shows a message and ends the operation normally. It leaves the file in the stage that it had reached,
  /// possibly half written; until the last stage that is plain or only compressed data of the filer. Payment lines that
  /// fail show a message, and the file is completed without them. Of lines that take more than 327,680,000 bytes
  /// together only the last block is written; readReportingFile refuses such a file.
  void pEksporDataTRV4_2009(std::string_view sMsPjk, std::string_view sThPjk, std::int16_t iKdPembetulan,
                            std::string_view strFileName, std::uint8_t btStatusTRV, std::string_view sNPWP,
                            double dJmlNKLB, std::string_view sCorr, std::string_view sSec4Hash,
                            std::string_view sTglUpd);

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace tarvola
