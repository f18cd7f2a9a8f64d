# Checks that the program is compiled and linked with the options against attacks. Run as:
#   cmake -DPROGRAM=… -DREADELF=… -P hardening.cmake
execute_process(COMMAND "${READELF}" -W -d -l -s "${PROGRAM}" OUTPUT_VARIABLE seen COMMAND_ERROR_IS_FATAL ANY)
foreach(mark GNU_RELRO BIND_NOW PIE __stack_chk_fail)
    if(NOT seen MATCHES "${mark}")
        message(SEND_ERROR "${PROGRAM} lacks ${mark}")
    endif()
endforeach()
