# Renders the generated families from the catalogue at build time, into MRL_GENERATED_DIR.
#
# The generator names its files at configure time, so that the build knows every one of them: a change
# of the catalogue compiles again what includes a changed header, and nothing else, in the same run.
#   MRL_GENERATED_TOOLKIT_SOURCES, MRL_GENERATED_I18NRES_SOURCES   what the components compile
#   mrl_generate                                                   the target that writes all files
#   reference                                                      the pages for people, in reference/
set(MRL_GENERATED_DIR "${PROJECT_BINARY_DIR}/generated")
set(MRL_PYTHON /usr/bin/python3)
set(MRL_CATALOGUE "${PROJECT_SOURCE_DIR}/catalogue")
set(MRL_GENERATOR "${PROJECT_SOURCE_DIR}/generator/generate.py")

file(GLOB_RECURSE mrl_generator_inputs CONFIGURE_DEPENDS
    "${MRL_CATALOGUE}/*.toml"
    "${PROJECT_SOURCE_DIR}/generator/*.py"
    "${PROJECT_SOURCE_DIR}/generator/templates/*.jinja")
list(FILTER mrl_generator_inputs EXCLUDE REGEX "/generator/(tests|golden)/")
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${mrl_generator_inputs})

execute_process(
    COMMAND "${MRL_PYTHON}" "${MRL_GENERATOR}" "${MRL_CATALOGUE}" --list
    OUTPUT_VARIABLE mrl_generated_files ERROR_VARIABLE mrl_generator_error
    OUTPUT_STRIP_TRAILING_WHITESPACE RESULT_VARIABLE mrl_generator_result)
if(NOT mrl_generator_result EQUAL 0)
    message(FATAL_ERROR "The catalogue cannot be rendered.\n${mrl_generator_error}")
endif()
string(REPLACE "\n" ";" mrl_generated_files "${mrl_generated_files}")
list(TRANSFORM mrl_generated_files PREPEND "${MRL_GENERATED_DIR}/")

set(MRL_GENERATED_TOOLKIT_SOURCES ${mrl_generated_files})
list(FILTER MRL_GENERATED_TOOLKIT_SOURCES INCLUDE REGEX "/Toolkit/.*\\.cpp$")
set(MRL_GENERATED_I18NRES_SOURCES ${mrl_generated_files})
list(FILTER MRL_GENERATED_I18NRES_SOURCES INCLUDE REGEX "/I18NRes/.*\\.cpp$")

set(mrl_generator_stamp "${MRL_GENERATED_DIR}/stamp")
add_custom_command(
    OUTPUT "${mrl_generator_stamp}"
    BYPRODUCTS ${mrl_generated_files}
    COMMAND "${MRL_PYTHON}" "${MRL_GENERATOR}" "${MRL_CATALOGUE}" "${MRL_GENERATED_DIR}"
    COMMAND "${CMAKE_COMMAND}" -E touch "${mrl_generator_stamp}"
    DEPENDS ${mrl_generator_inputs}
    COMMENT "Rendering the generated families"
    VERBATIM)
add_custom_target(mrl_generate DEPENDS "${mrl_generator_stamp}")

set(mrl_reference_stamp "${PROJECT_BINARY_DIR}/reference.stamp")
add_custom_command(
    OUTPUT "${mrl_reference_stamp}"
    COMMAND "${MRL_PYTHON}" "${MRL_GENERATOR}" "${MRL_CATALOGUE}" "${PROJECT_BINARY_DIR}/reference" --part reference
    COMMAND "${CMAKE_COMMAND}" -E touch "${mrl_reference_stamp}"
    DEPENDS ${mrl_generator_inputs}
    COMMENT "Rendering the reference pages"
    VERBATIM)
add_custom_target(reference ALL DEPENDS "${mrl_reference_stamp}")
