# Run as a script by discover_qt_tests; writes one add_test line per test function of PROGRAM.

set(ENV{QT_QPA_PLATFORM} offscreen)
execute_process(COMMAND ${PROGRAM} -functions OUTPUT_VARIABLE functions RESULT_VARIABLE result)
if(NOT result EQUAL 0)
    message(FATAL_ERROR "${NAME} -functions failed: ${result}")
endif()
string(REGEX MATCHALL "[A-Za-z_0-9]+\\(\\)" functions "${functions}")
string(REGEX REPLACE "^tst_" "" short ${NAME})
# The tests of the screen draw and so want a core; the program from outside draws a little; all others sleep.
set(slots 1)
if(LABEL MATCHES "^(qml|panel)$")
    set(slots 4)
elseif(LABEL STREQUAL "outside")
    set(slots 2)
endif()
set(body "")
foreach(function IN LISTS functions)
    string(REPLACE "()" "" function ${function})
    string(APPEND body
        "add_test([==[${short}.${function}]==] [==[${PROGRAM}]==] ${function})\n"
        "set_tests_properties([==[${short}.${function}]==] PROPERTIES LABELS ${LABEL} TIMEOUT 240 PROCESSORS ${slots})\n")
endforeach()
file(WRITE ${OUT} "${body}")
