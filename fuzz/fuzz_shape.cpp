// Reads any bytes as a hierarchical command, and each statement in it as one that is to be narrowed.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "tarvola/ado/shape.h"
#include "tarvola/ado/shape_narrowing.h"
#include "tarvola/runtime/errors.h"

namespace {

using namespace tarvola::ado;

void require(bool condition) {
  if (!condition) std::abort();
}

bool isInside(std::string_view part, std::string_view whole) {
  return part.data() >= whole.data() && part.data() + part.size() <= whole.data() + whole.size();
}

// A statement that was narrowed once is again of the plain form, and its table is still the same.
void narrowTwice(std::string_view statement) {
  const auto select = readPlainSelect(statement);
  if (!select) return;
  const std::string narrowed = withCondition(*select, "K = 'x'");
  const auto again = readPlainSelect(narrowed);
  require(again.has_value());
  require(again->head == select->head);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  narrowTwice(text);
  try {
    const ShapeCommand command = readShapeCommand(text);
    require(isShapeCommand(text));
    require(isInside(command.statement, text));
    for (const ShapeChildText& child : command.children) {
      require(isInside(child.statement, text));
      require(!child.name.empty());
      require(!child.relation.empty());
      narrowTwice(child.statement);
    }
  } catch (const tarvola::RunTimeError&) {
    return 0;
  }
  return 0;
}
