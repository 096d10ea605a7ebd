#include "bench/roads/measure.h"

#include <fmt/format.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <map>
#include <stdexcept>

namespace tarvola::bench {

double seconds(const std::function<void()>& work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
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

void printMeasurements(const std::vector<Measurement>& all) {
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
