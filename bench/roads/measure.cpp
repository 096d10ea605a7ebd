#include "bench/roads/measure.h"

#include <fmt/format.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <map>
#include <stdexcept>
#include <vector>

namespace tarvola::bench {

namespace {

double median(std::vector<double> values) {
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

}  // namespace

double seconds(const std::function<void()>& work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

void takeMedians(Measurement& result, const std::function<double()>& ours, const std::function<double()>& floor) {
  constexpr std::size_t fewestRuns = 3;
  constexpr std::size_t mostRuns = 21;
  constexpr double enoughSeconds = 10;
  std::vector<double> oursSeconds;
  std::vector<double> floorSeconds;
  double spent = 0;
  while (oursSeconds.size() < fewestRuns || (oursSeconds.size() < mostRuns && spent < enoughSeconds)) {
    oursSeconds.push_back(ours());
    floorSeconds.push_back(floor());
    spent += oursSeconds.back() + floorSeconds.back();
  }
  result.ours = median(std::move(oursSeconds));
  result.floor = median(std::move(floorSeconds));
}

Measurement medianOf(const std::vector<Measurement>& runs) {
  Measurement result = runs.front();
  std::vector<double> oursSeconds;
  std::vector<double> floorSeconds;
  for (const Measurement& run : runs) {
    oursSeconds.push_back(run.ours);
    floorSeconds.push_back(run.floor);
  }
  result.ours = median(std::move(oursSeconds));
  result.floor = median(std::move(floorSeconds));
  return result;
}

double peakMibOf(const std::function<void()>& work) {
  const pid_t child = fork();
  if (child < 0) throw std::runtime_error("fork failed");
  if (child == 0) {
    work();
    _exit(0);
  }
  int status = 0;
  rusage usage{};
  wait4(child, &status, 0, &usage);
  if (status != 0) throw std::runtime_error("the measured process failed");
  return static_cast<double>(usage.ru_maxrss) / 1024;
}

void printMeasurements(std::vector<Measurement> all) {
  std::map<std::string, std::size_t> places;
  for (const Measurement& each : all) places.try_emplace(each.road, places.size());
  std::stable_sort(all.begin(), all.end(), [&](const Measurement& left, const Measurement& right) {
    return places[left.road] < places[right.road];
  });
  std::map<std::string, double> smallest;
  fmt::print("{:<34}{:>9}{:>12}{:>12}{:>8}{:>9}{:>11}\n", "road", "slips", "ours us", "floor us", "ratio", "growth",
             "peak MiB");
  for (const Measurement& each : all) {
    const double ours = each.ours * 1e6 / static_cast<double>(each.operations);
    const double floor = each.floor * 1e6 / static_cast<double>(each.operations);
    const double growth = ours / smallest.try_emplace(each.road, ours).first->second;
    fmt::print("{:<34}{:>9}{:>12.2f}{:>12.2f}{:>8.2f}{:>9.2f}{:>11}\n", each.road, each.slips, ours, floor,
               ours / floor, growth, each.peakMib > 0 ? fmt::format("{:.0f}", each.peakMib) : "");
  }
}

}  // namespace tarvola::bench
