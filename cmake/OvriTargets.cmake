# Compiler settings and the one function that declares a folder of src/ as a target.
#
# Results must be the same bytes at every optimisation level, so floating-point contraction is off
# and no flag may reorder arithmetic.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

add_library(ovri_settings INTERFACE)
target_compile_options(ovri_settings INTERFACE -ffp-contract=off -Wall -Wextra -Wpedantic
                                               -Wconversion -Wshadow)
# GCC 12 takes the concatenation of strings for overlapping copies.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  target_compile_options(ovri_settings INTERFACE -Wno-restrict)
endif()
# In joined sources a file's constants stand before the functions of the next, and the names without
# linkage of each are taken for those of a header.
if(OVRI_JOIN)
  target_compile_options(ovri_settings INTERFACE -Wno-shadow)
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    target_compile_options(ovri_settings INTERFACE -Wno-subobject-linkage)
  endif()
endif()
if(OVRI_WERROR)
  target_compile_options(ovri_settings INTERFACE -Werror)
endif()
if(OVRI_SANITIZE)
  target_compile_options(ovri_settings INTERFACE -fsanitize=address,undefined
                                                 -fno-sanitize-recover=all -fno-omit-frame-pointer)
  # What the sanitizers weave in makes GCC doubt variables that are always set.
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    target_compile_options(ovri_settings INTERFACE -Wno-maybe-uninitialized)
  endif()
  target_link_options(ovri_settings INTERFACE -fsanitize=address,undefined)
endif()

if(OVRI_FUZZ)
  # The fuzzer watches each comparison, also those of the checks for null and alignment, which are
  # many and which the address sanitizer makes up for.
  target_compile_options(ovri_settings INTERFACE -fsanitize=fuzzer-no-link
                                                 -fno-sanitize=null,alignment,object-size,vptr)
endif()

# ovri_unoptimised_when_sanitized(target)
#
# For what computes little: under the sanitizers its compilation takes longer than its runs.
function(ovri_unoptimised_when_sanitized target)
  if(OVRI_SANITIZE AND NOT OVRI_FUZZ AND NOT MSVC)
    target_compile_options(${target} PRIVATE -O0)
  endif()
endfunction()

# ovri_folder(NAME USES folder... SOURCES file...)
#
# Declares src/NAME as the static library ovri_NAME. Its headers are included as "NAME/file.h", and
# only by targets that name it under USES (or use a folder that does): each folder is seen through
# an include root of its own, so an include that points upwards does not compile.
function(ovri_folder name)
  cmake_parse_arguments(FOLDER "" "" "USES;SOURCES" ${ARGN})
  set(root "${PROJECT_BINARY_DIR}/include-roots/${name}")
  file(MAKE_DIRECTORY "${root}")
  if(NOT EXISTS "${root}/${name}")
    file(CREATE_LINK "${CMAKE_CURRENT_SOURCE_DIR}/${name}" "${root}/${name}" SYMBOLIC)
  endif()
  list(TRANSFORM FOLDER_SOURCES PREPEND "${name}/")
  add_library(ovri_${name} STATIC ${FOLDER_SOURCES})
  target_include_directories(ovri_${name} PUBLIC "${root}")
  target_link_libraries(ovri_${name} PRIVATE ovri_settings)
  foreach(used ${FOLDER_USES})
    target_link_libraries(ovri_${name} PUBLIC ovri_${used})
  endforeach()
endfunction()

# ovri_headers(NAME FOLDER folder PROBE file PACKAGE package)
#
# A library that is nothing but headers, as the target ovri_NAME. Its folder is seen through an
# include root of its own, so that it serves a cross build too: none of its neighbours is seen.
function(ovri_headers name)
  cmake_parse_arguments(HEADERS "" "FOLDER;PROBE;PACKAGE" "" ${ARGN})
  find_path(OVRI_${name}_INCLUDE "${HEADERS_FOLDER}/${HEADERS_PROBE}" NO_CMAKE_FIND_ROOT_PATH)
  mark_as_advanced(OVRI_${name}_INCLUDE)
  if(NOT OVRI_${name}_INCLUDE)
    message(FATAL_ERROR "${HEADERS_FOLDER}/${HEADERS_PROBE} was not found. "
                        "On Debian: apt-get install ${HEADERS_PACKAGE}. Elsewhere: install ${name} and "
                        "name its directory by CMAKE_PREFIX_PATH.")
  endif()
  set(root "${PROJECT_BINARY_DIR}/include-roots/${name}")
  file(MAKE_DIRECTORY "${root}")
  file(CREATE_LINK "${OVRI_${name}_INCLUDE}/${HEADERS_FOLDER}" "${root}/${HEADERS_FOLDER}" SYMBOLIC)
  add_library(ovri_${name} INTERFACE)
  target_include_directories(ovri_${name} SYSTEM INTERFACE "${root}")
endfunction()
