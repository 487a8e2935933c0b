# The module rule.
#
#   hvt_module(<name> [STANDS_ON <module>...] [LINKS <library>...])
#
# <name> is a folder below the calling CMakeLists.txt: its door is <name>/*.h, its inside <name>/src/*.cpp.
# A module sees its own door and inside and the doors of the modules that it names, and nothing else: every
# door stands alone in a folder of its own in the build tree, included as "<name>/<name>.h". Names aren't
# inherited: who uses a door that includes another door names both.

set_property(GLOBAL PROPERTY HVT_MODULES "")
set_property(GLOBAL PROPERTY HVT_LINKS "")
set(HVT_DOORS ${CMAKE_BINARY_DIR}/doors)

# Lets `target` include the doors of the given modules.
function(hvt_see target)
    foreach(module IN LISTS ARGN)
        target_include_directories(${target} PRIVATE ${HVT_DOORS}/${module})
    endforeach()
endfunction()

function(hvt_module name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "STANDS_ON;LINKS")
    if(arg_UNPARSED_ARGUMENTS)
        message(FATAL_ERROR "hvt_module(${name}): what is \"${arg_UNPARSED_ARGUMENTS}\"?")
    endif()
    file(GLOB doors CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${name}/*.h)
    file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${name}/src/*.cpp)
    file(REMOVE_RECURSE ${HVT_DOORS}/${name})
    file(MAKE_DIRECTORY ${HVT_DOORS}/${name}/${name})
    foreach(door IN LISTS doors)
        get_filename_component(file ${door} NAME)
        file(CREATE_LINK ${door} ${HVT_DOORS}/${name}/${name}/${file} SYMBOLIC)
    endforeach()
    set_property(GLOBAL APPEND PROPERTY HVT_MODULES ${name})
    set_property(GLOBAL APPEND PROPERTY HVT_LINKS ${arg_LINKS})
    if(NOT sources)
        return() # a door alone: types, constants, inline functions
    endif()
    add_library(m_${name} OBJECT ${sources})
    target_link_libraries(m_${name} PRIVATE hvt_options)
    target_include_directories(m_${name} PRIVATE ${CMAKE_CURRENT_SOURCE_DIR}/${name}/src)
    hvt_see(m_${name} ${name} ${arg_STANDS_ON})
    set_property(GLOBAL APPEND PROPERTY HVT_OBJECTS $<TARGET_OBJECTS:m_${name}>)
endfunction()
