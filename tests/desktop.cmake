# The tests of the real window, each file on a display of its own. It must be /usr/bin/python3 because the Debian packages
# for accessibility are installed for it.
find_program(PLIMO_SYSTEM_PYTHON python3 PATHS /usr/bin NO_DEFAULT_PATH REQUIRED)
file(GLOB window_tests CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/desktop/*_test.py)
foreach(file IN LISTS window_tests)
  get_filename_component(module ${file} NAME_WE)
  string(REPLACE "_test" "" name ${module})
  add_test(NAME window.${name}
           COMMAND ${PROJECT_SOURCE_DIR}/scripts/with-display ${PLIMO_SYSTEM_PYTHON} -B -m unittest -v tests.desktop.${module}
           WORKING_DIRECTORY ${PROJECT_SOURCE_DIR})
  # Leaks are not detected because Qt and fontconfig keep some memory until the end. Nothing runs in parallel because the
  # tests use the program at the speed of a person.
  set(environment ASAN_OPTIONS=detect_leaks=0 PLIMO_PROGRAM=$<TARGET_FILE:plimo> PLIMO_TEST_PICTURES=${PROJECT_BINARY_DIR})
  set_tests_properties(window.${name} PROPERTIES LABELS desktop TIMEOUT 300 RUN_SERIAL TRUE ENVIRONMENT "${environment}")
endforeach()
