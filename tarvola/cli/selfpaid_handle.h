#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "tarvola/cli/filer.h"
#include "tarvola/cli/selfpaid_editor.h"
#include "tarvola/selfpaid/self_paid_frame.h"

namespace tarvola::cli {

/// A self-paid form object of whatever kind: what the frame has for all kinds, and behind it what bears other names or
/// takes other arguments in each class.
class SelfPaidEditor::Handle {
 public:
  virtual ~Handle() = default;
  virtual selfpaid::SelfPaidFrame& frame() = 0;
  virtual void create(const Filer& filer, const Period& period, std::string_view ntpn, std::string_view date) = 0;
  virtual void put(std::string_view field, const Variant& value) = 0;
  virtual void removeListRow(const Period& period, std::string_view ntpn, double seq) = 0;
};

std::unique_ptr<SelfPaidEditor::Handle> makeHandle(const SelfPaidForm& form);

}  // namespace tarvola::cli
