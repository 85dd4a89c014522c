# veyra_add_suites(TARGET [PREFIX words.] [LABELS label...] [ENVIRONMENT NAME=VALUE...] [TIMEOUT s]
#                 [FIXTURES name])
#
# A test of CTest for each suite of a program of tests: one process runs all of its cases, and shows
# each. A process for every case would cost more than the case itself.
function(veyra_add_suites target)
  cmake_parse_arguments(PARSE_ARGV 1 suites "" "PREFIX;TIMEOUT;FIXTURES" "LABELS;ENVIRONMENT")
  set(list ${CMAKE_CURRENT_BINARY_DIR}/${target}-${suites_PREFIX}suites)
  set(options)
  foreach(option PREFIX TIMEOUT LABELS ENVIRONMENT FIXTURES)
    list(APPEND options -D "${option}=${suites_${option}}")
  endforeach()
  add_custom_command(TARGET ${target} POST_BUILD
    COMMAND ${CMAKE_COMMAND} -D PROGRAM=$<TARGET_FILE:${target}> -D FILE=${list}.cmake ${options}
      -P ${PROJECT_SOURCE_DIR}/tests/cmake/list_suites.cmake
    BYPRODUCTS ${list}.cmake
    VERBATIM)
  file(WRITE ${list}_or_none.cmake
    "if(EXISTS \"${list}.cmake\")\n"
    "  include(\"${list}.cmake\")\n"
    "else()\n"
    "  add_test(${suites_PREFIX}${target}_is_not_built ${target}_is_not_built)\n"
    "endif()\n")
  set_property(DIRECTORY APPEND PROPERTY TEST_INCLUDE_FILES ${list}_or_none.cmake)
endfunction()
