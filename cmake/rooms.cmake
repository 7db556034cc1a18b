# A room is a folder with one library. Rooms of the host are shared libraries, so that the plug-in module and the programs use
# one copy of them; rooms of the plug-in are static and end in the module.

add_library(kelmaro_options INTERFACE)
target_include_directories(kelmaro_options INTERFACE ${PROJECT_SOURCE_DIR})
target_compile_options(kelmaro_options INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wno-missing-field-initializers
                       -fno-math-errno)
# GCC 12 warns of overlapping copies that cannot be, when a literal and a std::string are joined.
target_compile_options(kelmaro_options INTERFACE $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>)
if(KELMARO_WARNINGS_AS_ERRORS)
  target_compile_options(kelmaro_options INTERFACE -Werror)
endif()
if(KELMARO_SANITIZE)
  target_compile_options(kelmaro_options INTERFACE -fsanitize=${KELMARO_SANITIZE} -fno-omit-frame-pointer
                         -fno-sanitize-recover=all)
  target_link_options(kelmaro_options INTERFACE -fsanitize=${KELMARO_SANITIZE})
endif()

# host_room(NAME SOURCES ... USES rooms ... LIBRARIES system libraries ...)
function(host_room name)
  cmake_parse_arguments(ROOM "" "" "SOURCES;USES;LIBRARIES" ${ARGN})
  add_library(host_${name} SHARED ${ROOM_SOURCES})
  list(TRANSFORM ROOM_USES PREPEND host_)
  target_link_libraries(host_${name} PUBLIC kelmaro_options ${ROOM_USES} PRIVATE ${ROOM_LIBRARIES})
  if(NOT KELMARO_SANITIZE)
    target_link_options(host_${name} PRIVATE -Wl,--no-undefined)
  endif()
endfunction()

# plugin_room(NAME SOURCES ... USES plug-in rooms ...): sees the host's rooms up to ui, no further.
function(plugin_room name)
  cmake_parse_arguments(ROOM "" "" "SOURCES;USES" ${ARGN})
  add_library(kelmaro_${name} STATIC ${ROOM_SOURCES})
  list(TRANSFORM ROOM_USES PREPEND kelmaro_)
  target_link_libraries(kelmaro_${name} PUBLIC kelmaro_options ${ROOM_USES} host_ui)
  set_target_properties(kelmaro_${name} PROPERTIES CXX_VISIBILITY_PRESET hidden VISIBILITY_INLINES_HIDDEN ON)
endfunction()
