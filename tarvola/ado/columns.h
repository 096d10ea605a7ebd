#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace tarvola::ado {

/// The type of a column as the store declares it. Any takes whatever is put into it (a computed column, a
/// position of a packed text that may hold a text where a number is expected).
enum class ColumnType : std::uint8_t { Any, Text, LongText, Integer, Long, Double, Boolean, Date, Chapter };

struct Column {
  std::string name;
  ColumnType type = ColumnType::Any;
  /// Most characters of a text, 0 where the declaration names no bound.
  std::size_t length = 0;
};

/// Names and types of the columns of a set of rows. Made once for each statement shape or form layout and
/// shared by all recordsets of it.
class Columns {
 public:
  explicit Columns(std::vector<Column> columns);
  /// The names are found through views into the columns themselves, so a set of columns stays where it is.
  Columns(const Columns&) = delete;
  Columns& operator=(const Columns&) = delete;

  [[nodiscard]] std::size_t count() const noexcept { return columns_.size(); }
  [[nodiscard]] const Column& operator[](std::size_t index) const { return columns_[index]; }

  /// The first column of that name, without regard to case.
  [[nodiscard]] std::optional<std::size_t> find(std::string_view name) const noexcept;

 private:
  struct FoldedHash {
    using is_transparent = void;
    std::size_t operator()(std::string_view name) const noexcept;
  };
  struct FoldedEqual {
    using is_transparent = void;
    bool operator()(std::string_view left, std::string_view right) const noexcept;
  };
  std::vector<Column> columns_;
  std::unordered_map<std::string_view, std::size_t, FoldedHash, FoldedEqual> places_;
};

using ColumnsPtr = std::shared_ptr<const Columns>;

}  // namespace tarvola::ado
