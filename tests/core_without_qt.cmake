# Fails when the core library needs a Qt symbol, or when a file includes Qt that is neither a form, nor part of the view,
# nor the designer's main program.
execute_process(COMMAND ${NM} --undefined-only --demangle ${LIBRARY} OUTPUT_VARIABLE symbols COMMAND_ERROR_IS_FATAL ANY)
if(symbols MATCHES "[ \n](Q[A-Z][A-Za-z]+|qt_[a-z]+)")
    message(FATAL_ERROR "The core library needs the Qt symbol ${CMAKE_MATCH_1}")
endif()

file(GLOB_RECURSE sources ${SOURCES}/*.cpp ${SOURCES}/*.h)
list(FILTER sources EXCLUDE REGEX "/(frm[^/]*|main\\.cpp)$|/designer/view/")
foreach(source IN LISTS sources)
    file(STRINGS ${source} includes REGEX "#include <Q[A-Za-z/]+>")
    if(includes)
        message(FATAL_ERROR "${source} includes Qt: ${includes}")
    endif()
endforeach()
