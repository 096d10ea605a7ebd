#pragma once

#include <cstdint>

#include "tarvola/store/document_key.h"
#include "tarvola/store/store_object.h"

namespace tarvola::mainreturn {

/// The payment records of an article in a period; for article 4 only those of its account codes and kinds of payment.
/// aJumlahSSP of CF113204 counts without these two filters, and no operation of a class asks here.
double aJumlahSSPPasal(const store::StoreObject& store, std::int16_t iPasal, const store::Period& period);

}  // namespace tarvola::mainreturn
