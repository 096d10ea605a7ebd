#pragma once

#include <sqlite3.h>

#include <string>

namespace tarvola::ado::engine::sqlite {

/// Fails with the platform's number and text for what SQLite reported about a statement or a file.
[[noreturn]] void failWith(sqlite3* database, int code, const std::string& path);

}  // namespace tarvola::ado::engine::sqlite
