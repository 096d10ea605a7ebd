#include "tarvola/tarvola.h"

namespace tarvola {

const char* version() noexcept { return TARVOLA_VERSION; }

}  // namespace tarvola
