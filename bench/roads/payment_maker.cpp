#include "bench/roads/payment_maker.h"

#include <fmt/format.h>

#include <array>
#include <string>

#include "bench/roads/month_maker.h"
#include "tarvola/tarvola.h"

namespace tarvola::bench {

namespace {

constexpr std::array kinds = {"402", "403", "405", "409", "499"};

std::string dateOf(std::int64_t number) { return fmt::format("{:02}/01/2009", number % 28 + 1); }

Variant paymentLine(std::int64_t number) {
  return Variant(Variant::Array{"SSP4", "1", "2009", "0", fmt::format("{:016}", 4000000000 + number), dateOf(number),
                                std::to_string(100000 + number * 7), "411128",
                                kinds[static_cast<std::size_t>(number) % kinds.size()]});
}

Variant transferLine(std::int64_t number) {
  return Variant(Variant::Array{"PBK4", "1", "2009", fmt::format("PBK-{:07}/2009", number), dateOf(number),
                                std::to_string(50000 + number * 3)});
}

}  // namespace

std::vector<Variant> makePayments(std::int64_t count) {
  std::vector<Variant> lines;
  lines.reserve(static_cast<std::size_t>(count));
  for (std::int64_t number = 0; number < count; ++number)
    lines.push_back(number % 2 == 0 ? paymentLine(number) : transferLine(number));
  return lines;
}

void importPayments(const std::vector<Variant>& lines) {
  CImporSSPPBK import;
  for (const Variant& line : lines) import.pImporSSPPBK(line, benchMonth, benchYear, 0);
}

}  // namespace tarvola::bench
