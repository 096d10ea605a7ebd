#pragma once

#include <functional>
#include <string>
#include <vector>

#include "bench/roads/measure.h"
#include "bench/roads/month_maker.h"
#include "bench/roads/statement_trace.h"

namespace tarvola::bench {

/// A copy of a store in the same folder, written through to the disk, so that nothing of the copying is left to be done
/// while something is measured. Gives its path.
std::string copyOf(const BenchStore& store, const std::string& name);

/// The statements that some work of the library runs on a store.
std::vector<NotedStatement> statementsOf(const std::string& path, const std::function<void()>& work);

/// Seconds that work takes the library, and its statements alone, on a store that was opened just now, as a command
/// finds it: at any size nothing of the store is in the engine's cache yet. The opening is not counted, but the closing
/// is: it brings into the store what the log still holds, which is everything at a thousand slips and little where the
/// statements have done most of it on their way.
double secondsOfLibrary(const std::string& path, const std::function<void()>& work);
double secondsOfStatements(const std::string& path, const std::vector<NotedStatement>& statements);

/// Measures work that writes a file of the store's folder: by the library, and by its statements and the lines alone.
Measurement measureWriting(const std::string& road, const BenchStore& store, std::int64_t count,
                           const std::string& fileName, const std::function<void()>& work);

/// Measures work that changes its store, each run on a fresh copy: by the library, and by its statements alone.
Measurement measureOnCopies(const std::string& road, const BenchStore& store, std::int64_t slips,
                            const std::function<void()>& work);

/// Peak memory of a process that does nothing but the work, on a copy of the store.
double peakMibOnCopy(const BenchStore& store, const std::function<void()>& work);

}  // namespace tarvola::bench
