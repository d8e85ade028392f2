# What makes plimo.exe a program of Windows: its icon, its version, its manifest, and what protects it from attacks.
enable_language(RC)
find_program(PLIMO_ICOTOOL icotool REQUIRED)

# The largest icon is stored as PNG, as Windows expects it.
set(icon ${CMAKE_CURRENT_BINARY_DIR}/plimo.ico)
set(pngs ${PLIMO_ICONS})
list(FILTER pngs EXCLUDE REGEX "-(128|256)\\.png$")
set(large ${PLIMO_ICONS})
list(FILTER large INCLUDE REGEX "-256\\.png$")
add_custom_command(OUTPUT ${icon} COMMAND ${PLIMO_ICOTOOL} --create --output=${icon} ${pngs} --raw=${large}
                   DEPENDS plimo_art ${PLIMO_ICONS} VERBATIM)

configure_file(windows/plimo.manifest.in plimo.manifest @ONLY)
configure_file(windows/plimo.rc.in plimo.rc @ONLY)
set_source_files_properties(${CMAKE_CURRENT_BINARY_DIR}/plimo.rc PROPERTIES
  OBJECT_DEPENDS "${icon};${CMAKE_CURRENT_BINARY_DIR}/plimo.manifest")
target_sources(plimo PRIVATE ${CMAKE_CURRENT_BINARY_DIR}/plimo.rc windows/load_configuration.cpp)
set_target_properties(plimo PROPERTIES WIN32_EXECUTABLE ON)
# Addresses chosen at random from 64 bits, no code in data.
target_link_options(plimo PRIVATE -Wl,--dynamicbase,--high-entropy-va,--nxcompat,--enable-reloc-section)

# The linker knows nothing of the load configuration; nothing else refers to it.
target_link_options(plimo PRIVATE -Wl,--undefined=plimo_load_configuration)
find_package(Python3 REQUIRED COMPONENTS Interpreter)
add_custom_command(TARGET plimo POST_BUILD COMMAND ${Python3_EXECUTABLE} -B
                   ${CMAKE_CURRENT_SOURCE_DIR}/windows/set_load_configuration.py $<TARGET_FILE:plimo> VERBATIM)
set_property(TARGET plimo APPEND PROPERTY LINK_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/windows/set_load_configuration.py)
