# Checks of the source files.
find_package(Python3 REQUIRED COMPONENTS Interpreter)
set(scripts ${PROJECT_SOURCE_DIR}/scripts)

add_test(NAME checks.layers COMMAND Python3::Interpreter ${scripts}/check-layers)

add_test(NAME checks.headers
         COMMAND Python3::Interpreter ${scripts}/check-headers --compiler ${CMAKE_CXX_COMPILER}
                 --build ${PROJECT_BINARY_DIR})
set_tests_properties(checks.headers PROPERTIES TIMEOUT 900)

# Tests of the checks.
add_test(NAME checks.checkers
         COMMAND Python3::Interpreter -B -m unittest discover -s ${PROJECT_SOURCE_DIR}/tests/checks -p "*_test.py")

# It must be /usr/bin/python3 because the Debian package of clang is installed for it.
find_program(PLIMO_SYSTEM_PYTHON python3 PATHS /usr/bin NO_DEFAULT_PATH REQUIRED)
add_test(NAME checks.mutation COMMAND ${PLIMO_SYSTEM_PYTHON} -B -m unittest tests.mutation.mutation_test
         WORKING_DIRECTORY ${PROJECT_SOURCE_DIR})

# The generated table belongs to the published data.
add_test(NAME checks.the_case_folding_table_is_up_to_date COMMAND Python3::Interpreter ${scripts}/generate-case-folding
                                                                  --check)
