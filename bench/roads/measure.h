#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace tarvola::bench {

/// One measurement: a road, over so many slips, ours and its floor, in seconds for `operations` operations.
struct Measurement {
  std::string road;
  std::int64_t slips = 0;
  std::int64_t operations = 0;
  double ours = 0;
  double floor = 0;
  /// Peak resident size of a process that does nothing else, in MiB; 0 where it is not asked.
  double peakMib = 0;
};

/// Seconds that the work takes.
double seconds(const std::function<void()>& work);

/// Runs ours and the floor in turns, so that whatever else the machine does meets both, and sets the medians of the
/// seconds that the two give. A short road is run often enough that its median is no accident.
void takeMedians(Measurement& result, const std::function<double()>& ours, const std::function<double()>& floor);

/// The medians of several measurements of one road.
Measurement medianOf(const std::vector<Measurement>& runs);

/// Runs the work in a child process and gives that process's peak resident size in MiB.
double peakMibOf(const std::function<void()>& work);

/// Prints a table: cost of ours and the floor for each operation, their ratio, and the growth: cost for each operation
/// at a size divided by that at the smallest size of the same road. The sizes of a road stand below one another.
void printMeasurements(std::vector<Measurement> all);

}  // namespace tarvola::bench
