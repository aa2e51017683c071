# Tells a program where new versions of it come from; see packaging/release/README.md. Without an address it never looks.
#   ADDRESS    of the folder on the web server, http or https
#   KEYS       of whom version lists are believed: Ed25519, 32 bytes in base64, with blanks between them
#   AUTHORITY  a certificate (PEM) that alone vouches for the server, on Windows besides the authorities of the system; empty
#              for those
function(set_update_source target address keys authority)
    if(address AND NOT (address MATCHES "^https?://[^ ]+$" AND keys MATCHES "^[A-Za-z0-9+/]+=( [A-Za-z0-9+/]+=)*$"))
        message(FATAL_ERROR "PIROL_UPDATE_ADDRESS needs http or https, and PIROL_UPDATE_KEYS a key in base64")
    endif()
    set(certificate "")
    if(authority)
        file(READ ${authority} certificate)
        string(REGEX MATCH "-----BEGIN CERTIFICATE-----([^-]+)-----END CERTIFICATE-----" found "${certificate}")
        if(NOT found)
            message(FATAL_ERROR "${authority} holds no certificate")
        endif()
        string(REGEX REPLACE "[\r\n ]" "" certificate "${CMAKE_MATCH_1}")
    endif()
    target_compile_definitions(${target} PRIVATE PIROL_UPDATE_ADDRESS="${address}" PIROL_UPDATE_KEYS="${keys}"
                                                 PIROL_UPDATE_AUTHORITY="${certificate}")
endfunction()
