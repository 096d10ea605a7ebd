#pragma once

#include <string>

namespace tarvola {

/// Who files the returns of a store: its one row of PROFILE. Texts are UTF-8; what is not known stays "". The numbers
/// (NPWP) are 15 digits without points; nothing is checked.
struct FilerProfile {
  std::string npwp;
  std::string name;
  std::string address;
  std::string city;
  std::string postcode;
  std::string phone;
  std::string fax;
  std::string mail;
  std::string signerNpwp;  ///< who signs the return
  std::string signerName;
  std::string attorneyNpwp;  ///< who signs for the filer under a power of attorney
  std::string attorneyName;
  std::string slipSignerOffice;  ///< who signs the slips
  std::string slipSignerName;
  std::string taxOffice;  ///< the tax office
};

/// Makes a store: a file with all tables, their indexes, the rows that a store is delivered with (default rates,
/// exchanges, account codes, names of documents) and the filer's profile.
///
/// Only the owner may read and write the file. It must not exist: error 58. A missing folder is error 76, one that
/// may not be written to error 75. After a failure there is no file.
void createStore(const std::string& path, const FilerProfile& profile);

}  // namespace tarvola
