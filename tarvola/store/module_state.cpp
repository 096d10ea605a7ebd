#include "tarvola/store/module_state.h"

#include <algorithm>
#include <cstddef>

#include "tarvola/runtime/message_box.h"
#include "tarvola/runtime/text_forms.h"
#include "tarvola/store/failure_rule.h"

namespace tarvola {
namespace {

double roundedDown2(double x) {
  const std::int16_t whole = CInt(Val(CStr(x)));
  std::string text = CStr(x);
  std::replace(text.begin(), text.end(), '.', ',');
  const std::size_t comma = InStrText(text, ",");
  if (comma == 0) return x;
  const std::string cut = CStr(std::int32_t{whole}) + "," + std::string(Mid(text, comma + 1, 2));
  return CDbl(std::string_view(cut));
}

}  // namespace

ModuleState& moduleState() noexcept {
  thread_local ModuleState state;
  return state;
}

void setModuleConnection(std::string_view sDSN, std::string_view sUID, std::string_view sPWD) {
  ModuleState& state = moduleState();
  state.sDSN = sDSN;
  state.sUID = sUID;
  state.sPWD = sPWD;
  state.sConnString = "PROVIDER=MSDataShape;Data PROVIDER=MSDASQL;DSN=" + state.sDSN + ";UID=" + state.sUID +
                      ";PWD=" + state.sPWD + ";";
}

double pRoundDown2(double x) {
  double result = 0;
  guarded([&] { result = roundedDown2(x); });
  return result;
}

}  // namespace tarvola
