#pragma once

#include <cstdint>
#include <string_view>

#include "tarvola/runtime/date.h"

namespace tarvola::slips {

class SlipFrame;

// The operations that bear the number of a form in their name and are otherwise the same for every form. Each stands in
// the form's class under its own name, such as pGetF113309, and is called like any other operation of the slip. Like
// those it shows a failure as a message box and ends normally.

/// What they have in common: the slip that they belong to.
class SlipOperation {
 public:
  explicit SlipOperation(SlipFrame& slip) noexcept : slip_(slip) {}
  SlipOperation(const SlipOperation&) = delete;
  SlipOperation& operator=(const SlipOperation&) = delete;

 protected:
  [[nodiscard]] SlipFrame& slip() const noexcept { return slip_; }

 private:
  SlipFrame& slip_;
};

/// pCreateF...Hdr of the forms whose stub asks for nothing of its own: inserts a stub row. A row that exists already is
/// left as it is, with no message.
class CreateOperation : public SlipOperation {
 public:
  using SlipOperation::SlipOperation;
  void operator()(std::string_view sNPWP, std::string_view snmForm, std::string_view sJnsDok, std::int16_t iMsPjk,
                  std::int16_t iThPjk, std::int16_t iCorrSeq, std::string_view sNoBukti, std::string_view sJnsPjk,
                  std::string_view sNmWP, std::string_view sAlamat, std::string_view dTgl_Setor);
};

/// pGetF...: loads a slip into rs4_2Form; without such a row it has no record. sNPWP, name, address and date are not
/// read.
class LoadOperation : public SlipOperation {
 public:
  using SlipOperation::SlipOperation;
  void operator()(std::string_view sNPWP, std::string_view snmForm, std::string_view sJnsDok, std::int16_t iMsPjk,
                  std::int16_t iThPjk, std::int16_t iCorrSeq, std::string_view sNoBukti, std::string_view sJnsPjk,
                  std::string_view sNmWP, std::string_view sAlamat, Date dTgl_Setor);
};

/// pDeleteF...: deletes a slip, its list rows, and its share in list and return.
class DeleteOperation : public SlipOperation {
 public:
  using SlipOperation::SlipOperation;
  void operator()(std::string_view sNPWP, std::string_view snmForm, std::string_view sJnsDok, std::int16_t iMsPjk,
                  std::int16_t iThPjk, std::int16_t iCorrSeq, std::string_view sNoBukti, std::string_view sJnsPjk);
};

}  // namespace tarvola::slips
