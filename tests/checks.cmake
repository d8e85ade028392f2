# The checks of the sources themselves, as tests.
find_package(Python3 REQUIRED COMPONENTS Interpreter)
set(scripts ${PROJECT_SOURCE_DIR}/scripts)

add_test(NAME checks.the_layers_are_kept COMMAND Python3::Interpreter ${scripts}/check-layers)

add_test(NAME checks.each_header_compiles_alone
         COMMAND Python3::Interpreter ${scripts}/check-headers --compiler ${CMAKE_CXX_COMPILER}
                 --build ${PROJECT_BINARY_DIR})
set_tests_properties(checks.each_header_compiles_alone PROPERTIES TIMEOUT 900)

# The checkers see what they are there to see.
add_test(NAME checks.the_checkers_find_what_is_wrong
         COMMAND Python3::Interpreter -B -m unittest discover -s ${PROJECT_SOURCE_DIR}/tests/checks -p "*_test.py")

# The generated table belongs to the published data.
add_test(NAME checks.the_case_folding_table_is_up_to_date COMMAND Python3::Interpreter ${scripts}/generate-case-folding
                                                                  --check)
