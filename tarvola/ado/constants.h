#pragma once

#include <cstdint>

namespace tarvola {

// The numbers that recordset operations take, under the names that every program knows them by.
inline constexpr std::int32_t adUseClient = 3;
inline constexpr std::int32_t adOpenStatic = 3;
inline constexpr std::int32_t adLockReadOnly = 1;
inline constexpr std::int32_t adLockOptimistic = 3;
inline constexpr std::int32_t adLockBatchOptimistic = 4;
inline constexpr std::int32_t adCmdUnspecified = -1;
inline constexpr std::int32_t adCmdText = 1;
inline constexpr std::int32_t adBookmarkCurrent = 0;
inline constexpr std::int32_t adBookmarkFirst = 1;
inline constexpr std::int32_t adBookmarkLast = 2;
inline constexpr std::int32_t adAffectCurrent = 1;
inline constexpr std::int32_t adAffectGroup = 2;
inline constexpr std::int32_t adAffectAll = 3;
inline constexpr std::int32_t adFilterNone = 0;
inline constexpr std::int32_t adClipString = 2;
inline constexpr std::int32_t adStateClosed = 0;
inline constexpr std::int32_t adStateOpen = 1;
inline constexpr std::int32_t adEditNone = 0;
inline constexpr std::int32_t adEditInProgress = 1;
inline constexpr std::int32_t adEditAdd = 2;

}  // namespace tarvola
