# Writes FILE: a test of CTest for each suite that PROGRAM has. Run as a script; see suites.cmake.
execute_process(COMMAND ${PROGRAM} --gtest_list_tests
  OUTPUT_VARIABLE listed COMMAND_ERROR_IS_FATAL ANY)
string(REPLACE ";" "," listed "${listed}")
string(REPLACE "\n" ";" lines "${listed}")

set(properties)
foreach(property LABELS ENVIRONMENT TIMEOUT)
  if(NOT "${${property}}" STREQUAL "")
    string(APPEND properties " ${property} [==[${${property}}]==]")
  endif()
endforeach()

if(NOT "${FIXTURES}" STREQUAL "")
  string(APPEND properties " FIXTURES_REQUIRED [==[${FIXTURES}]==]")
endif()

set(tests "")
foreach(line IN LISTS lines)
  if(line MATCHES "^([^ ]+)\\.( |$)")
    set(suite ${CMAKE_MATCH_1})
    string(APPEND tests
      "add_test([==[${PREFIX}${suite}]==] [==[${PROGRAM}]==] [==[--gtest_filter=${suite}.*]==])\n")
    if(properties)
      string(APPEND tests
        "set_tests_properties([==[${PREFIX}${suite}]==] PROPERTIES${properties})\n")
    endif()
  endif()
endforeach()
file(WRITE ${FILE} "${tests}")
