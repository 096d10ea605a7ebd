#pragma once

namespace tarvola::ado::engine::sqlite {

class Handle;

/// Makes the functions known to the engine that the dialect's texts call. A failure of one ends the statement, and the
/// handle fails with it.
void registerFunctions(Handle& handle);
/// The same for the aggregates.
void registerAggregates(Handle& handle);

}  // namespace tarvola::ado::engine::sqlite
