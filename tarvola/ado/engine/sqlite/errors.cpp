#include "tarvola/ado/engine/sqlite/errors.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <string_view>

#include "tarvola/runtime/error_texts.h"
#include "tarvola/runtime/errors.h"

namespace tarvola::ado::engine::sqlite {
namespace {

/// What the engine said, and about which file.
struct Report {
  std::string_view message;
  std::string_view path;
  int systemError;
};

std::string inUse(const Report& report) { return fileInUseText(report.path); }
std::string notWritable(const Report& report) { return fileNotWritableText(report.path); }
std::string notReadable(const Report& report) { return fileNotReadableText(report.path); }
std::string unrecognized(const Report& report) { return unrecognizedFormatText(report.path); }
std::string damaged(const Report& report) { return fileDamagedText(report.path); }
std::string full(const Report& report) { return diskFullText(report.path); }
std::string duplicateKey(const Report&) { return duplicateKeyText(); }
std::string tooSmall(const Report&) { return fieldTooSmallText(); }
std::string mismatch(const Report&) { return criteriaMismatchText(); }
std::string itsOwn(const Report& report) { return driverText(report.message); }

std::string accessFailed(const Report& report) {
  return fileAccessFailedText(
      report.path, report.systemError != 0 ? std::string_view(std::strerror(report.systemError)) : report.message);
}

// "NOT NULL constraint failed: BURSA.ID" names the field behind the blank.
std::string requiredField(const Report& report) {
  const std::string_view field = report.message.substr(report.message.rfind(' ') + 1);
  const std::size_t point = field.find('.');
  if (point == std::string_view::npos) return driverText(report.message);
  return requiredFieldText(field.substr(0, point), field.substr(point + 1));
}

struct Case {
  int code;
  ErrorNumber number;
  std::string (*text)(const Report&);
};

// The narrow codes before the wide ones that contain them.
constexpr std::array cases{
    Case{SQLITE_CONSTRAINT_NOTNULL, ErrorNumber::Unspecified, requiredField},
    Case{SQLITE_CONSTRAINT_UNIQUE, ErrorNumber::IntegrityViolation, duplicateKey},
    Case{SQLITE_CONSTRAINT_PRIMARYKEY, ErrorNumber::IntegrityViolation, duplicateKey},
    Case{SQLITE_CONSTRAINT_ROWID, ErrorNumber::IntegrityViolation, duplicateKey},
    Case{SQLITE_CONSTRAINT, ErrorNumber::IntegrityViolation, itsOwn},
    Case{SQLITE_BUSY, ErrorNumber::Unspecified, inUse},
    Case{SQLITE_LOCKED, ErrorNumber::Unspecified, inUse},
    Case{SQLITE_PROTOCOL, ErrorNumber::Unspecified, inUse},
    Case{SQLITE_READONLY, ErrorNumber::Unspecified, notWritable},
    Case{SQLITE_PERM, ErrorNumber::AccessDenied, notReadable},
    Case{SQLITE_AUTH, ErrorNumber::AccessDenied, notReadable},
    Case{SQLITE_CANTOPEN, ErrorNumber::AccessDenied, notReadable},
    Case{SQLITE_NOTADB, ErrorNumber::Unspecified, unrecognized},
    Case{SQLITE_CORRUPT, ErrorNumber::Unspecified, damaged},
    Case{SQLITE_FULL, ErrorNumber::Unspecified, full},
    Case{SQLITE_IOERR, ErrorNumber::Unspecified, accessFailed},
    Case{SQLITE_TOOBIG, ErrorNumber::Unspecified, tooSmall},
    Case{SQLITE_MISMATCH, ErrorNumber::CriteriaMismatch, mismatch},
    Case{SQLITE_ERROR, ErrorNumber::SyntaxError, itsOwn},
};

constexpr int withoutExtension(int code) { return code & 0xff; }

}  // namespace

void failWith(sqlite3* database, int code, const std::string& path) {
  if (code == SQLITE_NOMEM) fail(ErrorNumber::OutOfMemory);
  const Report report{.message = sqlite3_errmsg(database), .path = path, .systemError = sqlite3_system_errno(database)};
  const auto* const found = std::ranges::find_if(
      cases, [code](const Case& known) { return known.code == code || known.code == withoutExtension(code); });
  if (found == cases.end()) fail(ErrorNumber::Unspecified, driverText(report.message));
  fail(found->number, found->text(report));
}

}  // namespace tarvola::ado::engine::sqlite
