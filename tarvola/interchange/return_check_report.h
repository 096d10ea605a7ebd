#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tarvola/interchange/return_check.h"
#include "tarvola/runtime/text_forms.h"
#include "tarvola/store/document_key.h"
#include "tarvola/store/store_object.h"

/// What the parts of a check share.
namespace tarvola::interchange {

/// Where findings go.
class CheckReport {
 public:
  void add(CheckFinding finding) { findings_.push_back(std::move(finding)); }
  /// A finding if two texts differ.
  void compare(CheckKind kind, std::string_view document, std::string_view field, std::string_view stored,
               std::string_view recounted) {
    if (stored != recounted)
      add({.kind = kind,
           .document = std::string(document),
           .field = std::string(field),
           .stored = std::string(stored),
           .recounted = std::string(recounted)});
  }
  /// A finding if two numbers differ, to the last digit.
  void compare(CheckKind kind, std::string_view document, std::string_view field, double stored, double recounted) {
    if (stored != recounted) compare(kind, document, field, CStr(stored), CStr(recounted));
  }
  [[nodiscard]] std::vector<CheckFinding> take() && { return std::move(findings_); }

 private:
  std::vector<CheckFinding> findings_;
};

/// What is checked, and where the findings go.
struct CheckContext {
  const store::StoreObject& store;
  store::FilerHeader filer;
  store::Period period;
  CheckReport& report;
};

}  // namespace tarvola::interchange
