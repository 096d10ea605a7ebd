#pragma once

/// All public headers of Tarvola.
///
/// A thread starts with pSetCon on a CGeneralClass; then any class may be made. See docs/architecture.md.

#include "tarvola/ado/connection.h"
#include "tarvola/ado/fields.h"
#include "tarvola/ado/recordset.h"
#include "tarvola/interchange/CEksporBP.h"
#include "tarvola/interchange/CEksporSSPPBK.h"
#include "tarvola/interchange/CImporBP.h"
#include "tarvola/interchange/CImporSSPPBK.h"
#include "tarvola/interchange/CLaporData.h"
#include "tarvola/interchange/CompressZIt.h"
#include "tarvola/interchange/correct_return.h"
#include "tarvola/interchange/payment_codes.h"
#include "tarvola/interchange/payment_file_import.h"
#include "tarvola/interchange/rebuild_return.h"
#include "tarvola/interchange/remove_return.h"
#include "tarvola/interchange/report_comparison.h"
#include "tarvola/interchange/reporting_file.h"
#include "tarvola/interchange/return_check.h"
#include "tarvola/interchange/return_difference.h"
#include "tarvola/interchange/slip_file_import.h"
#include "tarvola/lists/CD113206.h"
#include "tarvola/lists/CD113210.h"
#include "tarvola/lists/CDPPhAlihTnhBgn.h"
#include "tarvola/lists/CDPPhJasaKonstruksi.h"
#include "tarvola/lists/CDPPhSewaTanahBangunan.h"
#include "tarvola/mainreturn/CF113204.h"
#include "tarvola/mainreturn/return_lines.h"
#include "tarvola/runtime/clock.h"
#include "tarvola/runtime/errors.h"
#include "tarvola/runtime/message_box.h"
#include "tarvola/runtime/progress.h"
#include "tarvola/runtime/regional_settings.h"
#include "tarvola/runtime/text_file.h"
#include "tarvola/runtime/text_forms.h"
#include "tarvola/selfpaid/CPPhAlihTnhBgn.h"
#include "tarvola/selfpaid/CPPhJasaKonstruksi.h"
#include "tarvola/selfpaid/CPPhSewaTanahBangunan.h"
#include "tarvola/slips/CF113309.h"
#include "tarvola/slips/CF113310.h"
#include "tarvola/slips/CF113311.h"
#include "tarvola/slips/CF113312.h"
#include "tarvola/slips/CF113316.h"
#include "tarvola/slips/CF113317.h"
#include "tarvola/slips/CF113319.h"
#include "tarvola/slips/CF113320.h"
#include "tarvola/slips/CF113321.h"
#include "tarvola/slips/make_slip.h"
#include "tarvola/store/CGeneralClass.h"
#include "tarvola/store/DatFormConverter.h"
#include "tarvola/store/document_key.h"
#include "tarvola/store/form_codes.h"
#include "tarvola/store/form_layouts.h"
#include "tarvola/store/new_store.h"
#include "tarvola/store/return_contents.h"
#include "tarvola/store/statement.h"

namespace tarvola {

/// The library's version, as "0.1.0".
const char* version() noexcept;

}  // namespace tarvola
