# What the tests of the Java side need to know: the Java machine, the jar, and a class of their own
# that calls the library. Without a JDK they are built all the same and skip themselves.
if(TARGET ovri_jar)
  include(UseJava)
  set(CMAKE_JAVA_COMPILE_FLAGS -Xlint:all -Werror --release 11 -encoding UTF-8)
  add_jar(ovri_call_probe
    SOURCES "${CMAKE_CURRENT_LIST_DIR}/CallProbe.java" "${CMAKE_CURRENT_LIST_DIR}/ManyCalls.java"
    INCLUDE_JARS ovri_jar)
  get_target_property(probe_jar ovri_call_probe JAR_FILE)
  add_dependencies(test_java ovri_jar ovri_call_probe)
  target_compile_definitions(test_java PRIVATE
    OVRI_JAVA="${Java_JAVA_EXECUTABLE}"
    OVRI_JAR_PATH="${PROJECT_BINARY_DIR}/ovri.jar"
    OVRI_PROBE_JAR_PATH="${probe_jar}")
endif()

# A library built with the sanitizers needs their runtime before anything else in the process.
if(OVRI_SANITIZE)
  execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=libasan.so
                  OUTPUT_VARIABLE sanitizer_runtime OUTPUT_STRIP_TRAILING_WHITESPACE)
  target_compile_definitions(test_java PRIVATE OVRI_SANITIZER_RUNTIME="${sanitizer_runtime}")
endif()
set(test_parts 3)
set(test_cost 30)
