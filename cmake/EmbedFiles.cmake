# embed_files(TARGET FUNCTION FILE...)
#
# Compiles the bytes of the files into TARGET. The generated function
#   std::string_view pirol::FUNCTION(std::string_view name)
# gives the content of the file of that name (case-sensitive, no folder), and an empty view for an unknown name.
function(embed_files target function)
    set(generated ${CMAKE_CURRENT_BINARY_DIR}/${function}.cpp)
    add_custom_command(
        OUTPUT ${generated}
        COMMAND ${CMAKE_COMMAND} -DFUNCTION=${function} -DOUTPUT=${generated} "-DFILES=${ARGN}"
                -P ${PROJECT_SOURCE_DIR}/cmake/WriteEmbeddedFiles.cmake
        DEPENDS ${ARGN} ${PROJECT_SOURCE_DIR}/cmake/WriteEmbeddedFiles.cmake
        VERBATIM)
    target_sources(${target} PRIVATE ${generated})
endfunction()
