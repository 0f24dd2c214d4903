# Run by an installation: writes LAUNCHER from LAUNCHER_IN, with the ways from BINDIR to PROGRAMS and to the unit.
foreach(folder IN ITEMS BINDIR PROGRAMS)
    get_filename_component(${folder} "${${folder}}" ABSOLUTE BASE_DIR "${CMAKE_INSTALL_PREFIX}")
endforeach()
file(RELATIVE_PATH PROGRAMS_FROM_LAUNCHER "${BINDIR}" "${PROGRAMS}")
set(SCRIPTS_FROM_LAUNCHER "${PROGRAMS_FROM_LAUNCHER}")
set(UNIT_FROM_LAUNCHER qkv720-unit)
configure_file("${LAUNCHER_IN}" "${LAUNCHER}" @ONLY)
