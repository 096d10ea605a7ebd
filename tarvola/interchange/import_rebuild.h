#pragma once

#include <string>
#include <string_view>

#include "tarvola/store/document_key.h"
#include "tarvola/store/store_object.h"

/// Rebuilding the return when the lines of a file are in.
namespace tarvola::interchange {

/// Makes the header documents of a return that are missing. `npwp` is the number by which they are looked for; the rows
/// carry that of PROFILE.
void buildHeaders(const store::StoreObject& store, std::string_view npwp, const store::Period& period);

/// Writes the header of the list of interest lines from the table, and makes it if it is missing. Gives its packed
/// text.
std::string rebuildInterestHeader(const store::StoreObject& store, const store::FilerHeader& filer,
                                  const store::Period& period);

/// Recounts main form and lists. The classes that do it show their failures themselves; a failed step does not keep the
/// next ones from running.
void recountReturn(std::string_view npwp, const store::Period& period, bool withTransferList);

}  // namespace tarvola::interchange
