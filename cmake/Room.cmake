# A room is one folder of the house and one target. Headers are included by their path from the
# root ("driver/papi.h"), but only from rooms the including target links to: each room exposes a
# folder that holds nothing but a link to itself, so a dependency that was not declared does not
# compile.
#
#   add_room(<target> FOLDER <path from the root> [TYPE STATIC|SHARED|OBJECT|INTERFACE]
#            SOURCES <files> USES <targets>)
function(add_room target)
    cmake_parse_arguments(ROOM "" "FOLDER;TYPE" "SOURCES;USES" ${ARGN})
    if(NOT ROOM_TYPE)
        set(ROOM_TYPE STATIC)
    endif()
    add_library(${target} ${ROOM_TYPE} ${ROOM_SOURCES})
    set(scope PUBLIC)
    if(ROOM_TYPE STREQUAL "INTERFACE")
        set(scope INTERFACE)
    endif()
    room_include_folder(${target} ${ROOM_FOLDER} include)
    target_include_directories(${target} ${scope} "${include}")
    target_link_libraries(${target} ${scope} ${ROOM_USES})
endfunction()

function(room_include_folder target folder result)
    if(CMAKE_HOST_WIN32)
        set(${result} "${CMAKE_SOURCE_DIR}" PARENT_SCOPE)
        return()
    endif()
    set(root "${CMAKE_BINARY_DIR}/include/${target}")
    # A link from another layout of the rooms must not be followed.
    file(REMOVE_RECURSE "${root}")
    get_filename_component(parent "${root}/${folder}" DIRECTORY)
    file(MAKE_DIRECTORY "${parent}")
    file(CREATE_LINK "${CMAKE_SOURCE_DIR}/${folder}" "${root}/${folder}" SYMBOLIC)
    set(${result} "${root}" PARENT_SCOPE)
endfunction()
