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
    set(slots 6)
elseif(LABEL STREQUAL "outside")
    set(slots 3)
endif()
# The longest start first, or the last of them would be waited for alone. All others are mixed: those that sleep leave
# the cores to those that draw only if both run at the same time.
set(longest "scan\\.twelveAtOnce|connect\\.linkThatDiesAt|network\\.stalledScan|memory\\.recallThatDies|^ctl_walk\\."
    "|^ctl_show\\.roundTrip|^shell_stillness\\.|(waits|log)\\.serial|OnSerial$")
string(CONCAT longest ${longest})
set(body "")
foreach(function IN LISTS functions)
    string(REPLACE "()" "" function ${function})
    if("${short}.${function}" MATCHES "${longest}")
        set(cost 1000)
    else()
        string(MD5 mixed "${short}.${function}")
        string(SUBSTRING "${mixed}" 0 2 mixed)
        math(EXPR cost "1 + 0x${mixed}")
    endif()
    string(APPEND body
        "add_test([==[${short}.${function}]==] [==[${PROGRAM}]==] ${function})\n"
        "set_tests_properties([==[${short}.${function}]==] PROPERTIES LABELS ${LABEL} TIMEOUT 240 PROCESSORS ${slots} COST ${cost})\n")
endforeach()
file(WRITE ${OUT} "${body}")
