# Compiled resources (menus, dialogs, icons) for systems that have no place for them in a program.
#
#   compile_resources(<target> <file.rc> DEPENDS <files the script includes or embeds>)
#
# makes an OBJECT library of one resource script. An executable that links to it carries the
# resources and finds them through the ordinary Win32 calls. On Windows the script is compiled and
# linked as usual. Elsewhere it is compiled to a .res file by llvm-rc or windres, whichever is
# there; its bytes become an object that hands them to the platform layer when the program starts.
function(compile_resources target script)
    cmake_parse_arguments(RESOURCES "" "" "DEPENDS" ${ARGN})
    if(WIN32)
        add_library(${target} OBJECT ${script})
        set_source_files_properties(${script} PROPERTIES OBJECT_DEPENDS "${RESOURCES_DEPENDS}")
        return()
    endif()

    get_filename_component(name ${script} NAME_WE)
    set(compiled "${CMAKE_CURRENT_BINARY_DIR}/${name}.res")
    set(embedded "${CMAKE_CURRENT_BINARY_DIR}/${name}_res.cpp")
    set(embedder "${PROJECT_SOURCE_DIR}/cmake/EmbedResources.cmake")
    resource_compiler_commands("${CMAKE_CURRENT_SOURCE_DIR}/${script}" ${name}.res commands)
    add_custom_command(
        OUTPUT ${compiled}
        ${commands}
        WORKING_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR}
        DEPENDS ${script} ${RESOURCES_DEPENDS}
        COMMENT "Compiling resources ${script}"
        VERBATIM)
    add_custom_command(
        OUTPUT ${embedded}
        COMMAND ${CMAKE_COMMAND} -D INPUT=${compiled} -D OUTPUT=${embedded} -P ${embedder}
        DEPENDS ${compiled} ${embedder}
        COMMENT "Embedding ${name}.res"
        VERBATIM)
    add_library(${target} OBJECT ${embedded})
    target_link_libraries(${target} PUBLIC platform)
endfunction()

# The command lines that make a .res file, named within the working folder, of a script. The
# project's own C compiler preprocesses it: both resource compilers would otherwise look for one
# particular compiler by name. llvm-rc takes a slash for the sign of an option, so what it reads is
# named within the working folder too: under /c... or /v... a whole path would not be a file's name.
function(resource_compiler_commands input output result)
    find_program(LLVM_RC NAMES llvm-rc llvm-rc-14 llvm-rc-15 llvm-rc-16 llvm-rc-17 llvm-rc-18
                               llvm-rc-19)
    find_program(WINDRES NAMES x86_64-w64-mingw32-windres i686-w64-mingw32-windres windres)
    get_filename_component(folder ${input} DIRECTORY)
    if(LLVM_RC)
        set(preprocessed "${output}.rc")
        set(${result}
            COMMAND ${CMAKE_C_COMPILER} -E -P -xc -DRC_INVOKED ${input} -o ${preprocessed}
            COMMAND ${LLVM_RC} /no-preprocess /I ${folder} /FO ${output} ${preprocessed}
            PARENT_SCOPE)
    elseif(WINDRES)
        set(${result}
            COMMAND ${WINDRES} -O res --include-dir ${folder} --preprocessor ${CMAKE_C_COMPILER}
                    --preprocessor-arg=-E --preprocessor-arg=-xc --preprocessor-arg=-DRC_INVOKED
                    ${input} ${output}
            PARENT_SCOPE)
    else()
        message(FATAL_ERROR "No resource compiler: install llvm (llvm-rc) or binutils-mingw-w64 "
                            "(windres).")
    endif()
endfunction()
