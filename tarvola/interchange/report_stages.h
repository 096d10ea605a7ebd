#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

/// The stages of a reporting file, walked back. Every failure is error 321, a secret that does not fit
/// AuthenticationFailed; the description says what is wrong.
namespace tarvola::interchange {

/// From the bytes of a finished file to those of its second stage.
std::string decipherReport(std::string_view fileBytes, std::string_view password);

/// From the second stage to the plain text, which must have the length that stands in front.
std::string decompressReport(std::string_view stageBytes);

/// The lines of the plain text, each ended by CR LF. A form that keeps the line breaks of its texts stands on several.
std::vector<std::string> linesOfReport(std::string_view plainBytes);

/// Whether the control sum in a line is the sum of its amounts; lines without one pass. Lines count from 1.
void requireControlSum(std::string_view line, std::size_t lineNumber);

}  // namespace tarvola::interchange
