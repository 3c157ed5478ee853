# A host of the exported function, run as a process of its own so that it can have its own current
# directory, clock and memory.
add_executable(export_host "${CMAKE_CURRENT_LIST_DIR}/export_host.cpp")
target_link_libraries(export_host PRIVATE ovri_settings ${CMAKE_DL_LIBS})
target_compile_definitions(export_host PRIVATE
  OVRI_LIBRARY_PATH="$<TARGET_FILE:ovri_library>")
add_dependencies(test_system export_host)
target_compile_definitions(test_system PRIVATE OVRI_EXPORT_HOST_PATH="$<TARGET_FILE:export_host>")

# Documents in JSON are read back by a reader that is not the tool's own text.
target_link_libraries(test_system PRIVATE ovri_encyclopaedia ovri_json)
set(test_parts 4)
set(test_cost 30)
