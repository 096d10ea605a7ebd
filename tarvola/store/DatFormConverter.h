#pragma once

#include <string>
#include <string_view>

#include "tarvola/ado/recordset.h"

namespace tarvola {

/// Turns store rows into a recordset of named fields and back. Every form and list class owns one.
///
/// The packed text of a document (DAT_FORM) is one string of fields separated by ";" with no escape of any kind. Which
/// field stands where is the form's layout (form_layouts.h); everything that needs a position asks for it there by
/// name.
class DatFormConverter {
 public:
  /// Takes the connection settings, as the classes hand them over before they load a form. The layouts are part of the
  /// library, so nothing is opened.
  void pSetCon(std::string_view sDSN, std::string_view sUID, std::string_view sPWD);

  /// One record of named fields for each visible row, in the same order: a field for each position of the form's layout
  /// under its name and type, then the row's plain columns that no position names (not DAT_FORM itself). The first
  /// record is current.
  ///
  /// Empty text in a numeric position reads as Null, in a text position as ""; a position that the row is too short for
  /// reads as Null; text in a numeric position that is no number stays that text. Positions beyond the layout are kept
  /// as fields Field<n>, n from 0. An unknown form code: error 5.
  ///
  /// The named fields live in memory: writing them changes nothing in the store until PackDatForm has made a text of
  /// them.
  RecordsetPtr ExpandDatForm(std::string_view formCode, const RecordsetPtr& rows);

  /// The DAT_FORM text of the current record. Null gives an empty position, numbers their default text form. A value
  /// that holds ";" fails (error 5), since it would shift every later field of the row; nothing is written then.
  std::string PackDatForm(const RecordsetPtr& rs4_2Form);
};

}  // namespace tarvola
