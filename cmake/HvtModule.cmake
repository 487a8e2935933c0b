# The module rule.
#
#   hvt_floors(<floor>...)
#   hvt_module(<name> [OPENS <module>...] [STANDS_ON <module>...] [LINKS <library>...])
#
# The house has floors, lowest first; "store versions" are two rooms of one floor, side by side. A room is a
# folder of the tree; its CMakeLists.txt declares its modules, each behind those that it stands on.
#
# <name> is a folder below the calling CMakeLists.txt: its door is <name>/*.h, its inside <name>/src/*.cpp.
# A module sees its own door and inside, the doors of the modules that it names and what these open, and nothing
# else: every door stands alone in a folder of its own in the build tree, included as "<name>/<name>.h". OPENS are
# the modules whose doors this door includes; STANDS_ON are those that the inside needs besides.
#
# No arrow climbs: a module stands on modules of lower floors and on those of its own room. Interfaces and drivers
# don't stand on command modules (f_*, t_*), and nothing stands on the board module.

set_property(GLOBAL PROPERTY HVT_MODULES "")
set_property(GLOBAL PROPERTY HVT_LINKS "")
set(HVT_DOORS ${CMAKE_BINARY_DIR}/doors)

# Builds the rooms of the floors, lowest floor first.
function(hvt_floors)
    set(number 0)
    foreach(floor IN LISTS ARGN)
        math(EXPR number "${number} + 1")
        separate_arguments(rooms UNIX_COMMAND "${floor}")
        foreach(room IN LISTS rooms)
            set_property(GLOBAL PROPERTY HVT_FLOOR_OF_${room} ${number})
            if(EXISTS ${CMAKE_CURRENT_SOURCE_DIR}/${room}/CMakeLists.txt)
                add_subdirectory(${room})
            endif()
        endforeach()
    endforeach()
endfunction()

# The given modules and all that their doors open.
function(hvt_opened result)
    set(seen "")
    set(left ${ARGN})
    while(left)
        list(POP_FRONT left module)
        if(NOT module IN_LIST seen)
            list(APPEND seen ${module})
            get_property(opens GLOBAL PROPERTY HVT_OPENS_${module})
            list(APPEND left ${opens})
        endif()
    endwhile()
    set(${result} ${seen} PARENT_SCOPE)
endfunction()

# Lets `target` include the doors of the given modules.
function(hvt_see target)
    hvt_opened(modules ${ARGN})
    foreach(module IN LISTS modules)
        target_include_directories(${target} PRIVATE ${HVT_DOORS}/${module})
    endforeach()
endfunction()

# Refuses an arrow from the module `name` of `room` to `module` that climbs or points the wrong way.
function(hvt_check_arrow room name module)
    get_property(there GLOBAL PROPERTY HVT_ROOM_OF_${module})
    if(NOT there)
        message(FATAL_ERROR "${room}/${name} stands on ${module}, which isn't declared yet: it belongs to a higher "
                            "floor or stands further down in ${room}/CMakeLists.txt, or there is no such module")
    endif()
    get_property(own_floor GLOBAL PROPERTY HVT_FLOOR_OF_${room})
    get_property(its_floor GLOBAL PROPERTY HVT_FLOOR_OF_${there})
    if(NOT there STREQUAL room AND NOT its_floor LESS own_floor)
        message(FATAL_ERROR "${room}/${name} stands on ${there}/${module}, but ${room} and ${there} are rooms of one "
                            "floor")
    endif()
    if(module MATCHES "^[ft]_" AND NOT name MATCHES "^([ft]_|s_)")
        message(FATAL_ERROR "${room}/${name} stands on the command module ${there}/${module}")
    endif()
endfunction()

function(hvt_module name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "OPENS;STANDS_ON;LINKS")
    if(arg_UNPARSED_ARGUMENTS)
        message(FATAL_ERROR "hvt_module(${name}): what is \"${arg_UNPARSED_ARGUMENTS}\"?")
    endif()
    get_filename_component(room ${CMAKE_CURRENT_SOURCE_DIR} NAME)
    foreach(module IN LISTS arg_OPENS arg_STANDS_ON)
        hvt_check_arrow(${room} ${name} ${module})
    endforeach()
    file(GLOB doors CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${name}/*.h)
    file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${name}/src/*.cpp)
    if(NOT doors)
        message(FATAL_ERROR "${room}/CMakeLists.txt names ${name}, but ${room}/${name} has no door (*.h)")
    endif()
    file(REMOVE_RECURSE ${HVT_DOORS}/${name})
    file(MAKE_DIRECTORY ${HVT_DOORS}/${name}/${name})
    foreach(door IN LISTS doors)
        get_filename_component(file ${door} NAME)
        file(CREATE_LINK ${door} ${HVT_DOORS}/${name}/${name}/${file} SYMBOLIC)
    endforeach()
    set_property(GLOBAL PROPERTY HVT_ROOM_OF_${name} ${room})
    set_property(GLOBAL PROPERTY HVT_OPENS_${name} ${arg_OPENS})
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
