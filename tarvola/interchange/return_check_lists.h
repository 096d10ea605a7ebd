#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "tarvola/interchange/return_check_report.h"

/// The rows of a list while its documents are walked.
namespace tarvola::interchange {

/// What the row of a list says, or what it should say of a document.
struct ListedDocument {
  double grossRupiah = 0;
  double taxRupiah = 0;
  /// Fields that must read the same on both sides, with their names.
  std::vector<std::pair<std::string_view, std::string>> texts = {};
};

/// The rows of one list by the key of their documents: number, or payment number and SEQ.
class ListRows {
 public:
  /// `list` names the list in findings.
  ListRows(CheckReport& report, std::string_view list) : report_(report), list_(list) {}

  void add(const std::string& key, ListedDocument row);
  /// Compares the row of a document with what it should say, and ticks it off. Where `mayBeZero`, a row of 0 and 0 will
  /// do as well.
  void take(const std::string& key, const ListedDocument& document, std::string_view grossField,
            std::string_view taxField, bool mayBeZero);
  /// Ticks off the row of a document that cannot be read. A finding if there is none.
  void takeUnread(const std::string& key);
  /// Reports every row that no document has taken.
  void reportStray(CheckKind kind) const;

 private:
  struct Entry {
    std::vector<ListedDocument> rows;
    bool isTaken = false;
  };
  /// The row of a document, ticked off; nullptr, with a finding, if there is none.
  const ListedDocument* find(const std::string& key, const std::string& recounted);

  CheckReport& report_;
  std::string_view list_;
  std::unordered_map<std::string, Entry> entries_;
  std::vector<std::string> order_;
};

/// Sums of a collection as a recount of the list forms them, which passes negative amounts over, and as the saves of
/// single documents leave them, which do not.
struct ListSums {
  double positive = 0;
  double whole = 0;

  void add(double amount) {
    if (amount > 0) positive += amount;
    whole += amount;
  }
  [[nodiscard]] bool agreesWith(double stored) const noexcept { return stored == positive || stored == whole; }
};

}  // namespace tarvola::interchange
