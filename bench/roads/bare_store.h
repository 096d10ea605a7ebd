#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace tarvola::bench {

using BareValue = std::variant<std::nullptr_t, std::int64_t, double, std::string_view>;
using OwnedValue = std::variant<std::nullptr_t, std::int64_t, double, std::string>;

/// Views of values, in their order; the owners must outlive them.
std::vector<BareValue> viewsOf(const std::vector<OwnedValue>& values);

/// A prepared statement on a bare handle: the cheapest way there is to run it.
class BareStatement {
 public:
  BareStatement(sqlite3* handle, const std::string& text);
  BareStatement(BareStatement&&) = default;

  void bind(int place, const BareValue& value);
  /// Binds all values, steps to the end and reads every column of every row, as a client cursor must. Gives the row
  /// count.
  std::int64_t run(std::initializer_list<BareValue> values = {});
  std::int64_t run(const std::vector<BareValue>& values);

  /// Every row with its values' owners, for setting a floor up.
  std::vector<std::vector<OwnedValue>> rows();
  [[nodiscard]] sqlite3_stmt* native() const noexcept { return statement_.get(); }
  /// What the rows read so far add up to, so that reading them cannot be left out.
  [[nodiscard]] std::uint64_t sum() const noexcept { return sum_; }

 private:
  std::int64_t stepThrough();
  struct Finalize {
    void operator()(sqlite3_stmt* statement) const noexcept { sqlite3_finalize(statement); }
  };
  std::unique_ptr<sqlite3_stmt, Finalize> statement_;
  std::uint64_t sum_ = 0;
};

/// A store opened with SQLite alone, under the journal settings that the library uses.
class BareStore {
 public:
  explicit BareStore(const std::string& path);
  BareStatement prepare(const std::string& text) { return {handle_.get(), text}; }
  void execute(const std::string& text);
  /// Its statements must be gone.
  void close() { handle_.reset(); }

 private:
  struct Close {
    void operator()(sqlite3* handle) const noexcept { sqlite3_close(handle); }
  };
  std::unique_ptr<sqlite3, Close> handle_;
};

}  // namespace tarvola::bench
