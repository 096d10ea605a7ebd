#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "tarvola/lists/self_paid_list.h"
#include "tarvola/runtime/date.h"
#include "tarvola/store/document_key.h"

namespace tarvola::selfpaid {

/// The collection that the rows of all self-paid forms lie in.
inline constexpr std::int16_t listCollection = 0;

/// What a form's row of its list says.
struct ListRow {
  store::Period period;
  std::string paymentNumber;
  Date paidOn;
  double grossRupiah = 0;
  double taxRupiah = 0;
  double seq = 0;
  std::string location;
};

/// The list of one kind of form, in use for one save.
class FormList {
 public:
  virtual ~FormList() = default;
  FormList(const FormList&) = delete;
  FormList& operator=(const FormList&) = delete;

  virtual lists::SelfPaidList& list() = 0;
  /// Replaces the row of that payment number and SEQ, or adds it. The remark stays empty.
  virtual void replaceRow(const ListRow& row) = 0;

 protected:
  FormList() = default;
};

/// Lists whose row operation takes a location; that of construction services does not.
template <class List>
concept TakesLocation = requires(List& list) {
  list.pCreateD113203Hdr(0, 0, 0, 0, "", Date(), "", 0.0, 0.0, 0.0, "");
};

template <class List>
class FormListOf final : public FormList {
 public:
  lists::SelfPaidList& list() override { return list_; }

  void replaceRow(const ListRow& row) override {
    const auto& [month, year, correction] = row.period;
    if constexpr (TakesLocation<List>) {
      list_.pCreateD113203Hdr(month, year, correction, listCollection, row.paymentNumber, row.paidOn, "",
                              row.grossRupiah, row.taxRupiah, row.seq, row.location);
    } else {
      list_.pCreateD113203Hdr(month, year, correction, listCollection, row.paymentNumber, row.paidOn, "",
                              row.grossRupiah, row.taxRupiah, row.seq);
    }
  }

 private:
  List list_;
};

/// A new list object with its own connection.
template <class List>
std::unique_ptr<FormList> openList() {
  return std::make_unique<FormListOf<List>>();
}

}  // namespace tarvola::selfpaid
