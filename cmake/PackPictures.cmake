# pack_pictures(PACKED PICTURE...)
#
# Sets PACKED to the files in the build's folder that the pictures (PNG) become: NAME.packed for NAME.png, as
# cmake/PackPictures.java writes them.
function(pack_pictures packed)
    set(folder ${CMAKE_CURRENT_BINARY_DIR}/${packed})
    file(MAKE_DIRECTORY ${folder})
    list(TRANSFORM ARGN REPLACE "^.*/(.*)\\.png$" "${folder}/\\1.packed" OUTPUT_VARIABLE files)
    add_custom_command(
        OUTPUT ${files}
        COMMAND ${Java_JAVA_EXECUTABLE} -Djava.awt.headless=true ${PROJECT_SOURCE_DIR}/cmake/PackPictures.java ${folder}
                ${ARGN}
        DEPENDS ${ARGN} ${PROJECT_SOURCE_DIR}/cmake/PackPictures.java
        COMMENT "Packing pictures into ${packed}"
        VERBATIM)
    set(${packed} ${files} PARENT_SCOPE)
endfunction()
