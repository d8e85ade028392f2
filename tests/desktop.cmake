# The tests of the real window, by real events: each file on a screen of its own. The distribution's Python is asked for
# by name, because its packages (what assistive tools are told, as a script hears it) belong to it.
find_program(PLIMO_SYSTEM_PYTHON python3 PATHS /usr/bin NO_DEFAULT_PATH REQUIRED)
file(GLOB window_tests CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/desktop/*_test.py)
foreach(file IN LISTS window_tests)
  get_filename_component(name ${file} NAME_WE)
  string(REPLACE "_test" "" name ${name})
  add_test(NAME window.${name} COMMAND ${PROJECT_SOURCE_DIR}/scripts/with-display ${PLIMO_SYSTEM_PYTHON} -B ${file}
                                       $<TARGET_FILE:plimo>)
  # What the toolkit and the fonts keep for good is no leak of the program's. Nothing runs beside them: a person does not
  # click that fast on a machine that busy.
  set_tests_properties(
    window.${name} PROPERTIES LABELS desktop TIMEOUT 300 RUN_SERIAL TRUE
                              ENVIRONMENT "ASAN_OPTIONS=detect_leaks=0;PLIMO_TEST_PICTURES=${PROJECT_BINARY_DIR}")
endforeach()
