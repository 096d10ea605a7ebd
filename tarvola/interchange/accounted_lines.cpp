#include "tarvola/interchange/accounted_lines.h"

#include "tarvola/interchange/import_texts.h"
#include "tarvola/runtime/progress.h"

namespace tarvola::interchange {

namespace {

/// What the reader itself has to say against a line.
std::string faultOfReading(const ExchangeFileReader& reader) {
  if (reader.isTooLong()) return lineTooLongForFormText(reader.bytes().size(), longestLineBytes);
  return reader.isBroken() ? brokenUtf8Text() : std::string();
}

LineOutcome importLine(const ExchangeFileReader& reader, const LineImport& import) {
  if (std::string fault = faultOfReading(reader); !fault.empty()) return refusedLine(std::move(fault));
  return import(reader.columns());
}

void count(ImportAccount& account, LineOutcome::Kind kind) {
  ++account.read;
  switch (kind) {
    case LineOutcome::Kind::Stored:
      ++account.stored;
      return;
    case LineOutcome::Kind::AlreadyThere:
      ++account.alreadyThere;
      return;
    case LineOutcome::Kind::Refused:
      ++account.refused;
      return;
  }
}

}  // namespace

LineOutcome refusedLine(std::string reason) {
  return {.kind = LineOutcome::Kind::Refused, .reason = std::move(reason)};
}

void importLines(const char* task, ExchangeFileReader& reader, const LineImport& import, RejectFile& rejects,
                 ImportAccount& account) {
  Progress progress(task, reader.bytesTotal());
  while (reader.next()) {
    const LineOutcome outcome = importLine(reader, import);
    count(account, outcome.kind);
    if (reader.isLikeUtf8()) ++account.likeUtf8;
    if (outcome.kind == LineOutcome::Kind::Refused) {
      rejects.add(reader.bytes(), outcome.reason);
      if (account.firstRefused.size() < refusedLinesKept)
        account.firstRefused.push_back({reader.lineNumber(), outcome.reason});
    }
    progress.done(reader.bytesRead());
  }
}

}  // namespace tarvola::interchange
