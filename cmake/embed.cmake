# The files of schema/ become part of the library, so that it makes stores wherever it is installed:
# tarvola_embed_schema(ROOM) adds them to a room as one generated source. How they are read: tarvola/store/schema_files.h.
#
# Called as a script (cmake -DFOLDER=.. -DOUTPUT=.. -P embed.cmake) this file writes that source.

if(CMAKE_SCRIPT_MODE_FILE)
  file(GLOB_RECURSE files RELATIVE ${FOLDER} ${FOLDER}/*.sql ${FOLDER}/*.csv)
  list(SORT files)
  set(rows "")
  foreach(file ${files})
    file(READ ${FOLDER}/${file} content)
    string(APPEND rows "    {\"${file}\", R\"tarvola(${content})tarvola\"},\n")
  endforeach()
  file(CONFIGURE OUTPUT ${OUTPUT} @ONLY NEWLINE_STYLE UNIX CONTENT [[
#include "tarvola/store/schema_files.h"

namespace tarvola::store {
namespace {

constexpr SchemaFile files[] = {
@rows@};

}  // namespace

std::span<const SchemaFile> schemaFiles() noexcept { return files; }

}  // namespace tarvola::store
]])
  return()
endif()

set(TARVOLA_EMBED_SCRIPT ${CMAKE_CURRENT_LIST_FILE})

function(tarvola_embed_schema room)
  set(folder ${PROJECT_SOURCE_DIR}/schema)
  set(output ${PROJECT_BINARY_DIR}/generated/schema_files.cpp)
  file(GLOB_RECURSE files CONFIGURE_DEPENDS ${folder}/*.sql ${folder}/*.csv)
  add_custom_command(
    OUTPUT ${output}
    COMMAND ${CMAKE_COMMAND} -DFOLDER=${folder} -DOUTPUT=${output} -P ${TARVOLA_EMBED_SCRIPT}
    DEPENDS ${files} ${TARVOLA_EMBED_SCRIPT}
    COMMENT "Embedding schema/")
  get_target_property(kind room_${room} TYPE)
  if(kind STREQUAL "OBJECT_LIBRARY")
    target_sources(room_${room} PRIVATE ${output})
  endif()
endfunction()
