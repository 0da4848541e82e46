# Drawings whose source is text: JSON in the shape of the drawing schema, built by flatc into the file that the programs read.
set(KEL_DRAWING_SCHEMA ${CMAKE_SOURCE_DIR}/workbench/database/drawing.fbs)

# kel_add_drawing(name json [folder]): builds <folder>/<name>.zdr from `json` (relative to the calling folder), as part of a
# plain build, through the target drawing_<name>. The folder is ${CMAKE_BINARY_DIR}/samples when none is given.
function(kel_add_drawing name json)
    get_filename_component(source ${json} ABSOLUTE)
    get_filename_component(stem ${json} NAME_WLE)
    set(folder ${CMAKE_BINARY_DIR}/samples)
    if(ARGC GREATER 2)
        set(folder ${ARGV2})
    endif()
    set(work ${CMAKE_CURRENT_BINARY_DIR}/flatc_${name})
    # flatc names its output after its input, so it works in a folder of its own and the result is moved.
    add_custom_command(
        OUTPUT ${folder}/${name}.zdr
        COMMAND ${CMAKE_COMMAND} -E make_directory ${work} ${folder}
        COMMAND ${FLATC} --binary --strict-json -o ${work} ${KEL_DRAWING_SCHEMA} ${source}
        COMMAND ${CMAKE_COMMAND} -E rename ${work}/${stem}.zdr ${folder}/${name}.zdr
        DEPENDS ${source} ${KEL_DRAWING_SCHEMA}
        COMMENT "Building the drawing ${name}.zdr"
        VERBATIM)
    add_custom_target(drawing_${name} ALL DEPENDS ${folder}/${name}.zdr)
endfunction()
