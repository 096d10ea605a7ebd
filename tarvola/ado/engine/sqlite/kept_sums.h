#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "tarvola/ado/engine/session.h"
#include "tarvola/ado/engine/sqlite/catalog.h"
#include "tarvola/ado/engine/sqlite/handle.h"
#include "tarvola/ado/engine/sqlite/kept_answer.h"
#include "tarvola/ado/rows.h"
#include "tarvola/ado/sql/compile.h"

namespace tarvola::ado::engine::sqlite {

/// The answers to sums and counts that were asked for on a handle, kept in step with every row that the handle adds,
/// changes or removes. Saving one slip asks for the sums of all slips of its form; with the answers kept it costs the
/// same among a hundred as among a million.
///
/// A change by anybody else forgets everything, as does a statement that is taken back. Answers that nobody asks for
/// while many rows change are forgotten too, so that filling a store does not pay for them.
class KeptSums {
 public:
  KeptSums(const Handle& handle, const Catalog& catalog) noexcept : handle_(handle), catalog_(catalog) {}
  ~KeptSums();
  KeptSums(const KeptSums&) = delete;
  KeptSums& operator=(const KeptSums&) = delete;

  /// One row with the answer to the question that a statement asks with its literals; nullptr if the rows must be added
  /// up by the statement itself. The first time this reads the rows.
  RowsPtr answer(std::string_view statement, const sql::Compiled& compiled, const std::vector<sql::Literal>& literals);
  /// The sums of packed fields over the rows that a SELECT COUNT(*) counts; nothing if the rows must be read.
  std::optional<std::vector<double>> packedSums(std::string_view statement, const sql::Compiled& compiled,
                                                const std::vector<sql::Literal>& literals, const PackedFields& fields);
  /// Forgets all answers: rows have changed unseen.
  void clear() noexcept { answers_.clear(); }

 private:
  struct Kept {
    KeptAnswer answer;
    int changesSinceAsked = 0;
  };

  static void rowChanges(void* kept, sqlite3* database, int operation, const char* schema, const char* table,
                         sqlite3_int64 oldIdentity, sqlite3_int64 newIdentity);
  static void takenBack(void* kept) { static_cast<KeptSums*>(kept)->clear(); }
  void listen();
  /// The answer under a name, made by `outlined` and read from the rows the first time; nullptr if it is not exact.
  template <class Outline>
  const KeptAnswer* exactAnswer(std::string name, Outline&& outlined);
  [[nodiscard]] bool othersHaveWritten();
  [[nodiscard]] std::optional<KeptAnswer> outline(const sql::KeptQuestion& question,
                                                  const std::vector<sql::Literal>& literals,
                                                  std::vector<KeptAnswer::Summed> summed) const;
  [[nodiscard]] std::optional<KeptAnswer::Key> outlineKey(const sql::KeptQuestion::Key& wanted, const sql::Table& table,
                                                          const std::vector<sql::Literal>& literals) const;
  void addUpRows(KeptAnswer& answer) const;

  const Handle& handle_;
  const Catalog& catalog_;
  /// By the whole text of the statement and what is summed of packed texts.
  std::unordered_map<std::string, Kept> answers_;
  Statement dataVersion_;
  std::int64_t seenVersion_ = 0;
};

}  // namespace tarvola::ado::engine::sqlite
