#pragma once

#include <string>
#include <vector>

namespace tarvola::bench {

/// The lines of a file with CR LF behind each, as a floor writes them.
std::vector<std::string> linesOf(const std::string& path);
/// Writes the lines one by one, as a program that makes one after the other must.
void writeLines(const std::vector<std::string>& lines, const std::string& path);

}  // namespace tarvola::bench
