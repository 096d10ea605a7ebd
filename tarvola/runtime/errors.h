#pragma once

#include <cstdint>
#include <exception>
#include <string>
#include <string_view>

namespace tarvola {

/// The one failure of everything below the public classes: the platform's number and its description.
///
/// The description is what a person sees, word for word. The public classes turn it into a message box; nothing
/// but the operations that are documented as having no trap lets it through.
class RunTimeError : public std::exception {
 public:
  RunTimeError(std::int32_t number, std::string description) : number_(number), description_(std::move(description)) {}

  [[nodiscard]] std::int32_t number() const noexcept { return number_; }
  [[nodiscard]] const std::string& description() const noexcept { return description_; }
  [[nodiscard]] const char* what() const noexcept override { return description_.c_str(); }

 private:
  std::int32_t number_;
  std::string description_;
};

/// Numbers of failures that the code raises or tests by name. Those of the recordset layer stand here too:
/// 3001 to 3749 are its own, the negative ones come from cursor engine and driver.
enum class ErrorNumber : std::int32_t {
  // The run time.
  InvalidProcedureCall = 5,
  Overflow = 6,
  OutOfMemory = 7,
  SubscriptOutOfRange = 9,
  DivisionByZero = 11,
  TypeMismatch = 13,
  BadFileNameOrNumber = 52,
  FileNotFound = 53,
  FileAlreadyOpen = 55,
  DeviceIoError = 57,
  FileAlreadyExists = 58,
  DiskFull = 61,
  InputPastEndOfFile = 62,
  PermissionDenied = 70,
  PathFileAccessError = 75,
  PathNotFound = 76,
  ObjectVariableNotSet = 91,
  InvalidUseOfNull = 94,
  InvalidFileFormat = 321,
  InvalidPropertyValue = 380,
  ObjectRequired = 424,
  CannotCreateObject = 429,
  NoSuchMember = 438,
  NamedArgumentNotFound = 448,
  ArgumentNotOptional = 449,
  WrongNumberOfArguments = 450,
  // The recordset layer.
  ProviderFailed = 3000,
  WrongArguments = 3001,
  NoCurrentRecord = 3021,
  NotAllowedInThisContext = 3219,
  InTransaction = 3246,
  NotCapable = 3251,
  ItemNotFound = 3265,
  AlreadyInCollection = 3367,
  ObjectInvalid = 3420,
  WrongTypeForOperation = 3421,
  ObjectClosed = 3704,
  ObjectOpen = 3705,
  ProviderNotFound = 3706,
  ConnectionUnusable = 3709,
  ProcessingEvent = 3710,
  DataTooLarge = 3721,
  CannotConvertValue = 3724,
  FieldsUpdateFailed = 3749,
  // Cursor engine, driver and COM.
  ComOutOfRange = -2147352566,
  ComTypeMismatch = -2147352571,
  CriteriaMismatch = -2147217913,
  AccessDenied = -2147217911,
  TooFewParameters = -2147217904,
  SyntaxError = -2147217900,
  MultipleStepErrors = -2147217887,
  RowDeleted = -2147217885,
  IntegrityViolation = -2147217873,
  TimeoutExpired = -2147217871,
  UnknownTable = -2147217865,
  RowNotLocated = -2147217864,
  AuthenticationFailed = -2147217843,
  OperationCanceled = -2147217842,
  Unspecified = -2147467259,
};

/// The platform's text for a number, "" if it has none of its own.
std::string_view errorText(ErrorNumber number) noexcept;

/// Fails with a number and its own text.
[[noreturn]] void fail(ErrorNumber number);
/// Fails with a number and a text that names the case.
[[noreturn]] void fail(ErrorNumber number, std::string description);

}  // namespace tarvola
