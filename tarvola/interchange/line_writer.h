#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "tarvola/interchange/import_forms.h"
#include "tarvola/interchange/import_line.h"
#include "tarvola/store/document_key.h"
#include "tarvola/store/store_object.h"

namespace tarvola::interchange {

// --- is it there already ------------------------------------------------------------------------------

/// The packed text of a document of DS_FORM_INDUK by filer, form, period and number; nothing if there is none.
std::optional<std::string> findFormInduk(const store::StoreObject& store, std::string_view npwp,
                                         const store::Period& period, std::string_view kdForm,
                                         std::string_view noBukti);
/// Whether DAT_SSP_PPh22 holds such a document.
bool existsInSsp(const store::StoreObject& store, std::string_view npwp, const store::Period& period,
                 std::string_view kdForm, std::string_view noBukti);
/// Whether a list of DS_FORM_LAMPIRAN has a row of that number in a collection. The form of the slip is not asked for.
bool existsInLampiran(const store::StoreObject& store, const store::Period& period, std::string_view kdForm,
                      std::string_view noBukti, std::int32_t collection);

/// The first row of PROFILE: who files.
store::FilerHeader readFiler(const store::StoreObject& store);

// --- writing ------------------------------------------------------------------------------------------

/// Writes the rows of one line: the form's row, its list row, the detail rows of an interest slip. Each operation is
/// one or two statements that commit by themselves; none looks whether the row exists.
class LineWriter {
 public:
  LineWriter(const store::StoreObject& store, const store::Period& period, const store::FilerHeader& filer,
             const ImportForm& form, const ImportLine& line)
      : store_(store), period_(period), filer_(filer), form_(form), line_(line) {}

  [[nodiscard]] const ImportForm& form() const noexcept { return form_; }
  [[nodiscard]] const ImportLine& line() const noexcept { return line_; }
  [[nodiscard]] std::string_view noBukti() const { return line_.text(Number); }

  /// The packed text of the form; `seq` counts for self-paid forms only.
  [[nodiscard]] std::string packed(double seq = 0) const;
  /// The packed text of the form's list row.
  [[nodiscard]] std::string packedListRow(double seq) const;

  /// One more than the highest SEQ of the form's list in the period; 1 for the first row. Asked anew for each line,
  /// since others may write to the list.
  [[nodiscard]] double nextSeq() const;

  void insertSlip() const;
  void insertSelfPaidForm(double seq) const;
  void insertListRow(double seq) const;

  /// Replaces the slip's rows in the table of interest lines: one for the deposits at home (DN), one for those abroad
  /// (LN), one for SBI, one for giro, each only with an amount.
  void replaceInterestLines() const;
  /// Whether the table holds as many rows of the slip as replaceInterestLines would write.
  [[nodiscard]] bool hasAllInterestLines() const;

 private:
  const store::StoreObject& store_;
  const store::Period& period_;
  const store::FilerHeader& filer_;
  const ImportForm& form_;
  const ImportLine& line_;
};

}  // namespace tarvola::interchange
