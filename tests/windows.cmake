# The tests of the real window, of the installer and of the portable archive under Wine, on a display of their own.
find_program(PLIMO_SYSTEM_PYTHON python3 PATHS /usr/bin NO_DEFAULT_PATH REQUIRED)
file(GLOB window_tests CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/windows/*_test.py)
foreach(file IN LISTS window_tests)
  get_filename_component(module ${file} NAME_WE)
  string(REPLACE "_test" "" name ${module})
  add_test(NAME window.${name}
           COMMAND ${PROJECT_SOURCE_DIR}/scripts/with-display ${PLIMO_SYSTEM_PYTHON} -B -m unittest -v tests.windows.${module}
           WORKING_DIRECTORY ${PROJECT_SOURCE_DIR})
  set(environment PLIMO_PROGRAM=$<TARGET_FILE:plimo> PLIMO_TEST_PICTURES=${PROJECT_BINARY_DIR}
                  PLIMO_PACKAGES=${PROJECT_BINARY_DIR} WINEPREFIX=${PROJECT_BINARY_DIR}/wine)
  set_tests_properties(window.${name} PROPERTIES TIMEOUT 300 RUN_SERIAL TRUE ENVIRONMENT "${environment}")
endforeach()

# A program that the tests start.
add_executable(plimo-test-app-command windows/app_command/main.cpp)
target_link_libraries(plimo-test-app-command PRIVATE plimo_options)

# What the window offers to UI Automation, in the process of the program.
find_package(Qt6 REQUIRED COMPONENTS Widgets)
file(GLOB screen_reader_sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/windows/screen_reader/*.cpp)
add_executable(plimo-screen-reader-tests ${screen_reader_sources})
target_link_libraries(plimo-screen-reader-tests PRIVATE plimo_art plimo_desktop plimo_test_support GTest::gtest
                                                        GTest::gmock ole32 oleaut32)
add_test(NAME window.screen_reader
         COMMAND ${PROJECT_SOURCE_DIR}/scripts/with-display ${PROJECT_SOURCE_DIR}/scripts/with-wine
                 $<TARGET_FILE:plimo-screen-reader-tests> --gtest_brief=1)
set_tests_properties(window.screen_reader PROPERTIES TIMEOUT 300 RUN_SERIAL TRUE
                     ENVIRONMENT WINEPREFIX=${PROJECT_BINARY_DIR}/wine)
