#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "tarvola/ado/recordset.h"
#include "tarvola/store/packed_text.h"

namespace tarvola::interchange {

/// A document as the store holds it. The texts are views.
struct ReportDocument {
  std::string_view jenisDokumen;
  std::string_view kdForm;
  std::string_view datForm;
};

/// Builds the lines of a return's documents one after the other.
///
/// One text is worked on. A document that leaves it alone has the line of the document before written once more: a
/// main return without a record of named fields, and a form code that the store finds in another spelling ("f113309").
class ReportLines {
 public:
  /// The line of the main return, from the current record of its named fields.
  void addMainReturn(const ReportDocument& document, std::uint8_t status, double dJmlNKLB, const RecordsetPtr& named);
  /// The line of a slip or self-paid form; of the list D113210 the closing line. Error 9 or 13 if the control sum
  /// cannot be formed.
  void addForm(const ReportDocument& document);

  /// The line of the last document, without its line end; that of D113210 stands here too, though it is written last.
  [[nodiscard]] const std::string& line() const noexcept { return line_; }
  /// The line of D113210, the last of the file; empty if the return has none.
  [[nodiscard]] const std::string& closingLine() const noexcept { return closingLine_; }

 private:
  std::string line_;
  std::string closingLine_;
  /// TGL_TRV of the main return.
  std::string returnDate_;
  store::PackedText fields_;
};

/// Removes every CR LF; a lone CR or LF stays.
void removeLineBreaks(std::string& line);

}  // namespace tarvola::interchange
