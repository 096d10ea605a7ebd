#include "tarvola/interchange/gcrypt_calls.h"

#include <gcrypt.h>

#include "tarvola/interchange/report_texts.h"
#include "tarvola/runtime/errors.h"

namespace tarvola::interchange {

namespace {

bool prepare() {
  if (gcry_control(GCRYCTL_INITIALIZATION_FINISHED_P) != 0) return true;
  if (gcry_check_version(GCRYPT_VERSION) == nullptr) return false;
  // Locked memory is for keys that must never reach a disk. These come from a text that the user keeps anyway.
  gcry_control(GCRYCTL_DISABLE_SECMEM, 0);
  gcry_control(GCRYCTL_INITIALIZATION_FINISHED, 0);
  return true;
}

}  // namespace

void readyCiphers() {
  static const bool isReady = prepare();
  if (!isReady) fail(ErrorNumber::CannotCreateObject, cipherFailedText("the installed library is too old"));
}

void requireCipher(unsigned int code) {
  if (code != 0) fail(ErrorNumber::CannotCreateObject, cipherFailedText(gcry_strerror(code)));
}

}  // namespace tarvola::interchange
