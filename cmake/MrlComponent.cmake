# One component of the toolkit: the sources of one folder, as a static archive that tests link
# alone and that libmrl takes whole.
#   mrl_component(NAME [SOURCES extra...] [USES component-or-library...])
set_property(GLOBAL PROPERTY MRL_COMPONENTS "")
set(MRL_ALL_COMPONENTS HBLCore PLQStreams HBLIDOM HBLCFGAPI TavelTK ZORCrypto logipf2 I18NRes Common Toolkit serialization Session)

function(mrl_component name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;USES")
    file(GLOB_RECURSE sources CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/${name}/*.cpp")
    if(NOT sources AND NOT arg_SOURCES)
        message(STATUS "component ${name} has no sources yet")
        return()
    endif()
    add_library(mrl_${name} STATIC ${sources} ${arg_SOURCES})
    target_include_directories(mrl_${name} PUBLIC
        "${PROJECT_SOURCE_DIR}/platform" "${PROJECT_SOURCE_DIR}/src" "${MRL_GENERATED_DIR}")
    target_compile_definitions(mrl_${name} PRIVATE MRL_BUILDING)
    add_dependencies(mrl_${name} mrl_generate) # generated headers exist before anything is compiled
    foreach(used IN LISTS arg_USES)
        if(TARGET mrl_${used} OR used IN_LIST MRL_ALL_COMPONENTS)
            target_link_libraries(mrl_${name} PUBLIC mrl_${used})
        else()
            target_link_libraries(mrl_${name} PUBLIC ${used})
        endif()
    endforeach()
    set_property(GLOBAL APPEND PROPERTY MRL_COMPONENTS mrl_${name})
endfunction()

# A test program from all *_test.cpp (and other .cpp) of tests/NAME; every TEST becomes one ctest entry.
#   mrl_tests(NAME [USES component-or-library...])
function(mrl_tests name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "USES")
    file(GLOB sources CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/${name}/*.cpp")
    if(NOT sources)
        return()
    endif()
    add_executable(${name}_tests ${sources})
    target_include_directories(${name}_tests PRIVATE "${PROJECT_SOURCE_DIR}/tests")
    target_compile_definitions(${name}_tests PRIVATE
        MRL_TEST_DATA="${CMAKE_CURRENT_SOURCE_DIR}/${name}"
        MRL_RESOURCES="${PROJECT_SOURCE_DIR}/resources")
    foreach(used IN LISTS arg_USES)
        if(TARGET mrl_${used})
            target_link_libraries(${name}_tests PRIVATE mrl_${used})
        else()
            target_link_libraries(${name}_tests PRIVATE ${used})
        endif()
    endforeach()
    target_link_libraries(${name}_tests PRIVATE GTest::gmock GTest::gtest_main)
    gtest_discover_tests(${name}_tests DISCOVERY_MODE PRE_TEST TEST_PREFIX "${name}."
        NO_PRETTY_TYPES NO_PRETTY_VALUES PROPERTIES TIMEOUT 300)
endfunction()
