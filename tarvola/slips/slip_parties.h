#pragma once

#include <string>
#include <string_view>

#include "tarvola/runtime/variant.h"
#include "tarvola/slips/slip_frame.h"

namespace tarvola::slips {

/// A slip whose filer can be written: its NPWP, name and address.
class SlipWithFiler : public SlipFrame {
 public:
  using SlipFrame::aNPWP;
  void aNPWP(const Variant& value) { put("npwp", value); }
  Variant aNMWP() const { return get("NmWP"); }
  void aNMWP(const Variant& value) { put("NmWP", value); }
  std::string aALM() const { return textField("ALM"); }
  void aALM(std::string_view value) { put("ALM", value); }

 protected:
  using SlipFrame::SlipFrame;
};

/// A slip whose payee can be read as well.
class SlipWithParties : public SlipWithFiler {
 public:
  using SlipFrame::aNPWPLT;
  Variant aNPWPLT() const { return get("NPWPLT"); }
  using SlipFrame::aNMWPLT;
  Variant aNMWPLT() const { return get("NMWPLT"); }
  /// The address of the payee has two names: aALMLT writes it, aALMT reads it.
  void aALMLT(std::string_view value) { put("ALMLT", value); }
  std::string aALMT() const { return textField("ALMLT"); }

 protected:
  using SlipWithFiler::SlipWithFiler;
};

}  // namespace tarvola::slips
