#include "tarvola/interchange/return_check_lists.h"

namespace tarvola::interchange {

void ListRows::add(const std::string& key, ListedDocument row) {
  const auto [place, isNew] = entries_.try_emplace(key);
  if (isNew) order_.push_back(key);
  place->second.rows.push_back(std::move(row));
}

const ListedDocument* ListRows::find(const std::string& key, const std::string& recounted) {
  const std::string name = std::string(list_) + " " + key;
  const auto found = entries_.find(key);
  if (found == entries_.end()) {
    report_.add({.kind = CheckKind::MissingListRow, .document = name, .stored = "no row", .recounted = recounted});
    return nullptr;
  }
  Entry& entry = found->second;
  // Two documents of one number share a row; the doubled number is a finding of its own.
  if (!entry.isTaken && entry.rows.size() > 1)
    report_.compare(CheckKind::DoubledListRow, name, "rows", static_cast<double>(entry.rows.size()), 1);
  entry.isTaken = true;
  return &entry.rows.front();
}

void ListRows::takeUnread(const std::string& key) { find(key, "one row"); }

void ListRows::take(const std::string& key, const ListedDocument& document, std::string_view grossField,
                    std::string_view taxField, bool mayBeZero) {
  const ListedDocument* row = find(key, CStr(document.grossRupiah) + " / " + CStr(document.taxRupiah));
  if (row == nullptr) return;
  const std::string name = std::string(list_) + " " + key;
  if (!mayBeZero || row->grossRupiah != 0 || row->taxRupiah != 0) {
    report_.compare(CheckKind::ListRowDiffers, name, grossField, row->grossRupiah, document.grossRupiah);
    report_.compare(CheckKind::ListRowDiffers, name, taxField, row->taxRupiah, document.taxRupiah);
  }
  for (std::size_t i = 0; i < row->texts.size() && i < document.texts.size(); ++i)
    report_.compare(CheckKind::ListRowDiffers, name, row->texts[i].first, row->texts[i].second,
                    document.texts[i].second);
}

void ListRows::reportStray(CheckKind kind) const {
  for (const std::string& key : order_) {
    const Entry& entry = entries_.at(key);
    if (entry.isTaken) continue;
    for (const ListedDocument& row : entry.rows)
      report_.add({.kind = kind,
                   .document = std::string(list_) + " " + key,
                   .stored = CStr(row.grossRupiah) + " / " + CStr(row.taxRupiah),
                   .recounted = "no document"});
  }
}

}  // namespace tarvola::interchange
