#pragma once

#include <string>
#include <string_view>

namespace tarvola {

/// What every class object of a thread shares: how its store is reached, and the switch for filers without an NPWP.
///
/// One copy for each thread, with no lock: a second thread starts with an empty one and calls pSetCon itself. Objects
/// that exist keep the connection that they opened; a change counts for objects created from then on.
struct ModuleState {
  std::string sDSN;
  std::string sUID;
  std::string sPWD;
  /// "PROVIDER=MSDataShape;Data PROVIDER=MSDASQL;DSN=<sDSN>;UID=<sUID>;PWD=<sPWD>;", empty before the first pSetCon.
  std::string sConnString;
  /// While True, a saved slip is marked as one of a filer without an NPWP (FlagNPWP 2 instead of 1).
  bool bNonNPWP = false;
};

/// The state of this thread.
ModuleState& moduleState() noexcept;

/// Stores the three values and builds sConnString from them.
void setModuleConnection(std::string_view sDSN, std::string_view sUID, std::string_view sPWD);

/// Cuts a number to two decimals through its text, as average rates are cut: 12.3456 gives 12.34, never rounded.
///
/// Written for a decimal comma. Below one a minus sign is lost (-0.5 gives 0.5), since the whole part is then 0: so it
/// stands, and rates are never negative. A whole part outside 16 bits shows the message "Overflow" and gives 0.
double pRoundDown2(double x);

}  // namespace tarvola
