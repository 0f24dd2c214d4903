# discover_qt_tests(target label): after each build of the target, asks it for its test functions and
# registers each of them as a ctest entry of its own.

set(_discover_script ${CMAKE_CURRENT_LIST_DIR}/WriteQtTests.cmake)

function(discover_qt_tests target label)
    set(list_file ${CMAKE_CURRENT_BINARY_DIR}/${target}_functions.cmake)
    add_custom_command(TARGET ${target} POST_BUILD
        COMMAND ${CMAKE_COMMAND} -DPROGRAM=$<TARGET_FILE:${target}> -DNAME=${target} -DLABEL=${label}
            -DOUT=${list_file} -P ${_discover_script}
        BYPRODUCTS ${list_file} VERBATIM)
    set(include_file ${CMAKE_CURRENT_BINARY_DIR}/${target}_include.cmake)
    file(WRITE ${include_file}
        "if(EXISTS \"${list_file}\")\n  include(\"${list_file}\")\nelse()\n  add_test(${target}_NOT_BUILT ${target}_NOT_BUILT)\nendif()\n")
    set_property(DIRECTORY APPEND PROPERTY TEST_INCLUDE_FILES ${include_file})
endfunction()
