# Compiles the sources of targets in groups, each group as one source. Most of the time of a
# compilation goes into headers, so all is compiled in a fraction of the time; one changed file then
# takes longer. Files that share a name of their own are put into different groups.
#
# OVRI_JOIN is for builds that are made as a whole, to be tested; it changes nothing in what is built.

find_program(OVRI_AWK awk)
mark_as_advanced(OVRI_AWK)

# ovri_join(folder...)
#
# Joins what the targets of these folders compile.
function(ovri_join)
  if(NOT OVRI_JOIN OR NOT OVRI_AWK)
    return()
  endif()
  set(lines "")
  foreach(folder ${ARGN})
    get_property(targets DIRECTORY "${folder}" PROPERTY BUILDSYSTEM_TARGETS)
    foreach(target ${targets})
      get_target_property(type ${target} TYPE)
      get_target_property(sources ${target} SOURCES)
      if(NOT type MATCHES "_LIBRARY$|^EXECUTABLE$" OR NOT sources)
        continue()
      endif()
      list(FILTER sources INCLUDE REGEX "\\.cpp$")
      get_target_property(directory ${target} SOURCE_DIR)
      foreach(source ${sources})
        cmake_path(ABSOLUTE_PATH source BASE_DIRECTORY "${directory}")
        string(APPEND lines "${target}\t${source}\n")
      endforeach()
      set_target_properties(${target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_MODE GROUP)
    endforeach()
  endforeach()

  set(dealt "${PROJECT_BINARY_DIR}/joined-sources.txt")
  set(script "${PROJECT_SOURCE_DIR}/scripts/deal_out.awk")
  file(WRITE "${dealt}" "${lines}")
  execute_process(COMMAND "${OVRI_AWK}" -F "\t" -f "${script}" "${dealt}"
                  OUTPUT_VARIABLE lines COMMAND_ERROR_IS_FATAL ANY)
  string(REGEX MATCHALL "[^\n]+" lines "${lines}")
  foreach(line ${lines})
    string(REPLACE "\t" ";" fields "${line}")
    list(GET fields 0 group)
    list(GET fields 1 target)
    list(GET fields 2 source)
    set_source_files_properties("${source}" TARGET_DIRECTORY ${target}
                                PROPERTIES UNITY_GROUP "${group}")
    # A name given to a file may put it into another group.
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${source}")
  endforeach()
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${script}")
endfunction()
